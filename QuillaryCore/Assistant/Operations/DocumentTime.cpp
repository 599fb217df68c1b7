#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/PrintLocale.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeBilling.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace Quillary {

namespace {

bool isChosen(const TimeEntry& entry, const DocumentSession::Time& time)
{
    return (!time.project || entry.project == *time.project) && (!time.from || entry.start >= time.from) &&
           (!time.until || (entry.start && entry.start < time.until));
}

/// The hours of a line could be more than a quantity may be, where damaged data says that somebody worked for ages.
void requireSaneHours(const std::vector<TimeInvoicing::Line>& lines)
{
    constexpr std::int64_t most = Limits::timeSeconds / 3600 * 1000;
    const auto isTooLong = [](const TimeInvoicing::Line& line) {
        return line.quantityThousandths > most;
    };
    if (std::ranges::any_of(lines, isTooLong)) {
        throw AssistantError("A line can bill a million hours at most.");
    }
}

} // namespace

void DocumentSession::addUnbilledTime()
{
    if (kind(m_document) == DocumentKind::quote) {
        throw AssistantError("“add_unbilled_time” belongs to invoices: a quote bills nothing.");
    }
    if (client() == nullptr) {
        throw AssistantError("“add_unbilled_time” needs a client.");
    }
    const std::size_t count = addTimeLines({});
    m_filledIn.push_back(
        fmt::format("{} time {} of {}", count, count == 1 ? "entry" : "entries", plainText(displayName(*client()))));
}

std::size_t DocumentSession::addTime(const Time& time)
{
    if (kind(m_document).value_or(DocumentKind::invoice) != DocumentKind::invoice) {
        throw AssistantError("Time goes on invoices: no other document bills it.");
    }
    if (client() == nullptr) {
        throw AssistantError("The invoice has no client, so it can't be said whose time it bills.");
    }
    const std::size_t count = addTimeLines(time);
    updateFigures();
    return count;
}

std::size_t DocumentSession::addTimeLines(const Time& time)
{
    Context& context = m_environment.context;
    std::vector<const TimeEntry*> entries = TimeBilling::unbilled(context, *client());
    std::erase_if(entries, [&](const TimeEntry* entry) { return !isChosen(*entry, time); });
    if (entries.empty()) {
        throw AssistantError(fmt::format("{} has no unbilled time{}.",
                                         plainText(displayName(*client())),
                                         time.project || time.from || time.until ? " like that" : ""));
    }
    const std::int64_t rate = TimeBilling::hourlyRate(client(), business());
    requireTimeCurrency(rate);
    const TimeInvoicing::Terms terms{.grouping = time.grouping,
                                     .hourlyRate = rate,
                                     .roundingMinutes = time.roundingMinutes.value_or(business().timeRoundingMinutes),
                                     .language = language(m_document)};
    const Locale& locale = printLocale(terms.language, business().countryCode);
    const std::vector<TimeInvoicing::Line> lines =
        TimeInvoicing::lines(context, entries, terms, m_environment.clock.now(), m_environment.calendar, locale);
    requireSaneHours(lines);
    const Desk desk{.context = context, .business = business(), .calendar = m_environment.calendar};
    TimeBilling::addLines(desk, m_document, lines, entries, nextSortIndex(), defaultRate());
    return entries.size();
}

/// Hourly rates are kept in the business's currency, and nothing is converted.
void DocumentSession::requireTimeCurrency(std::int64_t hourlyRate) const
{
    const std::string& own = business().currencyCode;
    if (hourlyRate != 0 && m_document.currencyCode != own) {
        throw AssistantError(
            fmt::format("The hourly rate is in {}, this document in {}. Set the document's currency to {}, or add the "
                        "hours with add_lines and their price.",
                        own,
                        m_document.currencyCode,
                        own));
    }
}

} // namespace Quillary
