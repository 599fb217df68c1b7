#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Reports/AgingReport.h"
#include "QuillaryCore/Reports/ReportPeriod.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
struct ClientReport;
struct InvoiceList;
struct TaxReport;

/// What a report says at a glance: a few bars in its own currency.
/// Unit: minor units. A sum outside 64 bits stops the program.
struct ReportChart
{
    /// What a bar measures.
    enum class Meaning { net, tax, gross, paid, open, notDue, overdue };

    struct Series
    {
        Meaning meaning = Meaning::net;
        std::vector<std::int64_t> amounts; ///< one for each place

        friend bool operator==(const Series&, const Series&) = default;
    };

    /// What bars stand for.
    struct Place
    {
        enum class Kind {
            month,   ///< that of `day`
            quarter, ///< that of `day`
            year,    ///< that of `day`
            rate,    ///< a tax rate of `basisPoints`
            words,   ///< words of the report
            name,    ///< a client's own
        };

        Kind kind = Kind::words;
        CalendarDate day{};
        std::int32_t basisPoints = 0;
        std::string text;

        friend bool operator==(const Place&, const Place&) = default;
    };

    std::vector<Place> places;
    std::vector<Series> series;
    bool isStacked = false; ///< bars of one place stand on one another

    /// The clients that have a bar of their own.
    static constexpr std::size_t mostClients = 8;

    // No value: there is nothing to see, or a single figure that the table tells as well.

    /// Net and tax over the months, quarters or years of a period; within one month, by tax rate. By payment date each
    /// span is what its own tax report would say, so that rounding may differ by a little from that of the period.
    [[nodiscard]] static std::optional<ReportChart>
    of(Context& context, const TaxReport& report, const ReportPeriod& period, const Calendar& calendar);

    /// By age.
    [[nodiscard]] static std::optional<ReportChart> of(const AgingReport& report);

    /// What the largest clients were invoiced and paid, and the others together.
    [[nodiscard]] static std::optional<ReportChart> of(const ClientReport& report);

    /// What was invoiced over the months, quarters or years of a period, and what of it is open now.
    [[nodiscard]] static std::optional<ReportChart>
    of(const InvoiceList& list, const ReportPeriod& period, const Calendar& calendar);
};

/// "Net": the English word of the screen.
[[nodiscard]] std::string_view title(ReportChart::Meaning meaning);

} // namespace Quillary
