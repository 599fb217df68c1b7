#pragma once

#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Output/Color.h"

#include <string_view>

namespace Quillary {

/// The designs of a page.
enum class TemplateDesign { classic, modern, minimal, bold, compact };

/// The typefaces of a page.
enum class TemplateFont { system, serif, rounded, mono };

enum class LogoPosition { left, center, right };

enum class LogoSize { small, medium, large };

enum class PaperSize { a4, usLetter };

// Stored as the enumerator's name. A text that is none of them reads as the first design, font and position named
// above, a medium logo and A4.
[[nodiscard]] std::string_view storedText(TemplateDesign design);
[[nodiscard]] std::string_view storedText(TemplateFont font);
[[nodiscard]] std::string_view storedText(LogoPosition position);
[[nodiscard]] std::string_view storedText(LogoSize size);
[[nodiscard]] std::string_view storedText(PaperSize size);
[[nodiscard]] TemplateDesign templateDesign(std::string_view stored);
[[nodiscard]] TemplateFont templateFont(std::string_view stored);
[[nodiscard]] LogoPosition logoPosition(std::string_view stored);
[[nodiscard]] LogoSize logoSize(std::string_view stored);
[[nodiscard]] PaperSize paperSize(std::string_view stored);

/// The CSS font families, the wanted one first.
[[nodiscard]] std::string_view fontStack(TemplateFont font);

/// The height of the logo. Unit: points.
[[nodiscard]] int logoHeight(LogoSize size);

/// A sheet and the margins that nothing is printed in. Unit: points, 72 to the inch.
///
/// The left margin puts the address where the windows of envelopes begin (20 mm from the edge; ISO 269 DL and US #10).
/// The bottom margin has room for the page number.
struct PageGeometry
{
    double width;
    double height;
    double marginTop;
    double marginRight;
    double marginBottom;
    double marginLeft;
};

[[nodiscard]] PageGeometry pageGeometry(PaperSize size);

/// How the pages of a business look.
struct TemplateSettings
{
    /// A quiet ink blue: what a business gets that never chose a colour, or whose stored colour can't be read.
    static constexpr Color defaultAccent{0x1F, 0x4E, 0x8C};

    TemplateDesign design = TemplateDesign::classic;
    TemplateFont font = TemplateFont::system;
    LogoPosition logoPosition = LogoPosition::left;
    LogoSize logoSize = LogoSize::medium;
    PaperSize paperSize = PaperSize::a4;
    Color accent = defaultAccent;

    [[nodiscard]] static TemplateSettings of(const Business& business);

    friend bool operator==(const TemplateSettings&, const TemplateSettings&) = default;
};

} // namespace Quillary
