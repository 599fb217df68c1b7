#include "QuillaryCore/Output/TemplateSettings.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Quillary {

namespace {

// In the order of the enumerations.
constexpr std::array<std::string_view, 5> designs = {"classic", "modern", "minimal", "bold", "compact"};
constexpr std::array<std::string_view, 4> fonts = {"system", "serif", "rounded", "mono"};
constexpr std::array<std::string_view, 3> positions = {"left", "center", "right"};
constexpr std::array<std::string_view, 3> sizes = {"small", "medium", "large"};
constexpr std::array<std::string_view, 2> papers = {"a4", "usLetter"};

constexpr std::array<std::string_view, 4> fontStacks = {
    "-apple-system, system-ui, 'Helvetica Neue', Helvetica, Arial, sans-serif",
    "ui-serif, 'New York', Georgia, 'Times New Roman', serif",
    "ui-rounded, 'SF Pro Rounded', -apple-system, system-ui, sans-serif",
    "ui-monospace, 'SF Mono', Menlo, monospace",
};

constexpr double pointsPerMillimetre = 72.0 / 25.4;

template <class Enumeration, std::size_t size>
std::string_view nameOf(const std::array<std::string_view, size>& names, Enumeration value)
{
    return names.at(static_cast<std::size_t>(value));
}

template <class Enumeration, std::size_t size>
Enumeration named(const std::array<std::string_view, size>& names, std::string_view stored, Enumeration fallback)
{
    const auto found = std::ranges::find(names, stored);
    return found == names.end() ? fallback : static_cast<Enumeration>(found - names.begin());
}

} // namespace

std::string_view storedText(TemplateDesign design)
{
    return nameOf(designs, design);
}

std::string_view storedText(TemplateFont font)
{
    return nameOf(fonts, font);
}

std::string_view storedText(LogoPosition position)
{
    return nameOf(positions, position);
}

std::string_view storedText(LogoSize size)
{
    return nameOf(sizes, size);
}

std::string_view storedText(PaperSize size)
{
    return nameOf(papers, size);
}

TemplateDesign templateDesign(std::string_view stored)
{
    return named(designs, stored, TemplateDesign::classic);
}

TemplateFont templateFont(std::string_view stored)
{
    return named(fonts, stored, TemplateFont::system);
}

LogoPosition logoPosition(std::string_view stored)
{
    return named(positions, stored, LogoPosition::left);
}

LogoSize logoSize(std::string_view stored)
{
    return named(sizes, stored, LogoSize::medium);
}

PaperSize paperSize(std::string_view stored)
{
    return named(papers, stored, PaperSize::a4);
}

std::string_view fontStack(TemplateFont font)
{
    return nameOf(fontStacks, font);
}

int logoHeight(LogoSize size)
{
    switch (size) {
    case LogoSize::small:
        return 32;
    case LogoSize::medium:
        return 48;
    case LogoSize::large:
        return 68;
    }
    return 48;
}

PageGeometry pageGeometry(PaperSize size)
{
    const double side = 19 * pointsPerMillimetre; // the page itself keeps another millimetre free
    const double top = 15 * pointsPerMillimetre;
    const double bottom = 18 * pointsPerMillimetre;
    switch (size) {
    case PaperSize::a4:
        return {210 * pointsPerMillimetre, 297 * pointsPerMillimetre, top, side, bottom, side};
    case PaperSize::usLetter:
        return {612, 792, top, side, bottom, side};
    }
    return {};
}

TemplateSettings TemplateSettings::of(const Business& business)
{
    return {.design = templateDesign(business.templateID),
            .font = templateFont(business.templateFont),
            .logoPosition = Quillary::logoPosition(business.logoPosition),
            .logoSize = Quillary::logoSize(business.logoSize),
            .paperSize = Quillary::paperSize(business.paperSize),
            .accent = Color::parse(business.accentColorHex).value_or(defaultAccent)};
}

} // namespace Quillary
