#include "QuillaryUI/Printing/Engine/PDFStamper.h"

#include "QuillaryUI/Printing/Engine/PageLabels.h"
#include "QuillaryUI/Printing/Engine/XMPPacket.h"

#include <qpdf/Buffer.hh>
#include <qpdf/JSON.hh> // the pages below hold some
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <fmt/chrono.h>

#include <chrono>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace Quillary::PDFStamper {
namespace {

constexpr const char* producer = "Quillary";

QPDFObjectHandle text(const std::string& utf8)
{
    return QPDFObjectHandle::newUnicodeString(utf8);
}

/// A date as PDF writes it (ISO 32000-1, 7.9.4), in UTC.
std::string pdfDate(Instant instant)
{
    // As calendar fields, for fmt 9 writes an instant in the process's time zone.
    const std::tm utc = fmt::gmtime(std::chrono::system_clock::to_time_t(instant));
    return fmt::format("D:{:%Y%m%d%H%M%SZ}", utc);
}

void describe(QPDF& document, const PrintJob& job, const std::string& title)
{
    QPDFObjectHandle info = QPDFObjectHandle::newDictionary();
    info.replaceKey("/Title", text(title));
    info.replaceKey("/Creator", text(producer));
    info.replaceKey("/Producer", text(producer));
    info.replaceKey("/CreationDate", QPDFObjectHandle::newString(pdfDate(job.createdAt)));
    info.replaceKey("/ModDate", QPDFObjectHandle::newString(pdfDate(job.createdAt)));
    document.getTrailer().replaceKey("/Info", document.makeIndirectObject(info));

    QPDFObjectHandle metadata = QPDFObjectHandle::newStream(
        &document, XMPPacket::write({.title = title, .languageCode = job.languageCode, .createdAt = job.createdAt}));
    metadata.getDict().replaceKey("/Type", QPDFObjectHandle::newName("/Metadata"));
    metadata.getDict().replaceKey("/Subtype", QPDFObjectHandle::newName("/XML"));
    QPDFObjectHandle preferences = QPDFObjectHandle::newDictionary();
    preferences.replaceKey("/DisplayDocTitle", QPDFObjectHandle::newBool(true));
    QPDFObjectHandle root = document.getRoot();
    root.replaceKey("/Metadata", metadata);
    root.replaceKey("/ViewerPreferences", preferences);
    root.replaceKey("/Lang", text(job.languageCode));
}

/// The engine rounds the sheet to whole pixels of its own; readers then show an odd paper size.
void setSheet(QPDFPageObjectHelper& page, const PageGeometry& geometry)
{
    QPDFObjectHandle sheet = QPDFObjectHandle::newArray();
    sheet.appendItem(QPDFObjectHandle::newInteger(0));
    sheet.appendItem(QPDFObjectHandle::newInteger(0));
    sheet.appendItem(QPDFObjectHandle::newReal(geometry.width, 3));
    sheet.appendItem(QPDFObjectHandle::newReal(geometry.height, 3));
    page.getObjectHandle().replaceKey("/MediaBox", sheet);
}

/// Lays the labels over the pages. A page's own content is put between q and Q first: the engine leaves its
/// transformation in force.
void numberPages(QPDF& document, std::vector<QPDFPageObjectHelper>& pages, const PrintJob& job)
{
    const QByteArray sheets = PageLabels::sheets(job, int(pages.size()));
    QPDF labels;
    labels.setImmediateCopyFrom(true); // the document is written when this one is gone
    labels.processMemoryFile("page labels", sheets.data(), std::size_t(sheets.size()));
    std::vector<QPDFPageObjectHelper> labelPages = QPDFPageDocumentHelper(labels).getAllPages();
    const QPDFObjectHandle save = document.makeIndirectObject(QPDFObjectHandle::newStream(&document, "q\n"));
    const QPDFObjectHandle restore =
        document.makeIndirectObject(QPDFObjectHandle::newStream(&document, "\nQ\nq /PageLabel Do Q\n"));
    for (std::size_t i = 0; i < pages.size(); ++i) {
        QPDFPageObjectHelper& page = pages[i];
        QPDFObjectHandle resources = page.getAttribute("/Resources", true); // a copy where pages share one
        QPDFObjectHandle objects = resources.getKey("/XObject");
        objects = objects.isDictionary() ? objects.shallowCopy() : QPDFObjectHandle::newDictionary();
        objects.replaceKey("/PageLabel", document.copyForeignObject(labelPages.at(i).getFormXObjectForPage()));
        resources.replaceKey("/XObject", objects);
        page.addPageContents(save, true);
        page.addPageContents(restore, false);
    }
}

/// A place that a link leads to (ISO 32000-1, 12.3.2.3): `[page /XYZ left top zoom]`, alone or as the D of a dictionary.
std::vector<PageMark> takeMarks(QPDF& document, const std::vector<QPDFPageObjectHelper>& pages)
{
    constexpr int leastItems = 4;
    QPDFObjectHandle places = document.getRoot().getKey("/Dests");
    std::vector<PageMark> marks;
    if (!places.isDictionary()) {
        return marks;
    }
    std::map<QPDFObjGen, int> indexes;
    for (const QPDFPageObjectHelper& page : pages) {
        indexes.emplace(page.getObjectHandle().getObjGen(), int(indexes.size()));
    }
    for (const auto& [key, named] : places.getDictAsMap()) {
        QPDFObjectHandle value = named;
        QPDFObjectHandle place = value.isDictionary() ? value.getKey("/D") : value;
        if (!place.isArray() || place.getArrayNItems() < leastItems) {
            continue;
        }
        const auto page = indexes.find(place.getArrayItem(0).getObjGen());
        if (page != indexes.end() && place.getArrayItem(2).isNumber() && place.getArrayItem(3).isNumber()) {
            marks.push_back({.name = key.substr(1),
                             .page = page->second,
                             .left = place.getArrayItem(2).getNumericValue(),
                             .top = place.getArrayItem(3).getNumericValue()});
        }
    }
    document.getRoot().removeKey("/Dests");
    return marks;
}

PrintedPDF write(QPDF& document, std::size_t pageCount)
{
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setDeterministicID(true);
    writer.setObjectStreamMode(qpdf_o_disable); // readable by every reader since PDF 1.4
    writer.write();
    const std::shared_ptr<Buffer> file = writer.getBufferSharedPointer();
    const unsigned char* bytes = file->getBuffer();
    return {.bytes = Bytes(bytes, bytes + file->getSize()), .pageCount = int(pageCount), .marks = {}};
}

} // namespace

PrintedPDF stamp(std::string_view pdf, const PrintJob& job)
{
    try {
        QPDF document;
        document.setSuppressWarnings(true);
        document.processMemoryFile("page", pdf.data(), pdf.size());
        std::vector<QPDFPageObjectHelper> pages = QPDFPageDocumentHelper(document).getAllPages();
        for (QPDFPageObjectHelper& page : pages) {
            setSheet(page, job.geometry);
        }
        const std::size_t pageCount = job.lonePage ? std::size_t(job.lonePage->pageCount) : pages.size();
        if (pageCount > 1 && !job.pageLabel.empty()) {
            numberPages(document, pages, job);
        }
        describe(document, job, XMPPacket::cleaned(job.title));
        std::vector<PageMark> marks = takeMarks(document, pages);
        PrintedPDF printed = write(document, pages.size());
        printed.marks = std::move(marks);
        return printed;
    } catch (const PrintError&) {
        throw;
    } catch (const std::exception& failure) {
        throw PrintError(PrintError::Reason::damagedPDF,
                         fmt::format("The printed page could not be finished as a PDF file. ({})", failure.what()));
    }
}

} // namespace Quillary::PDFStamper
