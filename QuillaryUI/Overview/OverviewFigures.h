#pragma once

#include "QuillaryCore/Assistant/Operations/MoneyOverview.h"
#include "QuillaryCore/Reports/AgingReport.h"
#include "QuillaryCore/Reports/MonthlyIncome.h"

#include <filesystem>
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
    /// Throws: `StoreError`; figures that could not be read are none.
    [[nodiscard]] static OverviewFigures read(const AssistantEnvironment& environment, std::string_view wishedCurrency);
};

/// All that it takes to read the figures on another thread, beside the library in use: what is saved, and nothing of it
/// is shared with that.
struct OverviewRequest
{
    std::filesystem::path library; ///< the folder; not of one in memory
    Ref<Business> business;
    Instant now;
    Calendar calendar;
    Locale locale;
    std::string wishedCurrency;

    /// Throws: `StoreError`.
    [[nodiscard]] OverviewFigures read() const;
};

} // namespace Quillary
