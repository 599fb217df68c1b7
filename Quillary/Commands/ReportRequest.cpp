#include "Quillary/Commands/ReportRequest.h"

#include "Quillary/AppEnvironment.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Reports/ReportPeriod.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"

#include <fmt/format.h>

#include <optional>
#include <string_view>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

CalendarDate typedDate(const std::string& text, std::string_view option)
{
    if (const std::optional<CalendarDate> date = parseISODate(text)) {
        return *date;
    }
    throw UserError(fmt::format("{} must be a day written as YYYY-MM-DD, not “{}”.", option, text));
}

ReportPeriod typedPeriod(const ReportRequest& request, CalendarDate today)
{
    const bool hasDays = !request.from.empty() || !request.to.empty();
    if (hasDays) {
        constexpr ReportPeriod all = ReportPeriod::all();
        const ReportPeriod period{request.from.empty() ? all.first : typedDate(request.from, "--from"),
                                  request.to.empty() ? all.last : typedDate(request.to, "--to")};
        if (period.first > period.last) {
            throw UserError(fmt::format("--from {} is after --to {}.", request.from, request.to));
        }
        return period;
    }
    const std::string words = request.period.empty() ? "this-year" : request.period;
    if (const std::optional<ReportPeriod> period = ReportPeriod::parse(words, today)) {
        return *period;
    }
    throw UserError(fmt::format("There is no period “{}”. Write for example this-quarter, last-month, 2026, 2026-Q3, "
                                "2026-07, last-12-months, year-to-date or all.",
                                words));
}

std::string currencyCode(const ReportRequest& request, const Business* business)
{
    const std::string code =
        request.currency.empty() && business != nullptr ? business->currencyCode : upperCasedASCII(request.currency);
    if (!request.currency.empty() && !Currencies::isKnown(code)) {
        throw UserError(fmt::format("--currency must be an ISO currency code such as EUR, not {}.", request.currency));
    }
    if (code.empty()) {
        throw UserError("The library has no business whose currency could be meant. Name one with --currency.");
    }
    return code;
}

} // namespace

FinishedReport ReportRequest::report(const fs::path& library, AppEnvironment& environment) const
{
    Store store = Store::openReadOnly(Store::Location::directory(library), DataModel::records(), DataModel::history());
    Context context(store, environment.clock(), environment.uuids());
    const Calendar calendar = environment.calendar();
    const Instant now = environment.clock().now();
    const bool hasPeriod = kind != ReportOrder::Kind::aging;
    const ReportOrder order{.kind = kind,
                            .period = hasPeriod ? typedPeriod(*this, calendar.date(now)) : ReportPeriod::all(),
                            .basis = reportBasisFromRaw(basis).value_or(ReportBasis::invoiced),
                            .currencyCode = currencyCode(*this, business(context))};
    return FinishedReport::make(context, order, {.now = now, .calendar = calendar, .locale = environment.locale()});
}

} // namespace Quillary
