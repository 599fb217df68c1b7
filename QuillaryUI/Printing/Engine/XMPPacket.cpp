#include "QuillaryUI/Printing/Engine/XMPPacket.h"

#include <QString>

#include <fmt/chrono.h>

#include <chrono>

namespace Quillary::XMPPacket {
namespace {

constexpr qsizetype longestTitle = 500;

std::string escaped(const std::string& text)
{
    return QString::fromStdString(text).toHtmlEscaped().toStdString();
}

} // namespace

std::string cleaned(std::string_view text)
{
    QString title = QString::fromUtf8(text.data(), qsizetype(text.size()));
    for (QChar& character : title) {
        if (character.category() == QChar::Other_Control || character.unicode() >= 0xFFFE) {
            character = u' ';
        }
    }
    if (title.size() > longestTitle) {
        title.truncate(longestTitle - (title.at(longestTitle - 1).isHighSurrogate() ? 1 : 0));
        title += QChar(0x2026);
    }
    return title.toStdString();
}

std::string write(const Properties& properties)
{
    const std::string created =
        fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", fmt::gmtime(std::chrono::system_clock::to_time_t(properties.createdAt)));
    return fmt::format(
        "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
        "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
        "<rdf:Description rdf:about=\"\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\""
        " xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\" xmlns:pdf=\"http://ns.adobe.com/pdf/1.3/\">\n"
        "<dc:format>application/pdf</dc:format>\n"
        "<dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">{0}</rdf:li></rdf:Alt></dc:title>\n"
        "<dc:language><rdf:Bag><rdf:li>{1}</rdf:li></rdf:Bag></dc:language>\n"
        "<xmp:CreatorTool>Quillary</xmp:CreatorTool>\n"
        "<xmp:CreateDate>{2}</xmp:CreateDate>\n<xmp:ModifyDate>{2}</xmp:ModifyDate>\n"
        "<pdf:Producer>Quillary</pdf:Producer>\n"
        "</rdf:Description></rdf:RDF></x:xmpmeta>\n<?xpacket end=\"r\"?>",
        escaped(properties.title),
        escaped(properties.languageCode),
        created);
}

} // namespace Quillary::XMPPacket
