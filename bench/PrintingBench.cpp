// A document's page to a finished PDF, beside the bare engine: a page object that is told `setHtml` and `printToPdf`,
// with the same sheet and margins. The engine prints neither page numbers nor title; stamping them is measured apart
// too, beside qpdf reading and writing the same file unchanged.

#include "QuillaryCore/Output/DocumentHTML.h"
#include "QuillaryCore/Output/PrintedDocument.h"
#include "QuillaryUI/Printing/Engine/PDFStamper.h"
#include "QuillaryUI/Printing/Engine/WebPagePrinter.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <array>
#include <cstdlib>
#include <string>

namespace Quillary {

namespace {

/// Lines that fill one page, and ten.
constexpr int onePage = 5;
constexpr int tenPages = 136;

PrintJob job(int lines)
{
    PrintedDocument document;
    document.language = DocumentLanguage::german;
    document.settings.design = TemplateDesign::modern;
    document.pageTitle = "Rechnung RE-2024-0042";
    document.heading = "Rechnung";
    document.sellerName = "Gärtnerei Öztürk";
    document.buyerName = "Blumenhaus Krüger & Söhne";
    document.buyerAddress = {"Am Markt 1", "20095 Hamburg"};
    document.meta = {{"Nummer", "RE-2024-0042"}, {"Fällig am", "31.01.2024"}};
    for (int line = 1; line <= lines; ++line) {
        document.lines.add({.title = fmt::format("Strauß der Woche {}", line),
                            .details = "Saisonale Blumen\nVase und Pflege",
                            .quantity = "2,5 Std.",
                            .unitPrice = fmt::format("1.{:03},40 €", line),
                            .taxRate = "19",
                            .amount = fmt::format("2.{:03},80 €", line)});
    }
    document.totals = {{.emphasis = PrintedDocument::Emphasis::total, .label = "Gesamtbetrag", .value = "13.222,22 €"}};
    return {.html = DocumentHTML::render(document),
            .geometry = pageGeometry(PaperSize::a4),
            .title = document.pageTitle,
            .languageCode = "de",
            .pageLabel = "Seite {page} von {pages}",
            .createdAt = {}};
}

/// The application and both printers, made once: the engine starts but once in a process.
struct Engine
{
    Engine()
        : application((setenv("QT_QPA_PLATFORM", "offscreen", 0), count), arguments.data())
    {
        (void)printer.printAndWait(job(onePage));        // the engine is up, with its flags
        profile = std::make_unique<QWebEngineProfile>(); // not before: the engine reads its flags but once
        page = std::make_unique<QWebEnginePage>(profile.get());
    }

    QByteArray printBare(const PrintJob& job)
    {
        const PageGeometry& sheet = job.geometry;
        const QPageLayout layout(
            QPageSize(QSizeF(sheet.width, sheet.height), QPageSize::Point, {}, QPageSize::ExactMatch),
            QPageLayout::Portrait,
            {sheet.marginLeft, sheet.marginTop, sheet.marginRight, sheet.marginBottom},
            QPageLayout::Point);
        QEventLoop loop;
        QByteArray pdf;
        const auto connection = QObject::connect(page.get(), &QWebEnginePage::loadFinished, [&](bool /*isWell*/) {
            page->printToPdf(
                [&](const QByteArray& bytes) {
                    pdf = bytes;
                    loop.quit();
                },
                layout);
        });
        page->setHtml(QString::fromStdString(job.html));
        loop.exec();
        QObject::disconnect(connection);
        return pdf;
    }

    int count = 1;
    std::array<char, 6> name{'b', 'e', 'n', 'c', 'h', '\0'};
    std::array<char*, 2> arguments{name.data(), nullptr};
    QGuiApplication application;
    WebPagePrinter printer{PrinterLimits{}};
    std::unique_ptr<QWebEngineProfile> profile;
    std::unique_ptr<QWebEnginePage> page;
};

Engine& engine()
{
    static Engine started;
    return started;
}

void printFloor(benchmark::State& state)
{
    const PrintJob page = job(int(state.range(0)));
    (void)engine().printBare(page);
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine().printBare(page));
    }
}

void print(benchmark::State& state)
{
    const PrintJob page = job(int(state.range(0)));
    state.counters["pages"] = engine().printer.printAndWait(page).pageCount;
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine().printer.printAndWait(page));
    }
}

/// Twenty jobs at once, each counted: the engine loads the next page while one is finished.
void twentyInARow(benchmark::State& state)
{
    constexpr int jobs = 20;
    const PrintJob page = job(int(state.range(0)));
    for (auto _ : state) {
        QEventLoop loop;
        int left = jobs;
        for (int i = 0; i < jobs; ++i) {
            engine().printer.print(page, [&](const PrintResult& /*result*/) {
                if (--left == 0) {
                    loop.quit();
                }
            });
        }
        loop.exec();
    }
    state.SetItemsProcessed(state.iterations() * jobs);
}

void stampFloor(benchmark::State& state)
{
    const QByteArray pdf = engine().printBare(job(int(state.range(0))));
    for (auto _ : state) {
        QPDF document;
        document.processMemoryFile("page", pdf.data(), std::size_t(pdf.size()));
        QPDFWriter writer(document);
        writer.setOutputMemory();
        writer.write();
        benchmark::DoNotOptimize(writer.getBufferSharedPointer());
    }
}

void stamp(benchmark::State& state)
{
    const PrintJob page = job(int(state.range(0)));
    const QByteArray pdf = engine().printBare(page);
    for (auto _ : state) {
        benchmark::DoNotOptimize(PDFStamper::stamp({pdf.data(), std::size_t(pdf.size())}, page));
    }
}

void pageImage(benchmark::State& state)
{
    const PrintedPDF pdf = engine().printer.printAndWait(job(onePage));
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine().printer.pageImage(pdf.bytes, 0, int(state.range(0))));
    }
}

BENCHMARK(printFloor)->Arg(onePage)->Arg(tenPages)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(print)->Arg(onePage)->Arg(tenPages)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(twentyInARow)->Arg(onePage)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(stampFloor)->Arg(onePage)->Arg(tenPages)->Unit(benchmark::kMillisecond);
BENCHMARK(stamp)->Arg(onePage)->Arg(tenPages)->Unit(benchmark::kMillisecond);
BENCHMARK(pageImage)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Quillary
