// The page of a document, from its records to the finished text, beside a function that appends the same bytes: no lists
// of prepared values, no choices, all words and all texts but the lines' in a bare struct. What every page has to ask for
// is asked for by the floor too, of the same classes, which have floors of their own elsewhere: the lines in their order,
// discounts, fees, payments, reminders and client of the `Context` (StoreBench), the day an instant falls on of the
// `Calendar`, figures and dates of the `Locale` (MoneyBench).

#include "QuillaryCore/Billing/Totals.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Output/DocumentHTML.h"
#include "QuillaryCore/Output/PaymentQR.h"
#include "QuillaryCore/Output/PrintedDocument.h"
#include "QuillaryCore/Output/StyleSheet.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

namespace {

constexpr std::int64_t onePage = 18;
constexpr std::int64_t tenPages = 240;

struct BareLine
{
    std::string title;
    std::string details;
    std::int64_t quantityThousandths;
    std::int64_t unitPriceMinorUnits;
};

/// Titles as people write them: now and then a sign that has to be escaped, an umlaut or two.
std::vector<BareLine> bareLines(std::int64_t count)
{
    constexpr std::array<std::string_view, 4> titles = {"Konzept & Gestaltung der Startseite",
                                                        "Redaktionssystem eingerichtet",
                                                        "Rückfragen zur Übersetzung geklärt",
                                                        "Schulung vor Ort"};
    std::vector<BareLine> lines;
    for (std::int64_t index = 0; index < count; ++index) {
        lines.push_back({std::string(titles.at(static_cast<std::size_t>(index) % titles.size())),
                         index % 3 == 0 ? "Vorgang 1042, wie besprochen" : "",
                         250 * (index % 40 + 1),
                         9'500 + index * 37});
    }
    return lines;
}

/// A library in memory with one invoice.
class Sample
{
public:
    explicit Sample(std::int64_t count)
    {
        business.name = "Atelier Lindqvist & Söhne GmbH";
        business.addressLine = "Lindenstraße 14";
        business.postalCode = "10115";
        business.city = "Berlin";
        business.countryCode = "DE";
        business.vatID = "DE123456789";
        business.iban = "DE89370400440532013000";
        business.showSellerContact = true;
        business.email = "hallo@lindqvist.example";
        auto& client = context.insert<Client>();
        client.name = "Nordwind Energie AG";
        client.addressLine = "Hafenstraße 3";
        client.postalCode = "20457";
        client.city = "Hamburg";
        client.countryCode = "DE";
        auto& added = context.insert<Document>();
        added.number = "2026-0042";
        added.currencyCode = "EUR";
        added.languageCode = "de";
        added.introText = "Guten Tag Frau Petersen,\nwie vereinbart berechnen wir:";
        added.client = client.ref;
        document = &added;
        std::int32_t index = 0;
        for (const BareLine& line : bareLines(count)) {
            auto& item = context.insert<LineItem>();
            item.document = added.ref;
            item.sortIndex = index++;
            item.title = line.title;
            item.details = line.details;
            item.quantityThousandths = line.quantityThousandths;
            item.unitPriceMinorUnits = line.unitPriceMinorUnits;
            item.vatBasisPoints = 1900;
            item.unit = "hour";
        }
    }

    std::string page() { return DocumentHTML::render(printed()); }

    PrintedDocument printed() { return PrintedDocument::from(context, *document, business, calendar, locale); }

    FixedClock clock{Instant(std::chrono::milliseconds(1'773'655'200'000))};
    CountingUUIDSource uuids;
    Store store{Store::Location::inMemory(), DataModel::records(), DataModel::history(), clock, uuids};
    Context context{store, clock, uuids};
    Calendar calendar{"Europe/Berlin"};
    Locale locale = printLocale(DocumentLanguage::german, "DE");
    Business business;
    const Document* document = nullptr;
};

void appendEscaped(std::string& html, std::string_view text)
{
    std::size_t start = 0;
    for (std::size_t stop = text.find_first_of("&<>\"'"); stop != std::string_view::npos;
         stop = text.find_first_of("&<>\"'", start)) {
        html.append(text, start, stop - start);
        html += text[stop] == '&' ? "&amp;" : text[stop] == '<' ? "&lt;" : text[stop] == '>' ? "&gt;" : "&quot;";
        start = stop + 1;
    }
    html.append(text, start);
}

/// What the floor knows of the invoice.
struct BareInvoice
{
    std::string styleSheet;
    std::string_view seller = "Atelier Lindqvist & Söhne GmbH";
    std::string_view sellerStreet = "Lindenstraße 14";
    std::string_view sellerTown = "10115 Berlin";
    std::string_view email = "hallo@lindqvist.example";
    std::string_view vatID = "DE123456789";
    std::string_view iban = "DE89 3704 0044 0532 0130 00";
    std::string_view buyer = "Nordwind Energie AG";
    std::string_view buyerStreet = "Hafenstraße 3";
    std::string_view buyerTown = "20457 Hamburg";
    std::string_view number = "2026-0042";
    CalendarDate date;
};

void appendBareLine(std::string& html, const LineItem& line, std::int64_t amount, const Locale& locale)
{
    html += "<tr><td class=\"desc\"><div class=\"line-title\">";
    appendEscaped(html, line.title);
    html += "</div>";
    if (!line.details.empty()) {
        html += "<div class=\"details\"><p>";
        appendEscaped(html, line.details);
        html += "</p></div>\n";
    }
    html += "</td><td class=\"num\">";
    html += locale.formatDecimal(line.quantityThousandths, 3, 0);
    html += line.quantityThousandths == 1000 ? " Stunde" : " Stunden";
    html += "</td><td class=\"num\">";
    html += locale.formatCurrency(line.unitPriceMinorUnits, 2, "EUR");
    html += "</td><td class=\"num\">";
    html += locale.formatCurrency(amount, 2, "EUR");
    html += "</td></tr>\n";
}

void appendBareHead(std::string& html, const BareInvoice& invoice, const Locale& locale)
{
    html += "<!DOCTYPE html>\n<html lang=\"de\">\n<head>\n<meta charset=\"utf-8\">\n<title>Rechnung ";
    appendEscaped(html, invoice.number);
    html += "</title>\n<style>\n";
    html += invoice.styleSheet;
    html += "</style>\n</head>\n<body class=\"design-classic\">\n<header class=\"head\">\n<div class=\"seller\">\n"
            "<div class=\"seller-name\">";
    appendEscaped(html, invoice.seller);
    html += "</div>\n<div>";
    appendEscaped(html, invoice.sellerStreet);
    html += "</div>\n<div>";
    appendEscaped(html, invoice.sellerTown);
    html += "</div>\n<div class=\"contact\">\n<div>";
    appendEscaped(html, invoice.email);
    html +=
        "</div>\n</div>\n</div>\n</header>\n<section class=\"parties\">\n<div class=\"buyer\">\n<div class=\"sender\">";
    appendEscaped(html, invoice.seller);
    html += " · ";
    appendEscaped(html, invoice.sellerStreet);
    html += " · ";
    appendEscaped(html, invoice.sellerTown);
    html += "</div>\n<div class=\"buyer-name\">";
    appendEscaped(html, invoice.buyer);
    html += "</div>\n<div>";
    appendEscaped(html, invoice.buyerStreet);
    html += "</div>\n<div>";
    appendEscaped(html, invoice.buyerTown);
    html += "</div>\n</div>\n<div class=\"meta\">\n<h1>Rechnung</h1>\n<table>\n<tr><td class=\"label\">Nummer</td><td>";
    appendEscaped(html, invoice.number);
    html += "</td></tr>\n<tr><td class=\"label\">Datum</td><td>";
    html += locale.formatDate(invoice.date);
    html +=
        "</td></tr>\n</table>\n</div>\n</section>\n<div class=\"text intro\"><p>Guten Tag Frau Petersen,<br>wie "
        "vereinbart berechnen wir:</p></div>\n<table class=\"lines\">\n<thead><tr><th class=\"desc\">Beschreibung</th>"
        "<th class=\"num\">Menge</th><th class=\"num\">Einzelpreis</th><th class=\"num\">Betrag</th></tr></thead>\n"
        "<tbody>\n";
}

void appendBareEnd(std::string& html, const BareInvoice& invoice, std::int64_t net, const Locale& locale)
{
    const std::int64_t tax = (net * 19 + 50) / 100;
    const std::string netText = locale.formatCurrency(net, 2, "EUR");
    const std::string totalText = locale.formatCurrency(net + tax, 2, "EUR");
    html +=
        "</tbody>\n</table>\n<div class=\"totals-wrap\">\n<table class=\"totals\">\n<tr><td class=\"label\">Netto</td>"
        "<td class=\"num\">";
    html += netText;
    html += "</td></tr>\n<tr class=\"last\"><td class=\"label\">USt. 19\u00A0% auf ";
    html += netText;
    html += "</td><td class=\"num\">";
    html += locale.formatCurrency(tax, 2, "EUR");
    html += "</td></tr>\n<tr class=\"total\"><td class=\"label\">Gesamtbetrag</td><td class=\"num\">";
    html += totalText;
    html += "</td></tr>\n</table>\n</div>\n<section class=\"payment\">\n<div class=\"pay-text\">\n<h3>Zahlung</h3>\n"
            "<p>Bitte überweisen Sie ";
    html += totalText;
    html += " sofort nach Erhalt.</p>\n<table class=\"bank\">\n<tr><td class=\"label\">Kontoinhaber</td><td>";
    appendEscaped(html, invoice.seller);
    html += "</td></tr>\n<tr><td class=\"label\">IBAN</td><td>";
    appendEscaped(html, invoice.iban);
    html += "</td></tr>\n</table>\n</div>\n</section>\n<footer class=\"foot\">\n<div>USt-IdNr. ";
    appendEscaped(html, invoice.vatID);
    html += "</div>\n</footer>\n</body>\n</html>\n";
}

/// What a page asks for besides its lines. In the sample there is nothing but the client, which has to be found out.
void askForTheRest(Sample& sample)
{
    const Document& document = *sample.document;
    benchmark::DoNotOptimize(sample.context.find(document.client));
    benchmark::DoNotOptimize(sortedDiscounts(sample.context, document));
    benchmark::DoNotOptimize(sortedFees(sample.context, document));
    benchmark::DoNotOptimize(sortedPayments(sample.context, document));
    benchmark::DoNotOptimize(sortedReminders(sample.context, document));
}

std::string barePage(Sample& sample, BareInvoice& invoice)
{
    constexpr std::size_t perLine = 320;
    constexpr std::size_t everythingElse = 4'000;
    const auto lines = linesInOrder(sample.context, *sample.document);
    askForTheRest(sample);
    invoice.date = sample.calendar.date(*sample.document->issueDate);
    std::string html;
    html.reserve(invoice.styleSheet.size() + everythingElse + lines.size() * perLine);
    appendBareHead(html, invoice, sample.locale);
    std::int64_t net = 0;
    for (const LineItem* line : lines) {
        const std::int64_t amount = (line->quantityThousandths * line->unitPriceMinorUnits + 500) / 1000;
        appendBareLine(html, *line, amount, sample.locale);
        net += amount;
    }
    appendBareEnd(html, invoice, net, sample.locale);
    return html;
}

void page(benchmark::State& state)
{
    Sample sample(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(sample.page());
    }
}
BENCHMARK(page)->Arg(onePage)->Arg(tenPages);

void pageFloor(benchmark::State& state)
{
    Sample sample(state.range(0));
    BareInvoice invoice;
    StyleSheet::append(invoice.styleSheet, TemplateSettings());
    if (barePage(sample, invoice) != sample.page()) {
        std::abort(); // a floor that writes something else would be none
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(barePage(sample, invoice));
    }
}
BENCHMARK(pageFloor)->Arg(onePage)->Arg(tenPages);

/// Where the time goes: the values alone, of them what the floor asks for too, and the text alone.
void values(benchmark::State& state)
{
    Sample sample(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(sample.printed());
    }
}
BENCHMARK(values)->Arg(onePage)->Arg(tenPages);

void asking(benchmark::State& state)
{
    Sample sample(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(linesInOrder(sample.context, *sample.document));
        askForTheRest(sample);
        benchmark::DoNotOptimize(sample.calendar.date(*sample.document->issueDate));
    }
}
BENCHMARK(asking)->Arg(onePage)->Arg(tenPages);

void rendering(benchmark::State& state)
{
    const PrintedDocument printed = Sample(state.range(0)).printed();
    for (auto _ : state) {
        benchmark::DoNotOptimize(DocumentHTML::render(printed));
    }
}
BENCHMARK(rendering)->Arg(onePage)->Arg(tenPages);

void paymentCode(benchmark::State& state)
{
    const std::string payload =
        "BCD\n002\n1\nSCT\nCOBADEFFXXX\nAtelier Lindqvist & Söhne GmbH\nDE89370400440532013000\n"
        "EUR6932.70\n\n\n2026-0042";
    for (auto _ : state) {
        benchmark::DoNotOptimize(PaymentQR::png(payload));
    }
}
BENCHMARK(paymentCode);

} // namespace

} // namespace Quillary
