#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Reports/AgingReport.h"
#include "QuillaryCore/Reports/ReportBasis.h"
#include "QuillaryCore/Reports/ReportCSV.h"
#include "QuillaryCore/Reports/ReportChart.h"
#include "QuillaryCore/Reports/ReportPeriod.h"

#include <optional>
#include <string>
#include <vector>

namespace Quillary {

class Context;

/// Which report, of what.
struct ReportOrder
{
    enum class Kind { tax, taxDocuments, aging, clients, invoices };

    Kind kind = Kind::tax;
    ReportPeriod period = ReportPeriod::all(); ///< not for `aging`, which is of today
    ReportBasis basis = ReportBasis::invoiced; ///< of the tax reports
    std::string currencyCode;
    bool hasChart = false; ///< somebody looks at the chart, too

    friend bool operator==(const ReportOrder&, const ReportOrder&) = default;
};

/// A finished report with the words around it, as a terminal or a window shows it and a file keeps it.
struct FinishedReport
{
    /// What it takes to know days and to write them.
    struct Setting
    {
        Instant now;
        const Calendar& calendar;
        const Locale& locale;
    };

    std::string heading;  ///< "Tax report by invoice date", "Open invoices on 30 Sep 2026"
    std::string period;   ///< "1 Jul 2026 – 30 Sep 2026"; empty for a report of today
    std::string fileName; ///< without extension
    ReportTable table;
    bool hasTotal = true; ///< as the last row
    std::optional<AgingReport> aging = {};
    std::optional<ReportChart> chart = {}; ///< where one says something, and was asked for
    std::string currencyCode = {};
    std::vector<std::string> otherCurrencies = {}; ///< in which there is something to report too

    /// "Tax report by invoice date, 1 Jul 2026 – 30 Sep 2026, EUR"
    [[nodiscard]] std::string title() const;

    /// All of it on one state of the library. Throws: `StoreError`; a report that could not be read is none.
    [[nodiscard]] static FinishedReport make(Context& context, const ReportOrder& order, const Setting& setting);
};

/// "1 Jul 2026 – 30 Sep 2026", "since 1 Jul 2026", "all dates"
[[nodiscard]] std::string periodText(const ReportPeriod& period, const Locale& locale);

} // namespace Quillary
