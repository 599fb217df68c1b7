#include "QuillaryCore/Reports/ReportChart.h"

#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Reports/ClientReport.h"
#include "QuillaryCore/Reports/InvoiceList.h"
#include "QuillaryCore/Reports/ReportSpans.h"
#include "QuillaryCore/Reports/TaxReport.h"
#include "tests/Reports/MixedLibrary.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

namespace Quillary {
namespace {

using Kind = ReportChart::Place::Kind;

std::int64_t sum(const ReportChart::Series& series)
{
    return std::accumulate(series.amounts.begin(), series.amounts.end(), std::int64_t(0));
}

TEST(ReportSpansTest, areAsLongAsAChartCanShow)
{
    const Calendar calendar("Europe/Berlin");
    struct Case
    {
        const char* period;
        std::size_t count; // 0: no spans
        ReportSpans::Length length;
    };
    const CalendarDate today = std::chrono::year(2026) / 6 / 30;
    const Case cases[] = {
        {"2026-05", 0, ReportSpans::Length::month},
        {"2026-05-31..2026-06-01", 2, ReportSpans::Length::month}, // a day of each
        {"2025-01..2026-06", 18, ReportSpans::Length::month},
        {"2025-01..2026-07", 7, ReportSpans::Length::quarter},
        {"2021-04..2026-03", 20, ReportSpans::Length::quarter},
        {"2021-03..2026-03", 6, ReportSpans::Length::year},
        {"all", 0, ReportSpans::Length::year}, // too many to tell apart
    };
    for (const auto& [period, count, length] : cases) {
        const auto spans = ReportSpans::of(*ReportPeriod::parse(period, today), calendar);
        ASSERT_EQ(spans ? spans->count() : 0, count) << period;
        EXPECT_TRUE(!spans || spans->length() == length) << period;
    }
    // The night in which clocks are put back is an hour longer, and belongs to the month that it lies in.
    const auto months = ReportSpans::of(*ReportPeriod::parse("2026-10..2026-11", today), calendar);
    const Instant border = calendar.startOfDay(std::chrono::year(2026) / 11 / 1);
    EXPECT_EQ(months->find(border - std::chrono::milliseconds(1)), 0U);
    EXPECT_EQ(months->find(border), 1U);
    EXPECT_EQ(months->find(months->range(1).end), std::nullopt);
}

TEST(ReportChartTest, saysWhatTheReportSays)
{
    TempFolder folder;
    MixedLibrary(11).make(folder.path(), 600);
    const FixedClock clock(MixedLibrary::today);
    CountingUUIDSource uuids;
    Store store =
        Store::openReadOnly(Store::Location::directory(folder.path()), DataModel::records(), DataModel::history());
    Context context(store, clock, uuids);
    const Calendar calendar("Asia/Kolkata");
    for (const char* words : {"2025", "all", "2025-03"}) {
        const ReportPeriod period = *ReportPeriod::parse(words, calendar.date(clock.now()));
        const DateRange range = period.range(calendar);
        for (const ReportBasis basis : allReportBases) {
            const TaxReport report = TaxReport::make(context, range, basis, "EUR");
            const auto chart = ReportChart::of(context, report, period, calendar);
            ASSERT_TRUE(chart) << words;
            // Payments are split by rates anew in each span: a minor unit for each document may fall elsewhere.
            const auto slack = basis == ReportBasis::paid ? std::int64_t(report.entries.size()) : 0;
            EXPECT_NEAR(double(sum(chart->series[0])), double(report.total().net), double(slack)) << words;
            EXPECT_NEAR(double(sum(chart->series[1])), double(report.total().tax), double(slack)) << words;
            EXPECT_EQ(chart->places.front().kind == Kind::month, std::string(words) == "2025") << words;
        }
        const InvoiceList list = InvoiceList::make(context, range, "EUR", clock.now(), calendar);
        const auto invoices = ReportChart::of(list, period, calendar);
        ASSERT_EQ(invoices.has_value(), std::string(words) != "2025-03") << "one bar says nothing";
        EXPECT_TRUE(!invoices || sum(invoices->series[0]) == list.total().gross) << words;

        const ClientReport clients = ClientReport::make(context, range, "EUR");
        const auto largest = ReportChart::of(clients);
        ASSERT_TRUE(largest);
        EXPECT_LE(largest->places.size(), ReportChart::mostClients + 1);
        EXPECT_EQ(sum(largest->series[0]), clients.total().gross);
        EXPECT_EQ(sum(largest->series[1]), clients.total().paid);
    }
    const AgingReport aging = AgingReport::make(context, clock.now(), calendar, "EUR");
    const auto ages = ReportChart::of(aging);
    ASSERT_TRUE(ages);
    EXPECT_EQ(sum(ages->series[0]), aging.totals().front()) << "not due yet";
    EXPECT_EQ(sum(ages->series[0]) + sum(ages->series[1]), aging.total());
    EXPECT_FALSE(ReportChart::of(AgingReport{"EUR", {}})) << "nothing is owed";
}

} // namespace
} // namespace Quillary
