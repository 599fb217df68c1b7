#include "QuillaryCore/Assistant/Description/DocumentDescription.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
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
#include "QuillaryCore/Model/PaymentMethod.h"
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

/// Of an intro, a footer or the details of a line. Unit: bytes.
constexpr std::size_t shownBytes = 1000;
constexpr std::size_t shownTaxes = 20;
/// Unit: characters.
constexpr std::size_t shownMethod = 40;
constexpr std::size_t shownPayments = 20;
/// What frames the data, and says how many lines are left. Unit: bytes.
constexpr std::size_t frame = 500;

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

    /// What stands below the lines is written first: the lines take the room that is left.
    DocumentDescription describe(std::size_t reserve)
    {
        describeHeading();
        describeTerms();
        std::string above = std::exchange(m_result.text, {});
        m_result.data.set("lines", JSON::array({}));
        describeTotals();
        describePayments();
        const std::string below = std::exchange(m_result.text, std::move(above));
        describeLines(roomFor(below, m_result.data) + reserve + frame);
        m_result.text += below;
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
            const std::string shown = shortened(value, shownBytes);
            m_result.data.set(key, shown);
            m_result.text += fmt::format("{}: {}\n", label, plainText(shown));
        }
    }

    void describeHeading();
    void describeTerms();
    void describeLines(std::size_t reserve);
    void describeTotals();
    void describePayments();
    [[nodiscard]] JSON lineData(std::size_t number, const LineItem& line, std::string_view unit) const;
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
        text += "\n   " + plainText(shortened(line.details, shownBytes));
    }
    return text;
}

JSON Describer::lineData(std::size_t number, const LineItem& line, std::string_view unit) const
{
    JSON data = JSON::object({{"line", number},
                              {"title", line.title},
                              {"details", shortened(line.details, shownBytes)},
                              {"quantity", JSON::Number{Quantity::plainText(line.quantityThousandths)}},
                              {"unit", unit},
                              {"unit_price", this->number(line.unitPriceMinorUnits)},
                              {"tax_rate", JSON::Number{rateFigure(line.vatBasisPoints)}},
                              {"amount", this->number(m_totals.lineAmounts[number - 1])}});
    if (line.parent) {
        data.set("sub_line", true);
    }
    return data;
}

void Describer::describeLines(std::size_t reserve)
{
    JSON::Array lines;
    m_result.text += "Lines:\n";
    ResultLines shown(m_result.text, reserve);
    const std::vector<const LineItem*> items = linesInOrder(m_context, m_document);
    for (const LineItem* line : items) {
        const std::size_t number = lines.size() + 1;
        const bool isSingular = Units::isSingular(line->quantityThousandths, language(m_document));
        const std::string& unit = isSingular ? line->unitSingular : line->unitPlural;
        JSON data = lineData(number, *line, unit);
        if (!shown.add(lineText(number, *line, unit), data)) {
            break;
        }
        lines.push_back(std::move(data));
    }
    if (const std::size_t left = items.size() - lines.size(); left > 0) {
        m_result.text += fmt::format("… and {} more lines\n", left);
        m_result.data.set("more_lines", left);
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
    for (const Totals::TaxLine& tax : m_totals.taxLines) {
        if (taxes.size() == shownTaxes) {
            const std::size_t left = m_totals.taxLines.size() - shownTaxes;
            m_result.text += fmt::format("… and {} more tax rates\n", left);
            m_result.data.set("more_taxes", left);
            break;
        }
        const std::string rate = rateFigure(tax.basisPoints);
        taxes.push_back(
            JSON::object({{"rate", JSON::Number{rate}}, {"base", number(tax.base)}, {"tax", number(tax.tax)}}));
        m_result.text += fmt::format("Tax {}% on {}: {}\n", rate, amount(tax.base), amount(tax.tax));
    }
    m_result.data.set("taxes", std::move(taxes));
    row("total", "Total", m_totals.total);
}

void Describer::describePayments()
{
    if (!acceptsPayments(m_document)) {
        return;
    }
    if (const std::int64_t fees = lateFeesMinorUnits(m_context, m_document); fees != 0) {
        row("late_fees", "Late fees", fees);
    }
    JSON::Array listed;
    const std::vector<const Payment*> payments = sortedPayments(m_context, m_document);
    for (const Payment* payment : payments) {
        if (listed.size() == shownPayments) {
            m_result.text += fmt::format("… and {} more payments\n", payments.size() - shownPayments);
            m_result.data.set("more_payments", payments.size() - shownPayments);
            break;
        }
        const std::string date = payment->date ? isoText(m_calendar.date(*payment->date)) : "";
        const std::optional<PaymentMethod> known = method(*payment);
        const std::string how = known ? std::string(title(*known)) : plainText(payment->method, shownMethod);
        listed.push_back(JSON::object({{"date", date},
                                       {"amount", number(payment->amountMinorUnits)},
                                       {"method", known ? payment->method : how}}));
        m_result.text += fmt::format("Payment of {}{}{}{}{}\n",
                                     amount(payment->amountMinorUnits),
                                     date.empty() ? "" : " on ",
                                     date,
                                     how.empty() ? "" : ", ",
                                     how);
    }
    m_result.data.set("payments", std::move(listed));
    if (!payments.empty()) {
        row("paid", "Paid", paidMinorUnits(m_context, m_document));
    }
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

std::string rateFigure(std::int32_t basisPoints)
{
    std::string figure = Percent::format(basisPoints);
    figure.pop_back(); // the sign
    return figure;
}

DocumentDescription DocumentDescription::describe(
    Context& context, const Document& document, Instant today, const Calendar& calendar, std::size_t reserve)
{
    return Describer(context, document, today, calendar).describe(reserve);
}

} // namespace Quillary
