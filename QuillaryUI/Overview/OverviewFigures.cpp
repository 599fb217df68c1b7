#include "QuillaryUI/Overview/OverviewFigures.h"

#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Reports/ReportData.h"

#include <algorithm>
#include <set>
#include <utility>

namespace Quillary {

namespace {

std::chrono::year thisYear(const AssistantEnvironment& environment)
{
    return environment.calendar.date(environment.clock.now()).year();
}

std::vector<std::string> currencies(const AssistantEnvironment& environment)
{
    const std::string& own = environment.ownBusiness().currencyCode;
    const std::chrono::year year = thisYear(environment);
    const Calendar& calendar = environment.calendar;
    const DateRange years{calendar.startOfDay((year - std::chrono::years(1)) / std::chrono::January / 1),
                          calendar.startOfDay((year + std::chrono::years(1)) / std::chrono::January / 1)};
    std::set<std::string> others;
    for (std::string& code : ReportData::currencies(environment.context, years)) {
        others.insert(std::move(code));
    }
    for (std::string& code : ReportData::openCurrencies(environment.context)) {
        others.insert(std::move(code));
    }
    others.erase(own);
    std::vector<std::string> all{own};
    all.insert(all.end(), others.begin(), others.end());
    return all;
}

OverviewFigures::Year readYear(const AssistantEnvironment& environment, std::string currencyCode)
{
    Context& context = environment.context;
    const Calendar& calendar = environment.calendar;
    const std::chrono::year year = thisYear(environment);
    OverviewFigures::Year figures;
    figures.thisYear = MonthlyIncome::make(context, year, calendar, currencyCode);
    figures.lastYear = MonthlyIncome::make(context, year - std::chrono::years(1), calendar, currencyCode);
    figures.aging = AgingReport::make(context, environment.clock.now(), calendar, currencyCode);
    figures.currencyCode = std::move(currencyCode);
    return figures;
}

} // namespace

OverviewFigures OverviewFigures::read(const AssistantEnvironment& environment, std::string_view wishedCurrency)
{
    OverviewFigures figures;
    figures.money = MoneyOverview::of(environment);
    figures.currencies = Quillary::currencies(environment);
    const bool isThere = std::ranges::find(figures.currencies, wishedCurrency) != figures.currencies.end();
    figures.year = readYear(environment, isThere ? std::string(wishedCurrency) : figures.currencies.front());
    return figures;
}

} // namespace Quillary
