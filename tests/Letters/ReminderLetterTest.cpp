#include "QuillaryCore/Letters/ReminderLetter.h"

#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Letters/LetterFileName.h"
#include "QuillaryCore/Output/DocumentHTML.h"
#include "tests/Letters/LetterLibrary.h"
#include "tests/Output/HTMLTree.h"
#include "tests/Support/QRReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

namespace {

using testing::ElementsAre;

class ReminderLetterTest : public testing::Test, protected LetterLibrary
{
protected:
    ReminderLetterTest()
    {
        business.currencyCode = "EUR";
        business.iban = "DE89370400440532013000";
        business.showPaymentQRCode = true;
        business.showClientNumber = true;
        client.number = "K-7";
        client.countryCode = "DE";
    }

    [[nodiscard]] ReminderNotice notice(ReminderLevel level, std::int64_t fee) const
    {
        return {.details = {.level = level, .feeMinorUnits = fee, .payBy = day(7)}, .date = start};
    }

    PrintedDocument letter(const ReminderNotice& reminder)
    {
        return ReminderLetter::printed(context, invoice, business, reminder, calendar);
    }
};

/// "label=value" of every row, spaces that don't break as spaces.
template <class Row>
std::vector<std::string> texts(const std::vector<Row>& rows)
{
    std::vector<std::string> result;
    for (const Row& row : rows) {
        std::string text = row.label + "=" + row.value;
        for (std::size_t at = text.find("\u00A0"); at != std::string::npos; at = text.find("\u00A0")) {
            text.replace(at, 2, " ");
        }
        result.push_back(std::move(text));
    }
    return result;
}

} // namespace

TEST_F(ReminderLetterTest, asksForWhatIsDueNow)
{
    addReminder(context, invoice, ReminderLevel::first, 500, day(-20), day(-10));
    recordPayment(context, invoice, {.amountMinorUnits = 19'000, .date = day(-9), .note = {}});
    const ReminderNotice reminder = notice(ReminderLevel::second, 1'000);
    const PrintedDocument planned = letter(reminder);
    EXPECT_EQ(planned.heading, "Mahnung");
    EXPECT_EQ(planned.pageTitle, "Mahnung 2025-001");
    EXPECT_EQ(planned.buyerName, "Acme");
    EXPECT_THAT(texts(planned.meta),
                ElementsAre("Datum=07.03.2025",
                            "Rechnungsnr.=2025-001",
                            "Rechnungsdatum=26.01.2025",
                            "Fällig am=09.02.2025",
                            "Kundennr.=K-7"));
    EXPECT_TRUE(planned.opening.starts_with(
        "Trotz unserer Zahlungserinnerung ist die Rechnung 2025-001 vom 26.01.2025 noch nicht bezahlt."));
    EXPECT_THAT(texts(planned.totals),
                ElementsAre("Rechnungsbetrag=1.190,00 €",
                            "Mahngebühr=15,00 €",
                            "Bereits bezahlt=-190,00 €",
                            "Offener Betrag=1.015,00 €"));
    ASSERT_TRUE(planned.payment);
    EXPECT_EQ(planned.payment->sentence, "Bitte überweisen Sie 1.015,00\u00A0€ bis zum 14.03.2025.");
    const auto code =
        readQRCode({reinterpret_cast<const char*>(planned.payment->qrCode.data()), planned.payment->qrCode.size()});
    ASSERT_TRUE(code);
    EXPECT_TRUE(code->contains("\nEUR1015\n") || code->contains("\nEUR1015.00\n")) << *code;

    const Reminder& recorded =
        addReminder(context, invoice, ReminderLevel::second, 1'000, reminder.date, reminder.details.payBy);
    EXPECT_EQ(DocumentHTML::render(letter(recordedNotice(recorded))), DocumentHTML::render(planned));
}

TEST_F(ReminderLetterTest, saysNoMoreThanThereIs)
{
    business.showClientNumber = false;
    invoice.languageCode = "en";
    invoice.dueDate.reset();
    const PrintedDocument plain = letter(notice(ReminderLevel::first, 0));
    EXPECT_EQ(plain.heading, "Payment Reminder");
    EXPECT_THAT(texts(plain.meta), ElementsAre("Date=7 Mar 2025", "Invoice no.=2025-001", "Invoice date=26 Jan 2025"));
    EXPECT_THAT(texts(plain.totals), ElementsAre("Invoice total=€1,190.00", "Amount due=€1,190.00"));
    recordPayment(context, invoice, {.amountMinorUnits = 119'000, .date = start, .note = {}});
    EXPECT_FALSE(letter(notice(ReminderLevel::first, 0)).payment) << "printed once more when it is paid";
}

TEST_F(ReminderLetterTest, keepsHostileNumbersInTheirPlace)
{
    business.showPaymentQRCode = false; // which says the number, too
    const std::string usual = parseHTML(DocumentHTML::render(letter(notice(ReminderLevel::final, 0))))->outline();
    EXPECT_TRUE(usual.contains("div[class=text opening]")) << usual;
    invoice.number = "<b>{date}**x**</p>&\n- y";
    const auto page = parseHTML(DocumentHTML::render(letter(notice(ReminderLevel::final, 0))));
    EXPECT_EQ(page->outline(), usual);
    EXPECT_TRUE(page->first("opening").text.contains("Die Rechnung <b>{date}**x**</p>&"))
        << page->first("opening").text;
}

TEST_F(ReminderLetterTest, hasAFileNameOfItsOwn)
{
    struct Case
    {
        std::string_view pattern;
        std::string_view document;
        std::string_view reminder;
    };
    const Case cases[] = {
        {"", "Rechnung 2025-001 - Acme", "Letzte Mahnung 2025-001 - Acme"},
        {"{number} {type} {date}", "2025-001 Rechnung 2025-01-26", "2025-001 Letzte Mahnung 2025-03-07"},
        {"{number}", "2025-001", "2025-001 Letzte Mahnung"},
        {"no number", "Rechnung 2025-001 - Acme", "Letzte Mahnung 2025-001 - Acme"},
    };
    for (const Case& row : cases) {
        business.fileNameFormat = row.pattern;
        EXPECT_EQ(LetterFileName::of(context, invoice, business, calendar), row.document) << row.pattern;
        EXPECT_EQ(LetterFileName::ofReminder(context, invoice, business, ReminderLevel::final, start, calendar),
                  row.reminder)
            << row.pattern;
    }
}

} // namespace Quillary
