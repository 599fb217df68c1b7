#include "QuillaryUI/Reports/ReportAnswer.h"

#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Reports/ReportData.h"

#include <algorithm>
#include <utility>

namespace Quillary {

namespace {

std::vector<std::string> currenciesOf(const AssistantEnvironment& environment)
{
    const std::string& own = environment.ownBusiness().currencyCode;
    std::vector<std::string> codes =
        ReportData::currencies(environment.context, ReportPeriod::all().range(environment.calendar));
    for (std::string& code : ReportData::openCurrencies(environment.context)) {
        if (std::ranges::find(codes, code) == codes.end()) {
            codes.push_back(std::move(code));
        }
    }
    std::erase(codes, own);
    codes.insert(codes.begin(), own);
    return codes;
}

} // namespace

ReportAnswer ReportAnswer::read(const AssistantEnvironment& environment, ReportOrder order)
{
    ReportAnswer answer{.currencies = currenciesOf(environment), .report = {}};
    if (std::ranges::find(answer.currencies, order.currencyCode) == answer.currencies.end()) {
        order.currencyCode = answer.currencies.front();
    }
    answer.report = FinishedReport::make(
        environment.context,
        order,
        {.now = environment.clock.now(), .calendar = environment.calendar, .locale = environment.locale});
    return answer;
}

} // namespace Quillary
