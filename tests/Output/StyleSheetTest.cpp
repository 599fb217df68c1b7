#include "QuillaryCore/Output/StyleSheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

namespace Quillary {

namespace {

constexpr TemplateDesign designs[] = {TemplateDesign::classic,
                                      TemplateDesign::modern,
                                      TemplateDesign::minimal,
                                      TemplateDesign::bold,
                                      TemplateDesign::compact};

std::string styleSheet(const TemplateSettings& settings)
{
    std::string css;
    StyleSheet::append(css, settings);
    return css;
}

/// The value of a property in the last rule with exactly this selector.
std::optional<Color> lastColor(std::string_view css, const std::string& selector, const std::string& property)
{
    const std::size_t rule = css.rfind("\n" + selector + " {");
    if (rule == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view body = css.substr(rule, css.find('}', rule) - rule);
    const std::size_t value = body.find(" " + property + ": #");
    return value == std::string_view::npos ? std::nullopt : Color::parse(body.substr(value + property.size() + 3, 7));
}

TEST(ColorTest, readsOnlySixHexDigits)
{
    EXPECT_EQ(Color::parse("#1F4E8C"), (Color{0x1F, 0x4E, 0x8C}));
    EXPECT_EQ(Color::parse("ff9500"), (Color{0xFF, 0x95, 0x00}));
    for (const std::string_view text : {"",
                                        "#FFF",
                                        "#12345G",
                                        "#-12345",
                                        "#+12345",
                                        "#1F4E8C; }",
                                        "rebeccapurple"}) { // must not reach the style sheet
        EXPECT_EQ(Color::parse(text), std::nullopt) << text;
    }
}

TEST(ColorTest, measuresContrastAsAccessibilityRulesDo)
{
    EXPECT_NEAR(contrast({0, 0, 0}, paperWhite), 21.0, 0.001);
    EXPECT_NEAR(contrast({0x77, 0x77, 0x77}, paperWhite), 4.48, 0.005); // published value of #777 on white
    EXPECT_NEAR(contrast(paperWhite, {0xFF, 0, 0}), 4.00, 0.005);
}

TEST(StyleSheetTest, putsVariablesThenSharedRulesThenTheDesign)
{
    TemplateSettings settings;
    settings.design = TemplateDesign::bold;
    settings.font = TemplateFont::mono;
    settings.logoSize = LogoSize::large;
    settings.accent = {0x80, 0x00, 0x40};
    const std::string css = styleSheet(settings);
    EXPECT_TRUE(css.starts_with(":root { --accent: #800040; --tint: #F2E6EC; --tint-strong: #E3C7D5;\n"
                                "        --font: ui-monospace, 'SF Mono', Menlo, monospace; --logo-h: 68pt; }\n"
                                "* { box-sizing: border-box; }\n"))
        << css.substr(0, 300);
    const std::size_t shared = css.find(".foot-inline { margin-top: 8pt; font-size: 7.5pt; color: #777; }\n");
    const std::size_t design = css.find(".head { background: var(--accent); color: white; padding: 12pt 16pt;");
    EXPECT_LT(shared, design);
    EXPECT_NE(design, std::string::npos);
}

TEST(StyleSheetTest, leavesReadableAccentsAlone)
{
    for (const TemplateDesign design : designs) {
        TemplateSettings settings;
        settings.design = design;
        EXPECT_EQ(StyleSheet::legibility(settings), "") << storedText(design);
    }
}

/// What a design does about an accent, by the rule and property that would say so.
class Legibility
{
public:
    Legibility(const Color& accent, TemplateDesign design)
    {
        TemplateSettings settings;
        settings.accent = accent;
        settings.design = design;
        m_rules = "\n" + StyleSheet::legibility(settings);
    }

    [[nodiscard]] Color color(const std::string& selector, const std::string& property, const Color& otherwise) const
    {
        return lastColor(m_rules, selector, property).value_or(otherwise);
    }

private:
    std::string m_rules;
};

/// The lowest contrast of all places where an accent meets text.
double lowestContrast(const Color& accent)
{
    const Legibility classic(accent, TemplateDesign::classic);
    const Legibility modern(accent, TemplateDesign::modern);
    const Legibility bold(accent, TemplateDesign::bold);
    return std::min({
        contrast(classic.color("h1", "color", accent), paperWhite),
        contrast(modern.color("table.lines th", "color", accent), accent.tint(10)),
        contrast(modern.color("table.totals tr.total td", "background", accent),
                 modern.color("table.totals tr.total td, table.totals tr.total td.label", "color", paperWhite)),
        contrast(bold.color(".head", "background", accent),
                 bold.color(".head, .head .seller, .head .seller-name", "color", paperWhite)),
        contrast(bold.color("table.lines th, table.totals tr.total td", "color", accent), paperWhite),
    });
}

/// Colours from all corners of the cube.
TEST(StyleSheetTest, keepsTextReadableWithAnyAccent)
{
    constexpr std::uint8_t steps[] = {0, 51, 102, 153, 204, 255};
    for (const std::uint8_t red : steps) {
        for (const std::uint8_t green : steps) {
            for (const std::uint8_t blue : steps) {
                const Color accent{red, green, blue};
                EXPECT_GE(lowestContrast(accent), 4.5) << accent.hex();
            }
        }
    }
}

/// A yellow stays yellow under dark text; a blue that is nearly dark enough is deepened under white.
TEST(StyleSheetTest, keepsTheAccentsCharacter)
{
    const Legibility yellow({0xFF, 0xCC, 0x00}, TemplateDesign::bold);
    EXPECT_EQ(yellow.color(".head", "background", paperWhite), paperWhite); // no rule: the accent itself
    EXPECT_EQ(yellow.color(".head, .head .seller, .head .seller-name", "color", paperWhite), (Color{0x1D, 0x1D, 0x1F}));
    const Legibility blue({0x0A, 0x84, 0xFF}, TemplateDesign::bold);
    EXPECT_EQ(blue.color(".head, .head .seller, .head .seller-name", "color", paperWhite), paperWhite);
    EXPECT_NE(blue.color(".head", "background", paperWhite), paperWhite);
}

TEST(TemplateSettingsTest, readsUnknownTextsAsTheDefaults)
{
    Business business;
    EXPECT_EQ(TemplateSettings::of(business), TemplateSettings());
    business.templateID = "Modern"; // stored texts are exact
    business.templateFont = "papyrus";
    business.logoPosition = "top";
    business.logoSize = "huge";
    business.paperSize = "a5";
    business.accentColorHex = "red";
    EXPECT_EQ(TemplateSettings::of(business), TemplateSettings());
    EXPECT_EQ(TemplateSettings().logoSize, LogoSize::medium);
}

TEST(TemplateSettingsTest, readsWhatItStores)
{
    for (const TemplateDesign design : designs) {
        EXPECT_EQ(templateDesign(storedText(design)), design);
    }
    for (const TemplateFont font :
         {TemplateFont::system, TemplateFont::serif, TemplateFont::rounded, TemplateFont::mono}) {
        EXPECT_EQ(templateFont(storedText(font)), font);
    }
    for (const LogoPosition position : {LogoPosition::left, LogoPosition::center, LogoPosition::right}) {
        EXPECT_EQ(logoPosition(storedText(position)), position);
    }
    for (const LogoSize size : {LogoSize::small, LogoSize::medium, LogoSize::large}) {
        EXPECT_EQ(logoSize(storedText(size)), size);
    }
    for (const PaperSize size : {PaperSize::a4, PaperSize::usLetter}) {
        EXPECT_EQ(paperSize(storedText(size)), size);
    }
}

} // namespace

} // namespace Quillary
