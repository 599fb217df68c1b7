// The real engine prints real pages; the PDF is read back by libraries that had no part in making it.
#include "QuillaryUI/Printing/Engine/WebPagePrinter.h"
#include "tests/QuillaryUI/PDFReading.h"
#include "tests/QuillaryUI/SampleInvoice.h"
#include "tests/Support/TempFolder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QTcpServer>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <functional>

namespace Quillary {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::Field;
using testing::HasSubstr;
using testing::Not;

/// Runs the event loop until something has come true. False: it has not, within 30 s.
/// Waits for a condition, for longer than the printer itself waits: a busy machine is no fault.
bool comesTrue(const std::function<bool()>& condition)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition() && clock.elapsed() < 150'000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
    }
    return condition();
}

class PagePrinterTest : public testing::Test
{
protected:
    PrintedPDF print(const PrintJob& job) { return m_printer.printAndWait(job); }

    std::string textOf(const PrintJob& job)
    {
        std::string all;
        for (const std::string& text : pageTexts(print(job).bytes)) {
            all += text + "\n";
        }
        return all;
    }

    WebPagePrinter m_printer{PrinterLimits{}};
};

TEST_F(PagePrinterTest, printsAShortInvoiceOnOneSheet)
{
    const PrintedPDF pdf = print(sampleJob());
    EXPECT_EQ(pdf.pageCount, 1);
    EXPECT_EQ(m_printer.pageCount(pdf.bytes), 1);
    EXPECT_NEAR(sheetSize(pdf.bytes).width(), 595.276, 0.01);
    EXPECT_NEAR(sheetSize(pdf.bytes).height(), 841.89, 0.01);
    const std::string text = pageTexts(pdf.bytes).front();
    EXPECT_THAT(text, AllOf(HasSubstr("Blumenhaus Krüger & Söhne"), HasSubstr("13.222,22 €")));
    EXPECT_THAT(text, Not(HasSubstr("Seite 1"))); // a lone page needs no number
    EXPECT_EQ(infoText(pdf.bytes, "/Title"), "Rechnung RE-2024-0042");
    EXPECT_EQ(catalogueText(pdf.bytes, "/Lang"), "de");
}

TEST_F(PagePrinterTest, printsOnUSLetter)
{
    PrintJob job = sampleJob();
    job.geometry = pageGeometry(PaperSize::usLetter);
    EXPECT_EQ(sheetSize(print(job).bytes), QSizeF(612, 792));
}

TEST_F(PagePrinterTest, breaksLongInvoicesBetweenRows)
{
    const std::pair<int, int> cases[] = {{30, 3}, {560, 40}}; // lines, about so many pages
    for (const auto& [lines, pages] : cases) {
        const PrintedPDF pdf = print(sampleJob(sampleInvoice(lines)));
        const std::vector<std::string> texts = pageTexts(pdf.bytes);
        EXPECT_NEAR(pdf.pageCount, pages, pages / 10.0) << lines;
        ASSERT_EQ(int(texts.size()), pdf.pageCount);
        int row = 1;
        for (std::size_t page = 0; page < texts.size(); ++page) {
            const std::string& text = texts[page];
            EXPECT_THAT(text, HasSubstr(fmt::format("Seite {} von {}", page + 1, texts.size())));
            const bool hasRows = text.find("ZEILE") != std::string::npos;
            EXPECT_EQ(text.find("EINZELPREIS") != std::string::npos, hasRows)
                << "the header is repeated, page " << page;
            while (text.find(fmt::format("ZEILE{}A", row)) != std::string::npos) {
                EXPECT_THAT(text, HasSubstr(fmt::format("ZEILE{}B", row))) << "row split on page " << page;
                ++row;
            }
        }
        EXPECT_EQ(row, lines + 1) << "every row is printed, in order";
        EXPECT_THAT(texts, Contains(AllOf(HasSubstr("11.111,11 €"), HasSubstr("Gesamtbetrag")))); // totals stay whole
        EXPECT_THAT(texts, Contains(AllOf(HasSubstr("Bitte überweisen"), HasSubstr("BYLADEM1001"))));
    }
}

TEST_F(PagePrinterTest, printsPagesAboveTheEnginesTextLimit)
{
    const PrintJob small = sampleJob();
    const std::string comment = "<!--" + std::string(5'000'000, 'x') + "-->";
    EXPECT_THAT(textOf(withBody(small, comment + "<p>NACH DEM KOMMENTAR</p>")), HasSubstr("NACH DEM KOMMENTAR"));
}

TEST_F(PagePrinterTest, printsTheSameBytesForTheSameJob)
{
    const PrintJob job = sampleJob(sampleInvoice(30));
    EXPECT_EQ(print(job).bytes, print(job).bytes);
}

TEST_F(PagePrinterTest, runsNoScript)
{
    const PrintJob job = withBody(sampleJob(),
                                  "<p id=\"mark\">UNBERÜHRT</p><script>document.getElementById('mark').textContent = "
                                  "'GELAUFEN';</script><img src=\"x\" onerror=\"document.write('GELAUFEN')\">"
                                  "<svg onload=\"document.write('GELAUFEN')\"></svg><noscript>KEIN SKRIPT</noscript>");
    EXPECT_THAT(textOf(job), AllOf(HasSubstr("UNBERÜHRT"), HasSubstr("KEIN SKRIPT"), Not(HasSubstr("GELAUFEN"))));
}

TEST_F(PagePrinterTest, reachesNeitherTheNetworkNorFiles)
{
    QTcpServer server;
    int connections = 0;
    QObject::connect(&server, &QTcpServer::newConnection, [&connections] { ++connections; });
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    TempFolder folder;
    const std::string file = "file://" + folder.write("secret.html", "<p>GEHEIM</p>").string();
    const std::string web = fmt::format("http://127.0.0.1:{}/x", server.serverPort());
    std::string body;
    for (const std::string& address : {file, web}) {
        body += fmt::format("<iframe src=\"{0}\"></iframe><img src=\"{0}\"><object data=\"{0}\"></object>"
                            "<embed src=\"{0}\"><video src=\"{0}\" poster=\"{0}\"></video>"
                            "<div style=\"background: url({0}); height: 9pt\"></div>",
                            address);
    }
    const std::string head =
        fmt::format("<link rel=\"stylesheet\" href=\"{0}\"><link rel=\"preconnect\" href=\"{0}\">"
                    "<link rel=\"prefetch\" href=\"{0}\"><meta http-equiv=\"refresh\" content=\"0; {0}\">"
                    "<style>@import url({0}); @font-face {{ font-family: f; src: url({0}); }}"
                    "p {{ font-family: f; }}</style>",
                    web);
    for (const PrintJob& job : {withBody(sampleJob(), body), withHead(sampleJob(), head)}) {
        EXPECT_THAT(textOf(withBody(job, "<p>ENDE</p>")), AllOf(HasSubstr("ENDE"), Not(HasSubstr("GEHEIM"))));
    }
    EXPECT_FALSE(server.waitForNewConnection(300));
    EXPECT_EQ(connections, 0);
}

TEST_F(PagePrinterTest, drawsPicturesInDataURLs)
{
    PrintJob job = sampleJob();
    job.html = "<!DOCTYPE html><body style=\"margin: 0\"><img style=\"display: block; width: 100%; height: 400pt\" "
               "src=\"data:image/svg+xml,%3Csvg xmlns='http://www.w3.org/2000/svg' width='9' height='9'%3E"
               "%3Crect width='9' height='9' fill='%23f00'/%3E%3C/svg%3E\">";
    const Bytes png = m_printer.pageImage(print(job).bytes, 0, 400);
    const QImage image = QImage::fromData(png.data(), int(png.size()));
    EXPECT_EQ(image.pixelColor(200, 200), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(10, 10), QColor(Qt::white)); // the margin
}

TEST_F(PagePrinterTest, embedsADifferentTypefaceForEachFont)
{
    const std::pair<TemplateFont, std::vector<std::string>> cases[] = {
        {TemplateFont::system, {"Roboto-Bold", "Roboto-Regular"}},
        {TemplateFont::serif, {"CharisSIL", "CharisSIL-Bold"}},
        {TemplateFont::rounded, {"Nunito-Bold", "Nunito-Regular", "Nunito-SemiBold"}},
        {TemplateFont::mono, {"Hack-Bold", "Hack-Regular"}},
    };
    for (const auto& [font, expected] : cases) {
        PrintJob job = sampleJob(sampleInvoice(30, font)); // two pages: the numbers have the page's typeface too
        job.labelFamily = fontStack(font).substr(0, fontStack(font).find(','));
        const std::vector<PDFFont> found = fonts(print(job).bytes);
        std::vector<std::string> names;
        names.reserve(found.size());
        for (const PDFFont& each : found) {
            names.push_back(each.name);
        }
        EXPECT_EQ(names, expected);
        EXPECT_THAT(found, Each(Field(&PDFFont::isEmbedded, true))) << expected.front();
    }
}

TEST_F(PagePrinterTest, printsNamesInEveryScript)
{
    for (const std::string name : {"גן הפרחים", "北京鲜花有限公司", "นครพนม", "Ανθοπωλείο", "Цветы", "さくら商店"}) {
        PrintedDocument document = sampleInvoice();
        document.buyerName = name;
        const PrintedPDF pdf = print(sampleJob(document));
        EXPECT_THAT(pageTexts(pdf.bytes).front(), HasSubstr(name)); // a missing glyph reads as nothing
        EXPECT_THAT(fonts(pdf.bytes), Each(Field(&PDFFont::isEmbedded, true))) << name;
    }
}

TEST_F(PagePrinterTest, answersInOrderAndNeverAtOnce)
{
    std::vector<int> answers;
    for (int number = 1; number <= 4; ++number) {
        m_printer.print(sampleJob(), [&answers, number](const PrintResult& result) {
            EXPECT_TRUE(std::holds_alternative<PrintedPDF>(result));
            answers.push_back(number);
        });
    }
    EXPECT_TRUE(answers.empty());
    EXPECT_TRUE(comesTrue([&] { return answers.size() == 4; }));
    EXPECT_THAT(answers, testing::ElementsAre(1, 2, 3, 4));
}

TEST_F(PagePrinterTest, keepsItsRenderer)
{
    // An engine that doesn't know the host of the pages' addresses starts a process for every page.
    ASSERT_EQ(print(sampleJob()).pageCount, 1);
    const qint64 renderer = m_printer.rendererProcess();
    for (int count = 0; count < 3; ++count) {
        ASSERT_EQ(print(sampleJob()).pageCount, 1);
        EXPECT_EQ(m_printer.rendererProcess(), renderer);
    }
}

TEST_F(PagePrinterTest, survivesItsRendererBeingKilled)
{
    ASSERT_EQ(print(sampleJob()).pageCount, 1);
    const pid_t idleRenderer = pid_t(m_printer.rendererProcess());
    ASSERT_GT(idleRenderer, 0);
    kill(idleRenderer, SIGKILL);
    EXPECT_EQ(print(sampleJob()).pageCount, 1) << "killed while it waited";

    std::optional<PrintResult> outcome;
    m_printer.print(sampleJob(sampleInvoice(560)), [&](PrintResult result) { outcome = std::move(result); });
    ASSERT_TRUE(
        comesTrue([&] { return m_printer.rendererProcess() != 0 && m_printer.rendererProcess() != idleRenderer; }));
    kill(pid_t(m_printer.rendererProcess()), SIGKILL);
    ASSERT_TRUE(comesTrue([&] { return outcome.has_value(); }));
    EXPECT_TRUE(std::holds_alternative<PrintedPDF>(*outcome)) << "killed at work: the job is tried again";

    outcome.reset();
    m_printer.print(sampleJob(sampleInvoice(560)), [&](PrintResult result) { outcome = std::move(result); });
    pid_t killed = 0;
    EXPECT_TRUE(comesTrue([&] {
        const auto process = pid_t(m_printer.rendererProcess());
        if (process != 0 && process != killed) {
            kill(process, SIGKILL);
            killed = process;
        }
        return outcome.has_value();
    }));
    const auto* error = std::get_if<PrintError>(&*outcome);
    ASSERT_NE(error, nullptr) << "killed at every attempt";
    EXPECT_EQ(error->reason(), PrintError::Reason::rendererStopped);
    EXPECT_EQ(print(sampleJob()).pageCount, 1) << "and the next job works";
}

TEST(PagePrinterLimitsTest, givesUpAJobThatTakesTooLong)
{
    WebPagePrinter printer({.timeout = std::chrono::milliseconds(1), .rest = std::chrono::minutes(1)});
    for (int attempt = 0; attempt < 2; ++attempt) {
        try {
            (void)printer.printAndWait(sampleJob());
            ADD_FAILURE() << "printed within a millisecond";
        } catch (const PrintError& error) {
            EXPECT_EQ(error.reason(), PrintError::Reason::timedOut);
        }
    }
}

TEST(PagePrinterLimitsTest, letsItsRendererGoWhenNothingIsPrinted)
{
    WebPagePrinter printer({.timeout = std::chrono::minutes(1), .rest = std::chrono::milliseconds(30)});
    ASSERT_EQ(printer.printAndWait(sampleJob()).pageCount, 1);
    EXPECT_TRUE(comesTrue([&] { return printer.rendererProcess() == 0; }));
    EXPECT_EQ(printer.printAndWait(sampleJob()).pageCount, 1);
}

TEST(PagePrinterLimitsTest, mayBeDestroyedByAnAnswer)
{
    auto printer = std::make_unique<WebPagePrinter>(PrinterLimits{});
    printer->print(sampleJob(), [&printer](const PrintResult& /*result*/) { printer.reset(); });
    printer->print(sampleJob(), [](const PrintResult& /*result*/) { ADD_FAILURE() << "answered after its end"; });
    EXPECT_TRUE(comesTrue([&] { return printer == nullptr; }));
    QCoreApplication::processEvents();
}

} // namespace
} // namespace Quillary
