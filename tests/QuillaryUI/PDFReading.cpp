#include "tests/QuillaryUI/PDFReading.h"

#include <QBuffer>
#include <QPdfDocument>
#include <QPdfSelection>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

#include <map>

namespace Quillary {
namespace {

struct OpenPDF
{
    explicit OpenPDF(const Bytes& pdf)
    {
        file.setData(reinterpret_cast<const char*>(pdf.data()), int(pdf.size()));
        file.open(QIODevice::ReadOnly);
        document.load(&file);
    }

    QBuffer file;
    QPdfDocument document;
};

void open(QPDF& document, const Bytes& pdf)
{
    document.processMemoryFile("test", reinterpret_cast<const char*>(pdf.data()), pdf.size());
}

bool isEmbedded(QPDFObjectHandle font)
{
    if (font.getKey("/Subtype").getName() == "/Type3") {
        return true; // its glyphs are drawings in the file
    }
    if (font.hasKey("/DescendantFonts")) {
        font = font.getKey("/DescendantFonts").getArrayItem(0);
    }
    QPDFObjectHandle descriptor = font.getKey("/FontDescriptor");
    return descriptor.isDictionary() &&
           (descriptor.hasKey("/FontFile") || descriptor.hasKey("/FontFile2") || descriptor.hasKey("/FontFile3"));
}

std::string plainName(QPDFObjectHandle font)
{
    if (!font.hasKey("/BaseFont")) {
        return {};
    }
    const std::string name = font.getKey("/BaseFont").getName().substr(1);
    const std::size_t plus = name.find('+');
    return plus == std::string::npos ? name : name.substr(plus + 1);
}

} // namespace

std::vector<std::string> pageTexts(const Bytes& pdf)
{
    OpenPDF opened(pdf);
    std::vector<std::string> texts;
    for (int page = 0; page < opened.document.pageCount(); ++page) {
        texts.push_back(opened.document.getAllText(page).text().simplified().toStdString());
    }
    return texts;
}

QSizeF sheetSize(const Bytes& pdf)
{
    return OpenPDF(pdf).document.pagePointSize(0);
}

std::vector<PDFFont> fonts(const Bytes& pdf)
{
    QPDF document;
    open(document, pdf);
    std::map<std::string, bool> found;
    const auto collect = [&found](QPDFObjectHandle resources) {
        if (!resources.getKey("/Font").isDictionary()) {
            return;
        }
        for (const auto& [key, font] : resources.getKey("/Font").getDictAsMap()) {
            const auto [entry, isNew] = found.try_emplace(plainName(font), true);
            entry->second = entry->second && isEmbedded(font);
        }
    };
    for (QPDFPageObjectHelper& page : QPDFPageDocumentHelper(document).getAllPages()) {
        collect(page.getAttribute("/Resources", false));
        page.forEachFormXObject(true,
                                [&](QPDFObjectHandle& form, QPDFObjectHandle& /*parent*/, const std::string& /*key*/) {
                                    collect(form.getDict().getKey("/Resources"));
                                });
    }
    std::vector<PDFFont> all;
    for (const auto& [name, embedded] : found) {
        all.push_back({.name = name, .isEmbedded = embedded});
    }
    return all;
}

std::string infoText(const Bytes& pdf, const std::string& key)
{
    QPDF document;
    open(document, pdf);
    return document.getTrailer().getKey("/Info").getKey(key).getUTF8Value();
}

std::string catalogueText(const Bytes& pdf, const std::string& key)
{
    QPDF document;
    open(document, pdf);
    return document.getRoot().getKey(key).getUTF8Value();
}

bool showsTitle(const Bytes& pdf)
{
    QPDF document;
    open(document, pdf);
    return document.getRoot().getKey("/ViewerPreferences").getKey("/DisplayDocTitle").getBoolValue();
}

std::string metadataPacket(const Bytes& pdf)
{
    QPDF document;
    open(document, pdf);
    const auto packet = document.getRoot().getKey("/Metadata").getStreamData();
    return {reinterpret_cast<const char*>(packet->getBuffer()), packet->getSize()};
}

} // namespace Quillary
