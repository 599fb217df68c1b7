#include "QuillaryCore/Output/DocumentHTML.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Output/Base64.h"
#include "QuillaryCore/Output/HTMLText.h"
#include "QuillaryCore/Output/PrintedDocument.h"
#include "tests/Output/HTMLTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Quillary {

namespace {

using Emphasis = PrintedDocument::Emphasis;

/// A page on which every text that comes from a person is `text`.
PrintedDocument documentFullOf(const std::string& text)
{
    PrintedDocument document;
    document.pageTitle = text;
    document.heading = text;
    document.logo = {1, 2, 3};
    document.sellerName = text;
    document.sellerAddress = {text, text};
    document.sellerContact = {text};
    document.sender = text;
    document.buyerName = text;
    document.buyerAddress = {text};
    document.buyerIdentifiers = {text};
    document.meta = {{text, text}};
    document.subtitle = text;
    document.reference = text;
    document.opening = text;
    document.intro = text;
    document.hasTaxRateColumn = true;
    document.lines = {{text, text, text, text, text, text, false}, {text, text, text, text, text, text, true}};
    document.totals = {{Emphasis::figure, text, text}, {Emphasis::due, text, text}};
    document.exemptNote = text;
    document.outro = text;
    document.payment = PrintedDocument::Payment{text, {{text, text}}, {4, 5}};
    document.footerLines = {text};
    document.footNote = text;
    return document;
}

/// The elements of a page, without those that only set a direction.
std::vector<std::string> outline(const std::string& html)
{
    std::vector<std::string> elements;
    const std::string lines = parseHTML(html)->outline();
    for (const std::string_view line : split(lines, '\n')) {
        if (!line.ends_with("> bdi")) {
            elements.push_back(replacing(line, "[dir=auto]", ""));
        }
    }
    return elements;
}

TEST(HTMLTextTest, keepsTextText)
{
    using namespace std::string_literals;
    const std::pair<std::string, std::string_view> cases[] = {
        {"Müller & Söhne", "Müller &amp; Söhne"},
        {"<b>\"'", "&lt;b&gt;&quot;&#39;"},
        {"a\0b"s, "a\uFFFDb"},
        {"a\x01\x1B\x7F\u0085z", "az"},         // controls, also those of two bytes
        {"a\tb\nc\r\n", "a\tb\nc\r\n"},         // white space is the page's to collapse
        {"\xC3(", "\uFFFD("},                   // a sequence broken off
        {"\xE2\x82", "\uFFFD"},                 // at the end
        {"\xC0\xBC", "\uFFFD\uFFFD"},           // "<" in too many bytes
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"}, // half a surrogate pair
        {"a\u202Eb\u2066c\u202C\u2069", "abc"}, // what would turn round the rest of the line
        {"\u200Fא\u200E", "\u200Fא\u200E"},     // marks reach no further than themselves
        {"👩‍🔧 é", "👩‍🔧 é"},
    };
    for (const auto& [text, expected] : cases) {
        std::string html;
        HTMLText::append(html, text);
        EXPECT_EQ(html, expected) << text;
        EXPECT_TRUE(isValidUTF8(html)) << text;
    }
}

TEST(HTMLTextTest, setsOnlyRightToLeftTextApart)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"שלום & co", "<bdi>שלום &amp; co</bdi>"},
        {"شركة 12", "<bdi>شركة 12</bdi>"},
        {"株式会社 1.000 €", "株式会社 1.000 €"},
    };
    for (const auto& [text, expected] : cases) {
        std::string html;
        HTMLText::appendIsolated(html, text);
        EXPECT_EQ(html, expected);
    }
}

TEST(Base64Test, encodesTheStandardsExamples)
{
    const std::pair<std::string_view, std::string_view> cases[] = {// RFC 4648, section 10
                                                                   {"", ""},
                                                                   {"f", "Zg=="},
                                                                   {"fo", "Zm8="},
                                                                   {"foo", "Zm9v"},
                                                                   {"foob", "Zm9vYg=="},
                                                                   {"fooba", "Zm9vYmE="},
                                                                   {"foobar", "Zm9vYmFy"}};
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(Base64::encoded({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}), expected);
    }
    EXPECT_EQ(Base64::encoded(std::vector<std::uint8_t>{0xFB, 0xFF, 0xBF}), "+/+/");
}

TEST(DocumentHTMLTest, letsNoTextOutOfItsElement)
{
    using namespace std::string_literals;
    const std::string texts[] = {
        "</style><script>alert(1)</script>",
        "</title></head><body onload=alert(1)>",
        "\"><img src=x onerror=alert(1)>",
        "' onmouseover='alert(1)",
        "<a href=\"javascript:alert(1)\">click</a>",
        "<!-- <![CDATA[ <?php",
        "-->]]>",
        "&lt;b&gt; &amp;amp; &#x3C;script&#x3E;",
        "</td></tr></table></div></section>",
        "{total} {{x}} %s %n",
        "x\0<script>"s,
        "\xFF\xFE<\xC0\xBCscript\xE2\x82>",
        "\u202E<\u2066/td>\u2028",
        "שלום </bdi> עולם",
        "url(javascript:x); } body { display: none",
        "**</strong><em>** *</p>*",
    };
    const std::vector<std::string> expected = outline(DocumentHTML::render(documentFullOf("x")));
    ASSERT_GT(expected.size(), 60U);
    for (const std::string& text : texts) {
        const std::string html = DocumentHTML::render(documentFullOf(text));
        EXPECT_TRUE(isValidUTF8(html)) << text;
        if (text.starts_with("**")) {
            EXPECT_GT(outline(html).size(), expected.size()) << text; // markup of its own, in whole elements
        } else {
            EXPECT_EQ(outline(html), expected) << text;
        }
    }
}

TEST(DocumentHTMLTest, showsTextsAsTheyWereTyped)
{
    const std::string text = "<b>&amp; \"Müller's\" שלום";
    const auto page = parseHTML(DocumentHTML::render(documentFullOf(text)));
    for (const std::string_view place : split(
             "seller-name sender buyer-name subtitle reference intro line-title details exempt outro foot-note", ' ')) {
        EXPECT_EQ(trimmed(page->first(place).text), text) << place;
    }
}

TEST(DocumentHTMLTest, followsTheDocumentsSettings)
{
    PrintedDocument document = documentFullOf("x");
    document.language = DocumentLanguage::french;
    document.settings.design = TemplateDesign::compact;
    document.settings.logoPosition = LogoPosition::center;
    const std::string html = DocumentHTML::render(document);
    EXPECT_TRUE(html.starts_with("<!DOCTYPE html>\n<html lang=\"fr\">\n<head>\n<meta charset=\"utf-8\">\n"
                                 "<title>x</title>\n<style>\n:root { --accent: "));
    EXPECT_NE(html.find("<body class=\"design-compact logo-center\">"), std::string::npos);
    EXPECT_NE(html.find(R"(<div class="logo"><img src="data:image/png;base64,AQID" alt=""></div>)"), std::string::npos);
    EXPECT_NE(html.find(">Désignation</th>"), std::string::npos);
    EXPECT_NE(html.find(R"(alt="">Scanner pour payer</div>)"), std::string::npos);
    EXPECT_EQ(html.find("http"), std::string::npos); // nothing to load
}

TEST(DocumentHTMLTest, leavesOutWhatIsNotThere)
{
    PrintedDocument document;
    document.heading = "Invoice";
    document.lines = {{"Work", "", "1", "1.00", "19", "1.00", false}};
    const auto page = parseHTML(DocumentHTML::render(document));
    for (const std::string_view place :
         split("logo contact sender buyer-id subtitle reference intro details totals exempt "
               "outro payment foot foot-note",
               ' ')) {
        EXPECT_TRUE(page->withClass(place).empty()) << place;
    }
    EXPECT_EQ(page->withClass("num").size(), 6U); // three headings, three figures: no column for the rate
    document.hasTaxRateColumn = true;
    EXPECT_EQ(parseHTML(DocumentHTML::render(document))->withClass("num").size(), 8U);
}

TEST(DocumentHTMLTest, survivesHugeTexts)
{
    constexpr std::size_t tenMegabytes = 10'000'000;
    std::string huge;
    huge.resize(tenMegabytes, '&');
    PrintedDocument document;
    document.subtitle = huge;
    document.lines = {{huge, huge, "1", "1", "1", "1", false}};
    const std::string html = DocumentHTML::render(document);
    EXPECT_GT(html.size(), std::size_t{3} * std::string_view("&amp;").size() * tenMegabytes);
    EXPECT_TRUE(html.ends_with("</html>\n"));
}

} // namespace

} // namespace Quillary
