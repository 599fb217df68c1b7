#include "QuillaryCore/Output/DocumentStrings.h"

#include "QuillaryCore/Model/Document.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

using Key = DocumentStrings::Key;

std::vector<Key> allKeys()
{
    std::vector<Key> keys;
    for (int index = 0; index <= static_cast<int>(Key::reminderText3); ++index) {
        keys.push_back(static_cast<Key>(index));
    }
    return keys;
}

/// The words in braces, sorted.
std::vector<std::string> placeholders(std::string_view label)
{
    std::vector<std::string> words;
    for (std::size_t brace = label.find('{'); brace != std::string_view::npos; brace = label.find('{', brace + 1)) {
        words.emplace_back(label.substr(brace, label.find('}', brace) - brace));
    }
    std::ranges::sort(words);
    return words;
}

TEST(DocumentStringsTest, saysEverythingInEveryLanguage)
{
    for (const Key key : allKeys()) {
        const auto expected = placeholders(DocumentStrings(DocumentLanguage::english).text(key));
        for (const DocumentLanguage language : allDocumentLanguages) {
            const std::string_view label = DocumentStrings(language).text(key);
            EXPECT_FALSE(label.empty()) << static_cast<int>(key) << code(language);
            EXPECT_EQ(placeholders(label), expected) << label; // a value that one language would not print
        }
    }
}

TEST(DocumentStringsTest, keepsLabelsInTheirLanguage)
{
    const std::tuple<DocumentLanguage, Key, std::string_view> cases[] = {
        {DocumentLanguage::english, Key::invoice, "Invoice"},
        {DocumentLanguage::german, Key::dueDate, "Fällig am"},
        {DocumentLanguage::french, Key::validUntil, "Valable jusqu'au"}, // a straight apostrophe
        {DocumentLanguage::spanish, Key::clientNumber, "N.º de cliente"},
        {DocumentLanguage::dutch, Key::reminder3, "Laatste aanmaning"},
        {DocumentLanguage::italian, Key::quantity, "Qtà"},
    };
    for (const auto& [language, key, expected] : cases) {
        EXPECT_EQ(DocumentStrings(language).text(key), expected);
    }
}

TEST(DocumentStringsTest, fillsInValuesOnce)
{
    const DocumentStrings german(DocumentLanguage::german);
    EXPECT_EQ(german.format(Key::payBy, {{"total", "119,00 €"}, {"date", "21.03.2025"}}),
              "Bitte überweisen Sie 119,00 € bis zum 21.03.2025.");
    // A number may hold braces: what was filled in is not filled in again.
    EXPECT_EQ(german.format(Key::creditNoteFor, {{"number", "{date}"}, {"date", "1.1.2025"}}),
              "Gutschrift zur Rechnung {date} vom 1.1.2025");
    EXPECT_EQ(german.format(Key::page, {{"page", "1"}}), "Seite 1 von {pages}");
}

TEST(DocumentStringsTest, headsTemplatesAndUnreadableKindsAsInvoices)
{
    const std::pair<std::int16_t, Key> cases[] = {
        {0, Key::invoice}, {1, Key::quote}, {2, Key::creditNote}, {3, Key::invoice}, {7, Key::invoice}};
    for (const auto& [raw, expected] : cases) {
        Document document;
        document.kindRaw = raw;
        EXPECT_EQ(headingKey(document), expected) << raw;
    }
}

} // namespace

} // namespace Quillary
