#include "QuillaryCore/Numbering/NumberFormat.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Numbering/NumberingError.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

using namespace std::chrono_literals;

using Counter = NumberFormat::Counter;
using Literal = NumberFormat::Literal;
using Placeholder = NumberFormat::Placeholder;
using Reset = NumberFormat::Reset;

std::string repeated(std::string_view text, int times)
{
    std::string result;
    for (int i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

Instant at(std::chrono::year_month_day day, std::chrono::minutes time = 12h)
{
    return std::chrono::sys_days(day) + time;
}

const std::string familyEmoji = "\U0001F469\u200D\U0001F467"; // one character, two people and a joiner
const std::string flag = "\U0001F1E9\U0001F1EA";              // one character, two regional letters

std::string fault(std::string_view pattern, NumberedKind kind = NumberedKind::invoice)
{
    const auto error = NumberFormat::validate(pattern, kind);
    return error ? error->message() : "";
}

TEST(NumberFormatTest, readsTokens)
{
    using Tokens = std::vector<NumberFormat::Token>;
    const std::pair<std::string_view, Tokens> cases[] = {
        {"INV-{yyyy}-{###,y}",
         {Literal{"INV-"}, Placeholder::year4, Literal{"-"}, Counter{3, Reset::year}}}, // literals keep their order
        {"{yy}{mm}{dd}{q}{client}{#}",
         {Placeholder::year2,
          Placeholder::month,
          Placeholder::day,
          Placeholder::quarter,
          Placeholder::client,
          Counter{1, Reset::never}}}, // nothing between placeholders makes no empty literal
        {" {#########,c} ", {Literal{" "}, Counter{9, Reset::client}, Literal{" "}}}, // not trimmed; nine # is the most
        {"{#,q}", {Counter{1, Reset::quarter}}},
        {"{#,m}", {Counter{1, Reset::month}}},
        {"{#,d}", {Counter{1, Reset::day}}},
        {"{,##,,y,}", {Counter{2, Reset::year}}}, // empty pieces between commas are dropped
        {"{##,}", {Counter{2, Reset::never}}},    // so a comma alone names no reset
        {"№ {#}·é", {Literal{"№ "}, Counter{1, Reset::never}, Literal{"·é"}}},
        {"#,{#}", {Literal{"#,"}, Counter{1, Reset::never}}}, // outside braces # and , are text
    };
    for (const auto& [pattern, tokens] : cases) {
        const NumberFormat format = NumberFormat::parse(pattern, NumberedKind::invoice);
        EXPECT_EQ(format.tokens(), tokens) << pattern;
        EXPECT_EQ(format.pattern(), pattern);
    }
}

TEST(NumberFormatTest, saysWhatIsWrong)
{
    const std::string braces = "Every { needs a matching }.";
    const std::string tabs = "The format can't contain tabs or line breaks.";
    const std::string tooLong = "Keep the format under 64 characters.";
    const std::pair<std::string, std::string> cases[] = {
        {"", "Enter a format."},
        {"   ", "Enter a format."},
        {"\u00A0\u3000\n", "Enter a format."}, // no-break and wide blanks are white space; found before the line break
        {"{###}\t", tabs},
        {"{###}\n", tabs},
        {"{###}\u0085", tabs},                 // a line break beyond ASCII
        {"{###}\u200B", tabs},                 // an invisible formatting character
        {familyEmoji + "{###}", tabs},         // its joiner is one of those
        {std::string("{###}\0", 6), tabs},     // NUL
        {"{#}" + repeated("x", 62), tooLong},  // 65 characters
        {"{#}" + repeated("\t", 62), tooLong}, // the length is looked at before the characters
        {"{#}" + repeated("é", 61), ""},       // 64 characters in 125 bytes
        {"{#}" + repeated(flag, 61), ""},      // 64 characters of two scalars each
        {"{#}" + repeated("e\u0301", 62), tooLong},
        {"{#}e" + repeated("\u0301", 3000), tooLong}, // one character under thousands of marks
        {"INV-{yyyy", braces},
        {"INV-}", braces},
        {"{{###}}", braces},
        {"{###}}", braces},
        {"{a{###}", braces},     // a brace inside a name, told before the unknown name
        {"{###}\u0301", braces}, // an accent makes the brace another character
        {"{", braces},
        {"INV-{yyyy}", "Add a counter such as {###} so every number is different."},
        {"{###}-{##}", "Use only one counter."},
        {"{##########}", "A counter can have at most 9 #."},
        {"{##########,x}", "A counter can have at most 9 #."}, // the width is looked at before the reset
        {"{YYYY}{###}", "{YYYY} isn't a placeholder."},
        {"{ yyyy}{###}", "{ yyyy} isn't a placeholder."},
        {"{x}{###", "{x} isn't a placeholder."}, // the first fault from the left
    };
    for (const auto& [pattern, message] : cases) {
        EXPECT_EQ(fault(pattern), message) << testing::PrintToString(pattern);
    }
    // A counter that never restarts has no suffix, and blanks inside the braces count.
    for (const std::string_view pattern :
         split("{###,-}|{###,x}|{###,yy}|{###,Y}|{###, y}|{###,y,m}|{###,y\u0301}|{#é}|{}|{,}", '|')) {
        EXPECT_EQ(fault(pattern), std::string(pattern) + " isn't a placeholder.");
    }
}

TEST(NumberFormatTest, onlyDocumentsMayNameTheClient)
{
    const std::string refusal = "Client numbers can't include {client} or a per-client counter.";
    for (const std::string_view pattern : {"{client}-{###}", "C-{###,c}"}) {
        EXPECT_EQ(fault(pattern, NumberedKind::client), refusal) << pattern;
        for (const NumberedKind kind : {NumberedKind::invoice, NumberedKind::quote, NumberedKind::creditNote}) {
            EXPECT_EQ(fault(pattern, kind), "") << pattern;
            EXPECT_TRUE(NumberFormat::parse(pattern, kind).usesClient()) << pattern;
        }
    }
    EXPECT_FALSE(NumberFormat::parse("client-{###,y}", NumberedKind::client).usesClient());
}

TEST(NumberFormatTest, tellsTheFaultToCode)
{
    const auto unknown = NumberFormat::validate("{###,x}", NumberedKind::invoice);
    EXPECT_EQ(unknown, NumberFormatError(NumberFormatError::Reason::unknownPlaceholder, "###,x"));
    EXPECT_NE(unknown, NumberFormatError(NumberFormatError::Reason::unknownPlaceholder, "###"));
    EXPECT_THROW(static_cast<void>(NumberFormat::parse("{", NumberedKind::quote)), NumberFormatError);
}

TEST(NumberFormatTest, rendersDateAndCounter)
{
    struct Case
    {
        std::string_view pattern;
        std::int64_t counter;
        std::chrono::year_month_day day;
        std::string_view number;
    };
    const Case cases[] = {
        {"INV-{yyyy}-{###,y}", 1, {2025y / 3 / 7}, "INV-2025-001"},
        {"{###}", 1000, {2025y / 3 / 7}, "1000"}, // wider than its places: not cut
        {"{###}", 9'223'372'036'854'775'807, {2025y / 3 / 7}, "9223372036854775807"},
        {"{#########}", 7, {2025y / 3 / 7}, "000000007"},
        {"{yy}.{mm}.{dd} {#}", 3, {2005y / 1 / 9}, "05.01.09 3"},
        {"{q}/{#}", 1, {2025y / 3 / 31}, "1/1"}, // the last day of a quarter and the first of the next
        {"{q}/{#}", 1, {2025y / 4 / 1}, "2/1"},
        {"{q}/{#}", 1, {2025y / 8 / 15}, "3/1"},
        {"{q}/{#}", 1, {2025y / 12 / 31}, "4/1"},
        {"{yyyy}-{yy}-{#}", 1, {2000y / 2 / 29}, "2000-00-1"},
        {"{yyyy}-{yy}-{#}", 1, {321y / 2 / 3}, "0321-21-1"},
        {"{yyyy}-{yy}-{#}", 1, {12025y / 2 / 3}, "9999-99-1"}, // days outside the calendar are its nearest day
        {"{yyyy}-{yy}-{#}", 1, {-44y / 3 / 15}, "0000-00-1"},
        {"👍🏽{#}é", 12, {2025y / 3 / 7}, "👍🏽12é"},
        {"\xFF{#}", 1, {2025y / 3 / 7}, "\uFFFD1"}, // a number is always well-formed text
    };
    const Calendar calendar("UTC");
    for (const auto& [pattern, counter, day, number] : cases) {
        const NumberFormat format = NumberFormat::parse(pattern, NumberedKind::invoice);
        EXPECT_EQ(format.render(counter, at(day), {}, calendar), number) << pattern;
    }
}

TEST(NumberFormatTest, rendersTheClientsNumber)
{
    const Calendar calendar("UTC");
    const NumberFormat format = NumberFormat::parse("{client}/{##,c}", NumberedKind::invoice);
    EXPECT_EQ(format.render(4, at({2025y / 3 / 7}), "C-{#}", calendar), "C-{#}/04"); // braces of a client stay text
    try {
        static_cast<void>(format.render(4, at({2025y / 3 / 7}), "", calendar));
        FAIL() << "a client without a number has none to print";
    } catch (const NumberingError& error) {
        EXPECT_EQ(error.reason(), NumberingError::Reason::missingClientNumber);
        EXPECT_EQ(error.message(), "This client has no client number, which the format needs.");
    }
}

TEST(NumberFormatTest, namesTheSeriesByItsReset)
{
    const auto client = UUID::parse("3f2504e0-4f89-41d3-9a0c-0305e82c3301");
    const Calendar calendar("UTC");
    const Instant date = at({2025y / 3 / 7});
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"{yyyy}-{###}", "invoice|all"}, // what the pattern shows of the date doesn't matter
        {"{###,y}", "invoice|y2025"},
        {"{###,q}", "invoice|q2025-1"},
        {"{###,m}", "invoice|m2025-03"},
        {"{###,d}", "invoice|d2025-03-07"},
        {"{###,c}", "invoice|c3F2504E0-4F89-41D3-9A0C-0305E82C3301"},
        {"{client}-{###}", "invoice|all"},
    };
    for (const auto& [pattern, key] : cases) {
        const NumberFormat format = NumberFormat::parse(pattern, NumberedKind::invoice);
        EXPECT_EQ(format.sequenceKey(NumberedKind::invoice, date, client, calendar), key) << pattern;
    }
    const NumberFormat perClient = NumberFormat::parse("{###,c}", NumberedKind::creditNote);
    try {
        static_cast<void>(perClient.sequenceKey(NumberedKind::creditNote, date, std::nullopt, calendar));
        FAIL() << "a counter per client needs a client";
    } catch (const NumberingError& error) {
        EXPECT_EQ(error, NumberingError(NumberingError::Reason::missingClient));
        EXPECT_EQ(error.message(), "Choose a client first: this number counts per client.");
    }
}

TEST(NumberFormatTest, takesTheDayFromTheCalendarsZone)
{
    struct Case
    {
        Instant date;
        std::string_view zone;
        std::string_view number;
    };
    const Case cases[] = {
        {at({2025y / 12 / 31}, 23h + 30min), "UTC", "20251231-1"},
        {at({2025y / 12 / 31}, 23h + 30min), "Europe/Berlin", "20260101-1"}, // the next year has begun there
        {at({2025y / 12 / 31}, 23h + 30min), "America/New_York", "20251231-1"},
        {at({2025y / 3 / 30}, 0h + 59min), "Europe/Berlin", "20250330-1"}, // the minute before clocks go forward
        {at({2025y / 3 / 30}, 22h), "Europe/Berlin", "20250331-1"},        // that night is an hour short
        {at({2025y / 10 / 26}, 22h + 59min), "Europe/Berlin", "20251026-1"},
        {at({2025y / 10 / 26}, 23h), "Europe/Berlin", "20251027-1"}, // and this day an hour long
        {at({2011y / 12 / 30}, 9h), "Pacific/Apia", "20111229-1"},
        {at({2011y / 12 / 30}, 10h), "Pacific/Apia", "20111231-1"}, // where the 30th never was
    };
    const NumberFormat format = NumberFormat::parse("{yyyy}{mm}{dd}-{#,d}", NumberedKind::invoice);
    for (const auto& [date, zone, number] : cases) {
        EXPECT_EQ(format.render(1, date, {}, Calendar(zone)), number) << zone;
    }
}

} // namespace

} // namespace Quillary
