#include "QuillaryCore/Output/MarkdownLight.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace Quillary {

namespace {

TEST(MarkdownLightTest, readsParagraphsAndLists)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"", ""},
        {" \n\t\n", ""},
        {"One", "<p>One</p>"},
        {"Dear Ada,\nthank you.", "<p>Dear Ada,<br>thank you.</p>"},
        {"One\n\nTwo", "<p>One</p><p>Two</p>"},
        {"One\r\n\r\nTwo\rThree", "<p>One</p><p>Two<br>Three</p>"}, // all three line ends
        {"- a\n- b", "<ul><li>a</li><li>b</li></ul>"},
        {"  * a\n\t• b", "<ul><li>a</li><li>b</li></ul>"},
        {"Parts:\n- a\nMore", "<p>Parts:</p><ul><li>a</li></ul><p>More</p>"},
        {"- a\n\n- b", "<ul><li>a</li></ul><ul><li>b</li></ul>"},
        {"-a\n-", "<p>-a<br>-</p>"}, // a minus sign begins no item
        {"- -5 °C", "<ul><li>-5 °C</li></ul>"},
        {"<b>&\"'", "<p>&lt;b&gt;&amp;&quot;&#39;</p>"},
        {"שלום", R"(<p dir="auto">שלום</p>)"}, // its own direction
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(MarkdownLight::html(text), expected) << text;
    }
}

TEST(MarkdownLightTest, readsEmphasisOnlyAroundWords)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"**bold** and *slanted*", "<strong>bold</strong> and <em>slanted</em>"},
        {"***both***.", "<strong><em>both</em></strong>."},
        {"**a *b* c**", "<strong>a <em>b</em> c</strong>"},
        {"*a **b* c**", "<em>a **b</em> c**"}, // elements nest, whatever the marks do
        {"(*a*)", "(<em>a</em>)"},
        {"„*Ü*“", "„<em>Ü</em>“"},
        {"2*3*4 and 5 * 3", "2*3*4 and 5 * 3"},
        {"(*) see (*)", "(*) see (*)"}, // a footnote's mark
        {"Price* and tax*", "Price* and tax*"},
        {"*open", "*open"},
        {"** **", "** **"},
        {"****a****", "****a****"},
        {"**<i>**", "<strong>&lt;i&gt;</strong>"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(MarkdownLight::html(text), "<p>" + std::string(expected) + "</p>") << text;
    }
}

/// A search for the closing mark from every opening one would take minutes here.
TEST(MarkdownLightTest, staysQuickOnMarksWithoutEnd)
{
    std::string text;
    while (text.size() < 10'000'000) {
        text += "**a *b ";
    }
    const auto start = std::chrono::steady_clock::now();
    const std::string html = MarkdownLight::html(text);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_EQ(html.find("<strong>"), std::string::npos);
}

} // namespace

} // namespace Quillary
