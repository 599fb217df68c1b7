#include "QuillaryUI/Overview/OverviewFigures.h"

#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Reports/ReportData.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryCore/Store/StoreError.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

namespace Quillary {

namespace {

/// Reports go on with nothing where something can't be read; a window must not show that as zeros.
void readWholly(const AssistantEnvironment& environment, const std::function<void()>& read)
{
    Store& store = environment.context.store();
    store.forgetFailure(); // one of before is none of these figures
    read();
    if (const std::optional<StoreError> failure = store.lastFailure()) {
        throw StoreError(*failure);
    }
}

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
    readWholly(environment, [&] {
        figures.money = MoneyOverview::of(environment);
        figures.currencies = Quillary::currencies(environment);
        const bool isThere = std::ranges::find(figures.currencies, wishedCurrency) != figures.currencies.end();
        figures.year = readYear(environment, isThere ? std::string(wishedCurrency) : figures.currencies.front());
    });
    return figures;
}

OverviewFigures OverviewRequest::read() const
{
    Store store = Store::openReadOnly(Store::Location::directory(library), DataModel::records(), DataModel::history());
    const FixedClock clock(now);
    RandomUUIDSource uuids; // never asked: nothing is made
    Context context(store, clock, uuids);
    return OverviewFigures::read({.context = context,
                                  .business = business,
                                  .host = nullptr,
                                  .assistantName = {},
                                  .clock = clock,
                                  .calendar = calendar,
                                  .locale = locale},
                                 wishedCurrency);
}

} // namespace Quillary
