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
        MonthlyIncome thisYear;
        MonthlyIncome lastYear;
        AgingReport aging;
    };

    std::vector<MoneyOverview> money;
    std::vector<std::string> currencies; ///< in which something came in or is owed; the business's own first

    /// Throws: `StoreError`; figures that could not be read are none.
    [[nodiscard]] static OverviewFigures read(const AssistantEnvironment& environment);
    [[nodiscard]] static Year readYear(const AssistantEnvironment& environment, std::string_view currencyCode);
};

} // namespace Quillary
