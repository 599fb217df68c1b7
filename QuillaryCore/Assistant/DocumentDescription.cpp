#include "QuillaryCore/Assistant/DocumentDescription.h"

#include "QuillaryCore/Assistant/Lookup.h"
#include "QuillaryCore/Assistant/PlainText.h"
#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/Totals.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryCore/Money/Quantity.h"

#include <fmt/format.h>

#include <optional>
#include <source_location>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

/// Of an intro, a footer or the details of a line; the data holds all of it.
constexpr std::size_t shownLetters = 1000;
/// Kept for the totals and payments below the lines. Unit: bytes.
constexpr std::size_t roomBelowLines = 15'000;
constexpr std::size_t shownPayments = 50;

/// Assembles text and data side by side, so that they can't say different things.
class Describer
{
public:
    Describer(Context& context, const Document& document, Instant today, const Calendar& calendar)
        : m_context(context)
        , m_document(document)
        , m_calendar(calendar)
        , m_totals(calculateTotals(context, document))
        , m_status(displayStatus(document, today, calendar))
    {
    }

    DocumentDescription describe()
    {
        describeHeading();
        describeTerms();
        describeLines();
        describeTotals();
        describePayments();
        return std::move(m_result);
    }

private:
    [[nodiscard]] std::string amount(std::int64_t minorUnits) const
    {
        return Money(minorUnits, m_document.currencyCode).plainText();
    }

    [[nodiscard]] JSON number(std::int64_t minorUnits) const { return JSON::Number{amount(minorUnits)}; }

    void row(std::string_view key, std::string_view label, std::int64_t minorUnits)
    {
        m_result.data.set(key, number(minorUnits));
        m_result.text += fmt::format("{}: {}\n", label, amount(minorUnits));
    }

    void day(std::string_view key, std::string_view label, const std::optional<Instant>& instant)
    {
        if (instant) {
            const std::string date = isoText(m_calendar.date(*instant));
            m_result.data.set(key, date);
            m_result.text += fmt::format("{}: {}\n", label, date);
        }
    }

    void fact(std::string_view key, std::string_view label, const std::string& value)
    {
        if (!value.empty()) {
            m_result.data.set(key, value);
            m_result.text += fmt::format("{}: {}\n", label, plainText(value, shownLetters));
        }
    }

    void describeHeading();
    void describeTerms();
    void describeLines();
    void describeTotals();
    void describePayments();
    [[nodiscard]] std::string lineText(std::size_t number, const LineItem& line, std::string_view unit) const;

    Context& m_context;
    const Document& m_document;
    const Calendar& m_calendar;
    Totals::Result m_totals;
    DisplayStatus m_status;
    DocumentDescription m_result;
};

void Describer::describeHeading()
{
    const std::optional<DocumentKind> documentKind = kind(m_document);
    const std::string statusTitle(title(m_status, documentKind));
    const Client* client = m_context.find(m_document.client);
    m_result.heading = fmt::format(
        "{}, {}, {}",
        Lookup::reference(m_document),
        statusTitle,
        client != nullptr ? fmt::format("for {} [{}]", plainText(displayName(*client)), Lookup::idText(client->uuid))
                          : "without a client");
    m_result.text = m_result.heading + "\n";
    m_result.data = JSON::object({{"id", Lookup::idText(m_document.uuid)},
                                  {"kind", documentKind ? JSON(kindWord(*documentKind)) : JSON()},
                                  {"number", m_document.number},
                                  {"status", rawText(m_status)}});
    if (client != nullptr) {
        m_result.data.set("client",
                          JSON::object({{"id", Lookup::idText(client->uuid)}, {"name", displayName(*client)}}));
    }
}

void Describer::describeTerms()
{
    fact("title", "Title", m_document.title);
    day("issue_date", "Date", m_document.issueDate);
    day("due_date", "Due", m_document.dueDate);
    day("valid_until", "Valid until", m_document.validUntil);
    day("service_start", "Service from", m_document.deliveryStart);
    day("service_end", "Service to", m_document.deliveryEnd);
    fact("currency", "Currency", m_document.currencyCode);
    fact("language", "Language", std::string(code(language(m_document))));
    fact("intro", "Intro", m_document.introText);
    fact("footer", "Footer", m_document.outroText);
    m_result.data.set("tax_exempt", m_document.taxExempt);
    if (m_document.taxExempt) {
        m_result.text += "No tax on this document.\n";
        fact("tax_exempt_note", "Reason", m_document.taxExemptNote);
    }
}

std::string Describer::lineText(std::size_t number, const LineItem& line, std::string_view unit) const
{
    std::string text = fmt::format("{}. {}{}: {}{}{} × {} = {}, tax {}",
                                   number,
                                   line.parent ? "(sub-line) " : "",
                                   line.title.empty() ? "(no description)" : plainText(line.title),
                                   Quantity::plainText(line.quantityThousandths),
                                   unit.empty() ? "" : " ",
                                   plainText(unit),
                                   amount(line.unitPriceMinorUnits),
                                   amount(m_totals.lineAmounts[number - 1]),
                                   Percent::format(line.vatBasisPoints));
    if (!line.details.empty()) {
        text += "\n   " + plainText(line.details, shownLetters);
    }
    return text;
}

void Describer::describeLines()
{
    JSON::Array lines;
    m_result.text += "Lines:\n";
    ResultLines shown(m_result.text, roomBelowLines);
    std::size_t left = 0;
    const std::vector<const LineItem*> items = linesInOrder(m_context, m_document);
    for (std::size_t index = 0; index < items.size(); ++index) {
        const LineItem& line = *items[index];
        const std::string quantity = Quantity::plainText(line.quantityThousandths);
        const bool isSingular = Units::isSingular(line.quantityThousandths, language(m_document));
        const std::string& unit = isSingular ? line.unitSingular : line.unitPlural;
        JSON data = JSON::object({{"line", index + 1},
                                  {"title", line.title},
                                  {"details", line.details},
                                  {"quantity", JSON::Number{quantity}},
                                  {"unit", unit},
                                  {"unit_price", number(line.unitPriceMinorUnits)},
                                  {"tax_rate", Percent::format(line.vatBasisPoints)},
                                  {"amount", number(m_totals.lineAmounts[index])}});
        if (line.parent) {
            data.set("sub_line", true);
        }
        lines.push_back(std::move(data));
        left += shown.add(lineText(index + 1, line, unit)) ? 0U : 1U;
    }
    if (left > 0) {
        m_result.text += fmt::format("… and {} more lines\n", left);
    }
    if (items.empty()) {
        m_result.text += "(none yet)\n";
    }
    m_result.data.set("lines", std::move(lines));
}

void Describer::describeTotals()
{
    row("subtotal", "Subtotal", m_totals.subtotal);
    if (m_totals.totalDiscount != 0) {
        row("discount", "Discount", m_totals.totalDiscount);
    }
    if (m_totals.totalFees != 0) {
        row("fees", "Fees", m_totals.totalFees);
    }
    row("net", "Net", m_totals.net);
    JSON::Array taxes;
    ResultLines shown(m_result.text, roomBelowLines / 2);
    for (const Totals::TaxLine& tax : m_totals.taxLines) {
        const std::string rate = Percent::format(tax.basisPoints);
        taxes.push_back(JSON::object({{"rate", rate}, {"base", number(tax.base)}, {"tax", number(tax.tax)}}));
        shown.add(fmt::format("Tax {} on {}: {}", rate, amount(tax.base), amount(tax.tax)));
    }
    m_result.data.set("taxes", std::move(taxes));
    row("total", "Total", m_totals.total);
}

void Describer::describePayments()
{
    if (!acceptsPayments(m_document)) {
        return;
    }
    JSON::Array payments;
    for (const Payment* payment : sortedPayments(m_context, m_document)) {
        if (payments.size() == shownPayments) {
            m_result.text += "… and more payments\n";
        }
        const std::string date = payment->date ? isoText(m_calendar.date(*payment->date)) : "";
        payments.push_back(
            JSON::object({{"date", date}, {"amount", number(payment->amountMinorUnits)}, {"method", payment->method}}));
        if (payments.size() <= shownPayments) {
            m_result.text += fmt::format("Paid {} on {}\n", amount(payment->amountMinorUnits), date);
        }
    }
    m_result.data.set("payments", std::move(payments));
    row("amount_due", "Amount due", amountDueMinorUnits(m_context, m_document));
}

} // namespace

std::string_view kindWord(DocumentKind documentKind)
{
    switch (documentKind) {
    case DocumentKind::invoice:
        return "invoice";
    case DocumentKind::quote:
        return "quote";
    case DocumentKind::creditNote:
        return "credit_note";
    case DocumentKind::recurring:
        return "recurring";
    }
    stopProgram("a document kind is one of the four", std::source_location::current());
}

DocumentDescription
DocumentDescription::describe(Context& context, const Document& document, Instant today, const Calendar& calendar)
{
    return Describer(context, document, today, calendar).describe();
}

} // namespace Quillary
