#include "QuillaryCore/Output/PrintedPayment.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Model/Validation.h"
#include "QuillaryCore/Output/PaymentQR.h"
#include "QuillaryCore/Output/PrintSource.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary::PrintedPayment {

namespace {

using Key = DocumentStrings::Key;

/// "DE89 3704 0044 0532 0130 00", the form in which an IBAN is printed (ISO 13616).
std::string groupedIBAN(std::string_view iban)
{
    const std::string compact = Validation::compactIBAN(iban);
    std::string grouped;
    grouped.reserve(compact.size() + compact.size() / 4);
    for (std::size_t start = 0; start < compact.size(); start += 4) {
        grouped.append(start == 0 ? "" : " ").append(compact, start, 4);
    }
    return grouped;
}

std::vector<PrintedDocument::Row> bankRows(const PrintSource& source)
{
    const Business& business = source.business;
    constexpr std::size_t mostRows = 7;
    std::vector<PrintedDocument::Row> rows;
    rows.reserve(mostRows);
    const auto add = [&](std::string_view label, std::string_view value) {
        if (const std::string_view text = trimmed(value); !text.empty()) {
            rows.push_back({std::string(label), std::string(text)});
        }
    };
    const std::string_view holder = trimmed(business.accountHolder);
    rows.push_back({std::string(source.strings.text(Key::accountHolder)),
                    std::string(holder.empty() ? trimmed(business.name) : holder)});
    add(source.strings.text(Key::bank), business.bankName);
    add("IBAN", groupedIBAN(business.iban));
    add("BIC", Validation::compactIBAN(business.bic));
    add(source.strings.text(Key::accountNumber), business.accountNumber);
    add(source.strings.text(Key::bankCode), business.bankCode);
    if (upperCasedASCII(source.document.currencyCode) == "INR") {
        add("UPI ID", business.upiID);
    }
    if (rows.size() == 1) {
        rows.clear(); // a holder of nothing
    }
    return rows;
}

/// The day by which to pay: the due date, or the later one that a reminder has set.
std::optional<Instant> payBy(const PrintSource& source)
{
    std::optional<Instant> day = source.dueDate();
    for (const Reminder* reminder : sortedReminders(source.context, source.document)) {
        if (reminder->payBy && (!day || *reminder->payBy > *day)) {
            day = reminder->payBy;
        }
    }
    return day;
}

} // namespace

void add(PrintedDocument& printed, const PrintSource& source, std::int64_t due)
{
    if (!source.asksForPayment() || due <= 0 || status(source.document) == DocumentStatus::paid) {
        return;
    }
    const auto issued = source.issueDate();
    const auto deadline = payBy(source);
    const bool isLater = deadline && (!issued || source.calendar.date(*deadline) > source.calendar.date(*issued));
    printed.payment = asking(source, due, isLater ? deadline : std::nullopt);
}

PrintedDocument::Payment asking(const PrintSource& source, std::int64_t due, std::optional<Instant> payBy)
{
    PrintedDocument::Payment payment;
    const std::string total = source.money(due);
    if (payBy) {
        const std::string date = source.day(*payBy);
        payment.sentence = source.strings.format(Key::payBy, {{"total", total}, {"date", date}});
    } else {
        payment.sentence = source.strings.format(Key::payOnReceipt, {{"total", total}});
    }
    payment.bank = bankRows(source);
    if (source.business.showPaymentQRCode) {
        if (const auto text = PaymentQR::payload(source.context, source.document, source.business, due)) {
            payment.qrCode = PaymentQR::png(*text).value_or(Bytes());
        }
    }
    return payment;
}

} // namespace Quillary::PrintedPayment
