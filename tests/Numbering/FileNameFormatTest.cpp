#include "QuillaryCore/Numbering/FileNameFormat.h"

#include "QuillaryCore/Foundation/Text.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <utility>

namespace Quillary {

namespace {

using namespace std::chrono_literals;

std::string fault(std::string_view pattern)
{
    const auto error = FileNameFormat::validate(pattern);
    return error ? error->message() : "";
}

FileNameFormat::Values sampleValues()
{
    return {.number = "INV-2025-001",
            .type = "Invoice",
            .client = "Acme/Co: Ltd",
            .title = "Roof",
            .business = "Nadel & Faden",
            .date = std::chrono::sys_days(2025y / 3 / 7) + 23h};
}

std::string rendered(std::string_view pattern, const FileNameFormat::Values& values = sampleValues())
{
    return FileNameFormat::parse(pattern).render(values, Calendar("UTC"));
}

TEST(FileNameFormatTest, saysWhatIsWrong)
{
    const std::string braces = "Every { needs a matching }.";
    const std::string number = "Include {number} so two documents never get the same file name.";
    const std::pair<std::string, std::string> cases[] = {
        {"", "Enter a file name format."},
        {" \t\n", "Enter a file name format."},
        {"{number", braces},
        {"number}", braces},
        {"{number}}", braces},
        {"{number}\u0301", braces}, // an accent makes the brace another character
        {"{type} {client}", number},
        {"number", number},
        {"{Number}", "{Number} isn't a placeholder."},
        {"{number }", "{number } isn't a placeholder."},
        {"{}{number}", "{} isn't a placeholder."},
        {"{{number}}", "{{number} isn't a placeholder."}, // the name runs to the next "}", whatever is in it
        {"{yy}{number", "{yy} isn't a placeholder."},     // the first fault from the left
        {"{number}{number}\t", ""},                       // twice is no fault, nor is a tab: names are cleaned
    };
    for (const auto& [pattern, message] : cases) {
        EXPECT_EQ(fault(pattern), message) << testing::PrintToString(pattern);
    }
    EXPECT_EQ(FileNameFormat::validate("{x}"),
              FileNameFormatError(FileNameFormatError::Reason::unknownPlaceholder, "x"));
    EXPECT_THROW(static_cast<void>(FileNameFormat::parse("{x}")), FileNameFormatError);
}

TEST(FileNameFormatTest, fillsInEveryPlaceholder)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"{type} {number} - {client}", "Invoice INV-2025-001 - Acme-Co- Ltd"},
        {"{number}", "INV-2025-001"},
        {"{business}_{title}_{number}", "Nadel & Faden_Roof_INV-2025-001"},
        {"{date} {number}", "2025-03-07 INV-2025-001"},
        {"{yyyy}.{mm}.{dd} {number}", "2025.03.07 INV-2025-001"},
        {"a/{number}\\b", "a-INV-2025-001-b"}, // the pattern's own text is cleaned too
        {"../../{number}", "INV-2025-001"},
    };
    for (const auto& [pattern, name] : cases) {
        EXPECT_EQ(rendered(pattern), name) << pattern;
    }
}

TEST(FileNameFormatTest, takesTheDayFromTheCalendarsZone)
{
    const FileNameFormat format = FileNameFormat::parse("{date} {number}");
    EXPECT_EQ(format.render(sampleValues(), Calendar("Asia/Tokyo")), "2025-03-08 INV-2025-001");
}

TEST(FileNameFormatTest, aValueIsNeverReadAsAPattern)
{
    FileNameFormat::Values values = sampleValues();
    values.number = "{client}";
    EXPECT_EQ(rendered("{number}", values), "{client}");
}

TEST(FileNameFormatTest, fallsBackToTheDefaultPattern)
{
    Business business;
    for (const std::string_view pattern : {"", "{client}", "{number"}) {
        business.fileNameFormat = pattern;
        EXPECT_EQ(FileNameFormat::stored(business).pattern(), "{type} {number} - {client}") << pattern;
    }
    business.fileNameFormat = "{number} {title}";
    EXPECT_EQ(FileNameFormat::stored(business).pattern(), "{number} {title}");
}

TEST(FileNameFormatTest, cleansAnyName)
{
    const std::string longName(250, 'x');
    std::string accents;
    for (int i = 0; i < 250; ++i) {
        accents += "e\u0301";
    }
    const std::pair<std::string, std::string> cases[] = {
        {"", "Document"},
        {"...", "Document"},
        {"--", "Document"},
        {" - _ . ", "Document"},
        {"///", "Document"},
        {"a\tb\r\nc", "a b c"},
        {std::string("a\0b", 3), "a b"},
        {"a\u200Bb", "a b"},                               // an invisible character counts as a control character
        {"Zoe \U0001F469\u200D\U0001F467 Ltd", "Zoe Ltd"}, // a character with a joiner in it goes as a whole
        {"a/\\:*?\"<>|b", "a-b"},                          // a run makes one dash
        {"a/-/b", "a---b"},                                // dashes of the name itself belong to no run
        {"a / b", "a - b"},
        {"a/\u0301b", "a-\u0301b"}, // a slash under an accent is a path separator all the same
        {"a;b,c'd&e%f$g#h@i!j", "a;b,c'd&e%f$g#h@i!j"},
        {"  a \u00A0\u2003\u3000 b\u2028", "a b"}, // every kind of blank
        {".hidden_-. ", "hidden"},
        {"..", "Document"},
        {"C:\\con.txt", "C-con.txt"},
        {"Łódź 株式会社 👍🏽", "Łódź 株式会社 👍🏽"},
        {"a\xFF\xC3(", "a\uFFFD\uFFFD("}, // broken bytes
        {longName, std::string(200, 'x')},
        {std::string(199, 'x') + " y", std::string(199, 'x')},    // cut behind a blank
        {std::string(198, 'x') + "-. yz", std::string(198, 'x')}, // cut in the middle of what is trimmed
        {std::string(200, 'x') + "...", std::string(200, 'x')},   // trimmed before it is measured
        {accents, accents.substr(0, 600)},                        // 200 characters as a person counts them
        {"." + std::string(200, 'x') + ".", std::string(200, 'x')},
    };
    for (const auto& [name, clean] : cases) {
        EXPECT_EQ(FileNameFormat::sanitize(name), clean) << testing::PrintToString(name);
        EXPECT_EQ(FileNameFormat::sanitize(clean), clean) << "cleaned twice: " << testing::PrintToString(name);
    }
}

} // namespace

} // namespace Quillary
