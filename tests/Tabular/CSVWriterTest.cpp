#include "QuillaryCore/Tabular/CSVWriter.h"

#include "QuillaryCore/Tabular/CSV.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

namespace {

using Rows = std::vector<std::vector<CSVValue>>;

const CSVFormat& german()
{
    static const CSVFormat format = CSVFormat::excel(Locale("de_DE"));
    return format;
}

CSVValue day(int year, unsigned month, unsigned dayOfMonth)
{
    return CSVValue::date(
        CalendarDate(std::chrono::year(year), std::chrono::month(month), std::chrono::day(dayOfMonth)));
}

TEST(CSVWriterTest, speaksTheDialectOfTheLocale)
{
    EXPECT_EQ(german(), (CSVFormat{.separator = ';', .decimalSeparator = ","}));
    EXPECT_EQ(CSVFormat::excel(Locale("en_US")), CSVFormat::standard());
    EXPECT_EQ(CSVFormat::excel(Locale("de_CH")), CSVFormat::standard());
    EXPECT_EQ(CSVFormat::excel(Locale("fa")).separator, ','); // a decimal mark that is neither
}

TEST(CSVWriterTest, writesCells)
{
    struct Case
    {
        CSVValue value;
        std::string standard;
        std::string german;
    };
    const Case cases[] = {
        {CSVValue::money(Money(123450, "EUR")), "1234.50", "1234,50"},
        {CSVValue::money(Money(-300, "EUR")), "-3.00", "-3,00"}, // no formula
        {CSVValue::money(Money(-5, "EUR")), "-0.05", "-0,05"},
        {CSVValue::money(Money(1234, "JPY")), "1234", "1234"},
        {CSVValue::money(Money(1234, "KWD")), "1.234", "1,234"},
        {CSVValue::money(Money(std::numeric_limits<std::int64_t>::min(), "EUR")),
         "-92233720368547758.08",
         "-92233720368547758,08"},
        {CSVValue::number(-42), "-42", "-42"},
        {CSVValue::number(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808", "-9223372036854775808"},
        {CSVValue::percent(1900), "19", "19"},
        {CSVValue::percent(700), "7", "7"},
        {CSVValue::percent(1950), "19.5", "19,5"},
        {CSVValue::percent(1234), "12.34", "12,34"},
        {CSVValue::percent(5), "0.05", "0,05"},
        {CSVValue::percent(0), "0", "0"},
        {day(2025, 3, 7), "2025-03-07", "2025-03-07"},
        {day(987, 12, 31), "0987-12-31", "0987-12-31"},
        {day(12345, 1, 1), "12345-01-01", "12345-01-01"},
        {CSVValue::date(std::nullopt), "", ""},
        {CSVValue::text("=SUM(A1)"), "'=SUM(A1)", "'=SUM(A1)"},
        {CSVValue::text("-5 apples"), "'-5 apples", "'-5 apples"},
        {CSVValue::text("@a;b"), "'@a;b", "\"'@a;b\""},
        {CSVValue::text("\ta"), "'\ta", "'\ta"},
        {CSVValue::text("\ra"), "\"'\ra\"", "\"'\ra\""},
        {CSVValue::text("1+1"), "1+1", "1+1"}, // only the first character makes a formula
        {CSVValue::text("a,b"), "\"a,b\"", "a,b"},
        {CSVValue::text("say \"ä\"\n"), "\"say \"\"ä\"\"\n\"", "\"say \"\"ä\"\"\n\""},
        {CSVValue::text(""), "", ""},
    };
    for (const Case& cell : cases) {
        EXPECT_EQ(CSVWriter::cell(cell.value, CSVFormat::standard()), cell.standard);
        EXPECT_EQ(CSVWriter::cell(cell.value, german()), cell.german);
    }
    // Commas on both sides: the amount goes into quotes.
    EXPECT_EQ(CSVWriter::cell(CSVValue::money(Money(150, "EUR")), {.separator = ',', .decimalSeparator = ","}),
              "\"1,50\"");
}

TEST(CSVWriterTest, writesDecimals)
{
    constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(CSVWriter::decimal(-7, 3, "·", false), "-0·007");
    EXPECT_EQ(CSVWriter::decimal(100, 2, ".", true), "1");
    EXPECT_EQ(CSVWriter::decimal(100, 2, "", true), "1"); // the whole part keeps its zeros
    EXPECT_EQ(CSVWriter::decimal(0, 20, ".", true), "0");
    EXPECT_EQ(CSVWriter::decimal(120, -1, ".", true), "120");
    EXPECT_EQ(CSVWriter::decimal(smallest, 18, ".", false), "-9.223372036854775808");
    EXPECT_EQ(CSVWriter::decimal(smallest, 19, ".", false), "-0.9223372036854775808");
    // More digits than a power of ten in 64 bits has; 10^64 is 0 there.
    EXPECT_EQ(CSVWriter::decimal(smallest, 20, ".", false), "-0.09223372036854775808");
    EXPECT_EQ(CSVWriter::decimal(1, 64, ".", true), "0." + std::string(63, '0') + "1");
}

TEST(CSVWriterTest, writesTables)
{
    const std::vector<std::string> header = {"=a", "b;c"}; // headings are our own: no guard
    const Rows rows = {{CSVValue::text("x"), CSVValue::money(Money(150, "EUR"))}, {}};
    EXPECT_EQ(CSVWriter::string(header, rows, german()), "=a;\"b;c\"\r\nx;1,50\r\n\r\n");
    EXPECT_EQ(CSVWriter::data(header, rows, CSVFormat::standard()), "\xEF\xBB\xBF=a,b;c\r\nx,1.50\r\n\r\n");
}

TEST(CSVWriterTest, writesWhatTheReaderReads)
{
    const std::vector<std::string> texts = {"a", "b \"c\"", "d\r\ne", "f;g,h|i\tj", "\"", "\n", "ß€😀", "x,\"\"\"y\""};
    for (const CSVFormat& format : {CSVFormat::standard(), german()}) {
        Rows rows;
        for (const std::string& text : texts) {
            rows.push_back({CSVValue::text(text), CSVValue::number(1)});
        }
        const CSVRows read = CSV::parse(CSVWriter::string(texts, rows, format), format.separator);
        ASSERT_EQ(read.size(), texts.size() + 1);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            EXPECT_EQ(read[0][i], texts[i]);
            EXPECT_EQ(read[i + 1][0], texts[i]);
        }
    }
}

TEST(CSVValueTest, equalsAndHashesByContent)
{
    EXPECT_NE(CSVValue::number(1900), CSVValue::percent(1900));
    EXPECT_NE(CSVValue::text(""), CSVValue::date(std::nullopt));
    const std::hash<CSVValue> hash;
    EXPECT_EQ(hash(CSVValue::money(Money(1, "eur"))), hash(CSVValue::money(Money(1, "EUR"))));
    EXPECT_NE(hash(CSVValue::number(1900)), hash(CSVValue::percent(1900)));
}

} // namespace

} // namespace Quillary
