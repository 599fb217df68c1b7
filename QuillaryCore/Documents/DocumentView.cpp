#include "QuillaryCore/Documents/DocumentView.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Store/Context.h"

#include <chrono>
#include <map>
#include <utility>

namespace Quillary {

namespace {

/// The first day of this month, or of one so many before.
Instant monthStart(Instant today, int monthsBack, const Calendar& calendar)
{
    const CalendarDate date = calendar.date(today);
    return calendar.startOfDay((date.year() / date.month() - std::chrono::months(monthsBack)) / std::chrono::day(1));
}

std::optional<Instant> start(DocumentView::Period period, Instant today, const Calendar& calendar)
{
    switch (period) {
    case DocumentView::Period::anyTime:
        return std::nullopt;
    case DocumentView::Period::thisMonth:
        return monthStart(today, 0, calendar);
    case DocumentView::Period::threeMonths:
        return monthStart(today, 2, calendar);
    case DocumentView::Period::twelveMonths:
        return monthStart(today, 11, calendar);
    }
    return std::nullopt;
}

} // namespace

DocumentRows::Filter DocumentView::filter(Instant today, const Calendar& calendar) const
{
    DocumentRows::Filter filter{.text = text, .tag = tag, .currencyCode = currencyCode};
    filter.start = start(period, today, calendar);
    filter.client = client;
    filter.project = project;
    if (status) {
        filter.statuses = {*status};
    }
    if (dueWithinDays) {
        filter.dueStart = calendar.startOfDay(today);
        filter.dueEnd = calendar.startOfDay(calendar.addingDays(today, *dueWithinDays + 1));
        if (!status) {
            filter.statuses = {DisplayStatus::sent, DisplayStatus::partlyPaid};
        }
    }
    return filter;
}

std::vector<std::string> usedTags(Context& context, DocumentKind kind)
{
    std::map<std::string, std::string> byFolded;
    Document facts;
    context.query(
        "SELECT DISTINCT tags FROM Document WHERE kindRaw = ? AND tags <> ''",
        [&](const Statement& row) {
            facts.tags = row.text(0);
            for (std::string& tag : tagList(facts)) {
                std::string key = folded(tag);
                byFolded.try_emplace(std::move(key), std::move(tag));
            }
        },
        static_cast<std::int16_t>(kind));
    std::vector<std::string> tags;
    tags.reserve(byFolded.size());
    for (auto& [key, tag] : byFolded) {
        tags.push_back(std::move(tag));
    }
    return tags;
}

std::vector<std::string> usedCurrencies(Context& context, DocumentKind kind)
{
    std::vector<std::string> codes;
    context.query(
        "SELECT DISTINCT currencyCode FROM Document WHERE kindRaw = ? ORDER BY currencyCode",
        [&](const Statement& row) { codes.emplace_back(row.text(0)); },
        static_cast<std::int16_t>(kind));
    return codes;
}

} // namespace Quillary
