#include "QuillaryUI/Printing/Engine/PDFStamper.h"

#include "tests/QuillaryUI/PDFReading.h"
#include "tests/QuillaryUI/SampleInvoice.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QXmlStreamReader>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Quillary {
namespace {

using testing::HasSubstr;

/// What the stamper gets from an engine: sheets that say "INHALT" and their number, from 1.
std::string sheets(int count)
{
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    QPdfWriter writer(&file);
    QPainter painter(&writer);
    for (int sheet = 1; sheet <= count; ++sheet) {
        painter.drawText(500, 500, QStringLiteral("INHALT %1").arg(sheet));
        if (sheet < count) {
            writer.newPage();
        }
    }
    painter.end();
    return bytes.toStdString();
}

PrintJob job()
{
    PrintJob stamp = sampleJob();
    stamp.html.clear();
    return stamp;
}

TEST(PDFStamperTest, numbersThePagesInEveryLanguage)
{
    const std::string pdf = sheets(3);
    const std::pair<std::string, std::string> cases[] = {
        {"Page {page} of {pages}", "Page 2 of 3"},
        {"Seite {page} von {pages}", "Seite 2 von 3"},
        {"Page {page} sur {pages}", "Page 2 sur 3"},
        {"Página {page} de {pages}", "Página 2 de 3"},
        {"Pagina {page} van {pages}", "Pagina 2 van 3"},
        {"Pagina {page} di {pages}", "Pagina 2 di 3"},
        {"{pages}/{page}/{page} {seite}", "3/2/2 {seite}"}, // any order, any number, nothing else
    };
    for (const auto& [label, expected] : cases) {
        PrintJob stamp = job();
        stamp.pageLabel = label;
        const PrintedPDF numbered = PDFStamper::stamp(pdf, stamp);
        EXPECT_EQ(numbered.pageCount, 3);
        const std::vector<std::string> texts = pageTexts(numbered.bytes);
        ASSERT_EQ(texts.size(), 3);
        EXPECT_THAT(texts[1], HasSubstr(expected));
        for (int sheet = 1; sheet <= 3; ++sheet) {
            EXPECT_THAT(texts[std::size_t(sheet - 1)], HasSubstr(fmt::format("INHALT {}", sheet)));
        }
        EXPECT_THAT(fonts(numbered.bytes), testing::Each(testing::Field(&PDFFont::isEmbedded, true)));
    }
}

TEST(PDFStamperTest, leavesLonePagesAndEmptyLabelsAlone)
{
    EXPECT_EQ(pageTexts(PDFStamper::stamp(sheets(1), job()).bytes).front(), "INHALT 1");
    PrintJob stamp = job();
    stamp.pageLabel.clear();
    EXPECT_EQ(pageTexts(PDFStamper::stamp(sheets(2), stamp).bytes).back(), "INHALT 2");
}

TEST(PDFStamperTest, describesTheDocument)
{
    const std::pair<std::string, std::string> cases[] = {
        {"Rechnung 7 für Öztürk & <Söhne>", "Rechnung 7 für Öztürk & <Söhne>"},
        {"", ""},
        {"花店 🌷 ]]>", "花店 🌷 ]]>"},
        {std::string("a\x00\x07z\n", 5), "a  z "},            // neither XML nor a title bar can hold them
        {"caf\xE9", "caf\xEF\xBF\xBD"},                       // Latin-1 by mistake
        {std::string(501, 'x'), std::string(500, 'x') + "…"}, // a title of megabytes
    };
    for (const auto& [title, expected] : cases) {
        PrintJob stamp = job();
        stamp.title = title;
        const Bytes pdf = PDFStamper::stamp(sheets(1), stamp).bytes;
        EXPECT_EQ(infoText(pdf, "/Title"), expected);
        EXPECT_EQ(infoText(pdf, "/Producer"), "Quillary");
        EXPECT_EQ(infoText(pdf, "/CreationDate"), "D:20240117090500Z");
        EXPECT_EQ(catalogueText(pdf, "/Lang"), "de");
        EXPECT_TRUE(showsTitle(pdf));
        QXmlStreamReader packet(QString::fromStdString(metadataPacket(pdf)));
        while (!packet.atEnd() && !(packet.readNextStartElement() && packet.qualifiedName() == u"rdf:Alt")) {
        }
        packet.readNextStartElement();
        const QString found = packet.readElementText();
        EXPECT_FALSE(packet.hasError()) << packet.errorString().toStdString();
        EXPECT_EQ(found.simplified().toStdString(), QString::fromStdString(expected).simplified().toStdString());
    }
}

TEST(PDFStamperTest, refusesWhatIsNoPDF)
{
    for (const std::string& damaged : {std::string(), std::string("hello"), sheets(2).substr(0, 300)}) {
        EXPECT_THROW((void)PDFStamper::stamp(damaged, job()), PrintError) << damaged.size();
    }
}

} // namespace
} // namespace Quillary
