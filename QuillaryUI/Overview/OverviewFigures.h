#pragma once

#include "QuillaryCore/Assistant/Operations/MoneyOverview.h"
#include "QuillaryCore/Reports/AgingReport.h"
#include "QuillaryCore/Reports/MonthlyIncome.h"

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// What the overview shows, read at one moment.
struct OverviewFigures
{
    /// What the charts show, in one currency.
    struct Year
    {
        std::string currencyCode;
        MonthlyIncome thisYear;
        MonthlyIncome lastYear;
        AgingReport aging;
    };

    std::vector<MoneyOverview> money;
    std::vector<std::string> currencies; ///< in which something came in or is owed; the business's own first

    Year year;

    /// The charts are in the wished currency where there is anything in it, else in the first.
    /// Where something can't be read, the store remembers the failure, and these are no figures.
    [[nodiscard]] static OverviewFigures read(const AssistantEnvironment& environment, std::string_view wishedCurrency);
};

} // namespace Quillary
