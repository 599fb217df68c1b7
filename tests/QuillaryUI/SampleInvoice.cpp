#include "tests/QuillaryUI/SampleInvoice.h"

#include "QuillaryCore/Output/DocumentHTML.h"

#include <fmt/format.h>

#include <chrono>

namespace Quillary {
namespace {

PrintJob withMarkupBefore(PrintJob job, std::string_view end, std::string_view markup)
{
    job.html.insert(job.html.rfind(end), markup);
    return job;
}

} // namespace

PrintedDocument sampleInvoice(int lines, TemplateFont font)
{
    PrintedDocument document;
    document.language = DocumentLanguage::german;
    document.settings.font = font;
    document.settings.design = TemplateDesign::modern;
    document.pageTitle = "Rechnung RE-2024-0042";
    document.heading = "Rechnung";
    document.sellerName = "Gärtnerei Öztürk";
    document.sellerAddress = {"Lindenstraße 7", "50674 Köln"};
    document.sender = "Gärtnerei Öztürk · Lindenstraße 7 · 50674 Köln";
    document.buyerName = "Blumenhaus Krüger & Söhne";
    document.buyerAddress = {"Am Markt 1", "20095 Hamburg"};
    document.meta = {{"Nummer", "RE-2024-0042"}, {"Datum", "17.01.2024"}, {"Fällig am", "31.01.2024"}};
    document.intro = "Vielen Dank für Ihren Auftrag.";
    for (int number = 1; number <= lines; ++number) {
        document.lines.add({.title = fmt::format("Strauß der Woche {} ZEILE{}A", number, number),
                            .details = fmt::format("Saisonale Blumen\nVase und Pflege ZEILE{}B", number),
                            .quantity = fmt::format("{},5 Std.", number % 9 + 1),
                            .unitPrice = fmt::format("1.{:03},40 €", number * 7 % 1000),
                            .taxRate = "19",
                            .amount = fmt::format("{}.{:03},80 €", number % 8 + 1, number * 113 % 1000)});
    }
    document.totals = {{.label = "Netto", .value = "11.111,11 €"},
                       {.label = "USt. 19 % auf 11.111,11 €", .value = "2.111,11 €"},
                       {.emphasis = PrintedDocument::Emphasis::total, .label = "Gesamtbetrag", .value = "13.222,22 €"}};
    document.outro = "Mit freundlichen Grüßen";
    document.payment =
        PrintedDocument::Payment{.sentence = "Bitte überweisen Sie 13.222,22 € bis zum 31.01.2024.",
                                 .bank = {{"IBAN", "DE02 1203 0000 0000 2020 51"}, {"BIC", "BYLADEM1001"}},
                                 .qrCode = {}};
    document.footerLines = {"Gärtnerei Öztürk · USt-IdNr. DE123456789"};
    return document;
}

PrintJob sampleJob(const PrintedDocument& document)
{
    return {.html = DocumentHTML::render(document),
            .geometry = pageGeometry(PaperSize::a4),
            .title = document.pageTitle,
            .languageCode = "de",
            .pageLabel = "Seite {page} von {pages}",
            .labelFamily = "system-ui",
            .createdAt = std::chrono::sys_days(std::chrono::year(2024) / 1 / 17) + std::chrono::minutes(9 * 60 + 5)};
}

PrintJob withHead(PrintJob job, std::string_view markup)
{
    return withMarkupBefore(std::move(job), "</head>", markup);
}

PrintJob withBody(PrintJob job, std::string_view markup)
{
    return withMarkupBefore(std::move(job), "</body>", markup);
}

} // namespace Quillary
