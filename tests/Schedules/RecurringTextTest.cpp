#include "QuillaryCore/Schedules/RecurringText.h"

#include "QuillaryCore/Model/PrintLocale.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace Quillary {
namespace {

using std::chrono::year;

constexpr ServicePeriod january{.start = year(2026) / 1 / 1, .end = year(2026) / 1 / 31};
constexpr CalendarDate issued = year(2026) / 2 / 1;

std::string filled(std::string_view text, DocumentLanguage language, const ServicePeriod& period = january)
{
    return RecurringText::fill(text, issued, period, language, printLocale(language, "DE"));
}

TEST(RecurringTextTest, speaksTheLanguageOfTheDocument)
{
    using enum DocumentLanguage;
    const std::tuple<DocumentLanguage, std::string_view> cases[] = {
        {english, "January|January 2026|Q1|Q1 2026|2026"},
        {german, "Januar|Januar 2026|Q1|Q1 2026|2026"},
        {french, "janvier|janvier 2026|T1|T1 2026|2026"},
        {spanish, "enero|enero de 2026|T1|T1 de 2026|2026"},
        {dutch, "januari|januari 2026|K1|K1 2026|2026"},
        {italian, "gennaio|gennaio 2026|T1|T1 2026|2026"},
    };
    for (const auto& [language, expected] : cases) {
        EXPECT_EQ(filled("{month}|{month_year}|{quarter}|{quarter_year}|{year}", language), expected);
    }
    EXPECT_EQ(filled("{period} ({period_start}, {period_end}), {invoice_date}", german),
              "01.01.2026 – 31.01.2026 (01.01.2026, 31.01.2026), 01.02.2026");
}

TEST(RecurringTextTest, reachesOverTheYearsEnd)
{
    constexpr auto english = DocumentLanguage::english;
    EXPECT_EQ(filled("{previous_month} {previous_month_year} {previous_quarter_year} {previous_year}", english),
              "December December 2025 Q4 2025 2025");
    EXPECT_EQ(filled("{next_month} {next_month_year} {next_quarter} {next_year}", english),
              "February February 2026 Q2 2027");
    // The last day of a month has no counterpart in the next one; its month has.
    const ServicePeriod late{.start = year(2026) / 10 / 31, .end = year(2026) / 11 / 29};
    EXPECT_EQ(filled("{month} {next_month} {next_quarter_year}", english, late), "October November Q1 2027");
}

TEST(RecurringTextTest, leavesOtherBracesAlone)
{
    EXPECT_EQ(filled("{MONTH} {client} {next_period} {next_} { {month", DocumentLanguage::english),
              "January {client} {next_period} {next_} { {month");
}

} // namespace
} // namespace Quillary
