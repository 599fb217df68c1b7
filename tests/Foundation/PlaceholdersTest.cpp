#include "QuillaryCore/Foundation/Placeholders.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Quillary {
namespace {

TEST(PlaceholdersTest, fillsKnownWordsAndLeavesTheRest)
{
    const auto value = [](const std::string& word) -> std::optional<std::string> {
        return word == "month" || word == "Month" ? std::optional<std::string>("{year}") : std::nullopt;
    };
    const std::pair<std::string, std::string> cases[] = {
        {"Rent {month}, {Month} {MONTH}", "Rent {year}, {year} {MONTH}"}, // what was filled in is not filled in again
        {"{unknown} {month}", "{unknown} {year}"},
        {"{{month}}", "{{year}}"},
        {"{month", "{month"},
        {"month} {", "month} {"},
        {"{}{ month }", "{}{ month }"},
        {"{" + std::string(100, 'x') + "{month}}", "{" + std::string(100, 'x') + "{year}}"},
        {"", ""},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(fillPlaceholders(text, value), expected);
    }
    EXPECT_EQ(fillPlaceholders(std::string(100'000, '{'), value), std::string(100'000, '{'));
}

} // namespace
} // namespace Quillary
