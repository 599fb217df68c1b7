#include "QuillaryUI/Printing/VectorCheck.h"

#include "QuillaryUI/Printing/LogoImage.h"

#include <QHash>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace Quillary::VectorCheck {
namespace {

constexpr std::size_t deepestNesting = 200;
constexpr std::int64_t mostShapes = 500'000;
constexpr double slimmest = 1.0 / 20;

struct Element
{
    std::vector<std::size_t> children = {};
    std::vector<QString> references = {};
    std::int64_t shapes = 0; ///< with all that it holds and refers to; 0: not counted yet
    bool isBeingCounted = false;
};

struct Drawing
{
    std::vector<Element> elements; ///< the root first
    QHash<QString, std::size_t> byID;
    Proportion proportion;
};

[[noreturn]] void refuseDamaged()
{
    throw LogoError(LogoError::Reason::damaged, "This SVG file is damaged and can't be read.");
}

[[noreturn]] void refuseComplex()
{
    throw LogoError(LogoError::Reason::tooComplex, "This SVG drawing is too complex for a logo.");
}

/// The renderer loads nothing; where the picture belongs it would draw a torn sheet.
void refuseOutsidePictures(QStringView element, const QXmlStreamAttributes& attributes)
{
    if (element != QStringLiteral("image") && element != QStringLiteral("feImage")) {
        return;
    }
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QStringView value = attribute.value();
        if (attribute.name() == QStringLiteral("href") && !value.startsWith(QStringLiteral("data:")) &&
            !value.startsWith(u'#')) {
            throw LogoError(LogoError::Reason::outsidePicture,
                            "This SVG drawing shows a picture that is not part of the file. Embed the picture in the "
                            "drawing and choose it again.");
        }
    }
}

/// The number of a length such as "12.5mm". No value: a percentage, or what is no positive length.
std::optional<std::pair<double, QString>> length(QStringView text)
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\s*\\+?([0-9]*\\.?[0-9]+(?:[eE][+-]?[0-9]+)?)\\s*([a-z]*)\\s*$"));
    const QRegularExpressionMatch match = pattern.match(text);
    const double number = match.captured(1).toDouble();
    if (!match.hasMatch() || !(number > 0)) {
        return std::nullopt;
    }
    return std::pair(number, match.captured(2));
}

Proportion proportion(const QXmlStreamAttributes& root)
{
    const auto width = length(root.value(QStringLiteral("width")));
    const auto height = length(root.value(QStringLiteral("height")));
    if (width && height && width->second == height->second) {
        return {width->first, height->first};
    }
    static const QRegularExpression gaps(QStringLiteral("[\\s,]+"));
    const QStringList box = root.value(QStringLiteral("viewBox")).toString().split(gaps, Qt::SkipEmptyParts);
    if (box.size() == 4 && box[2].toDouble() > 0 && box[3].toDouble() > 0) {
        return {box[2].toDouble(), box[3].toDouble()};
    }
    return {};
}

/// The drawing's own parts that an element names: "#id" as a link, or "url(#id)" anywhere.
std::vector<QString> references(const QXmlStreamAttributes& attributes)
{
    static const QRegularExpression pattern(QStringLiteral("url\\(\\s*['\"]?#([^'\")\\s]+)"));
    std::vector<QString> found;
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QStringView value = attribute.value();
        if (attribute.name() == QStringLiteral("href") && value.startsWith(u'#')) {
            found.push_back(value.mid(1).toString());
        } else if (value.contains(QStringLiteral("url("))) {
            for (const QRegularExpressionMatch& match : pattern.globalMatch(value)) {
                found.push_back(match.captured(1));
            }
        }
    }
    return found;
}

/// Takes in the element that has just been opened within the `open` ones, the outermost first.
void addElement(Drawing& drawing, std::vector<std::size_t>& open, const QXmlStreamReader& xml)
{
    const std::size_t index = drawing.elements.size();
    const QXmlStreamAttributes attributes = xml.attributes();
    if (open.size() >= deepestNesting || std::int64_t(index) >= mostShapes) {
        refuseComplex();
    }
    refuseOutsidePictures(xml.name(), attributes);
    if (!open.empty()) {
        drawing.elements[open.back()].children.push_back(index);
    } else if (xml.name() == QStringLiteral("svg")) {
        drawing.proportion = proportion(attributes);
    } else {
        refuseDamaged();
    }
    drawing.elements.push_back({.references = references(attributes)});
    drawing.byID.insert(attributes.value(QStringLiteral("id")).toString(), index);
    open.push_back(index);
}

Drawing read(const Bytes& svg)
{
    QXmlStreamReader xml(QByteArray::fromRawData(reinterpret_cast<const char*>(svg.data()), qsizetype(svg.size())));
    Drawing drawing;
    std::vector<std::size_t> open;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isEndElement()) {
            open.pop_back();
        } else if (xml.isStartElement()) {
            addElement(drawing, open, xml);
        }
    }
    if (xml.hasError() || drawing.elements.empty()) {
        refuseDamaged();
    }
    return drawing;
}

/// Stops at `mostShapes`. A drawing that refers to itself in a circle is cut where the circle closes, as renderers do.
/// Each level of the recursion is an element within or behind another: at most `deepestNesting` a reference.
std::int64_t countShapes(Drawing& drawing, std::size_t index, std::size_t depth)
{
    Element& element = drawing.elements[index];
    if (element.isBeingCounted) {
        return 0;
    }
    if (element.shapes > 0) {
        return element.shapes;
    }
    if (depth > 10 * deepestNesting) {
        return mostShapes + 1;
    }
    element.isBeingCounted = true;
    std::int64_t shapes = 1;
    for (const std::size_t child : element.children) {
        shapes = std::min(shapes + countShapes(drawing, child, depth + 1), mostShapes + 1);
    }
    for (const QString& reference : element.references) {
        if (const auto target = drawing.byID.constFind(reference); target != drawing.byID.cend()) {
            shapes = std::min(shapes + countShapes(drawing, *target, depth + 1), mostShapes + 1);
        }
    }
    element.isBeingCounted = false;
    element.shapes = shapes;
    return shapes;
}

} // namespace

Proportion proportionOf(const Bytes& svg)
{
    Drawing drawing = read(svg);
    if (countShapes(drawing, 0, 0) > mostShapes) {
        refuseComplex();
    }
    Proportion found = drawing.proportion;
    found.height = std::clamp(found.height, found.width * slimmest, found.width / slimmest);
    return found;
}

} // namespace Quillary::VectorCheck
