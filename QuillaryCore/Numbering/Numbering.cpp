#include "QuillaryCore/Numbering/Numbering.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/NumberSequence.h"
#include "QuillaryCore/Numbering/NumberFormat.h"
#include "QuillaryCore/Numbering/NumberPatterns.h"
#include "QuillaryCore/Numbering/NumberingError.h"
#include "QuillaryCore/Store/StoreError.h"

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <optional>
#include <span>
#include <tuple>
#include <unordered_set>
#include <utility>
#include <vector>

namespace Quillary::Numbering {

namespace {

/// A pattern and the series that it counts in.
struct Series
{
    NumberFormat format;
    std::string key;
};

/// What the search for a free number found, and the sentence of the first look-up that failed on the way.
struct Found
{
    Next next;
    std::string failure;
};

NumberFormat formatOf(NumberedKind kind, const Business& business)
{
    try {
        return NumberFormat::parse(format(kind, business), kind);
    } catch (const NumberFormatError& error) {
        throw NumberingError(error);
    }
}

Series
seriesOf(NumberedKind kind, Instant date, const Client* client, const Business& business, const Calendar& calendar)
{
    NumberFormat format = formatOf(kind, business);
    std::string key = format.sequenceKey(kind, date, client != nullptr ? client->uuid : std::nullopt, calendar);
    return {std::move(format), std::move(key)};
}

std::string_view numberOf(const Client* client)
{
    return client != nullptr ? std::string_view(client->number) : std::string_view();
}

/// The counter handed out last in a series, 0 when there is none. A value below 0 can only come from damage.
std::int64_t lastValue(Context& context, std::string_view key)
{
    std::int64_t last = 0;
    for (const NumberSequence* row : context.fetch<NumberSequence>("key = ?", key)) {
        last = std::max(last, row->lastValue);
    }
    return last;
}

void setLastValue(Context& context, std::string_view key, std::int64_t value)
{
    const auto rows = context.fetch<NumberSequence>("key = ?", key);
    for (const NumberSequence* row : rows) {
        if (row->lastValue != value) {
            context.edit(*row).lastValue = value;
        }
    }
    if (rows.empty()) {
        auto& row = context.insert<NumberSequence>();
        row.key = key;
        row.lastValue = value;
    }
}

std::int64_t counterAfter(std::int64_t last)
{
    if (last == std::numeric_limits<std::int64_t>::max()) {
        throw NumberingError(NumberingError::Reason::noFreeNumber);
    }
    return last + 1;
}

/// Where a number of a kind would clash, as the beginning of a query for the numbers in use. Invoices and credit notes
/// may never carry the same one; recurring templates carry none of their own.
std::string_view usedNumbersOf(NumberedKind kind)
{
    switch (kind) {
    case NumberedKind::invoice:
    case NumberedKind::creditNote:
        return "SELECT number FROM Document WHERE kindRaw IN (0, 2) AND number IN (";
    case NumberedKind::quote:
        return "SELECT number FROM Document WHERE kindRaw = 1 AND number IN (";
    case NumberedKind::client:
        return "SELECT number FROM Client WHERE number IN (";
    }
    precondition(false, "a numbered kind is one of four");
    return {};
}

/// The next candidates of a series, at most `size`: fewer where the counter comes to its end.
std::vector<Next> candidatesAfter(std::int64_t last,
                                  std::size_t size,
                                  const Series& series,
                                  Instant date,
                                  const Client* client,
                                  const Calendar& calendar)
{
    std::vector<Next> candidates;
    do {
        last = counterAfter(last);
        candidates.push_back({series.format.render(last, date, numberOf(client), calendar), last});
    } while (candidates.size() < size && last < std::numeric_limits<std::int64_t>::max());
    return candidates;
}

/// The first candidate that isn't in use, asked in one query of `size` values. No value: all are.
template <std::size_t size>
std::optional<Next> firstFree(Context& context, NumberedKind kind, std::span<const Next> candidates)
{
    std::array<std::string_view, size> numbers;
    std::string sql(usedNumbersOf(kind));
    for (std::size_t i = 0; i < size; ++i) {
        numbers.at(i) = candidates[std::min(i, candidates.size() - 1)].number;
        sql += i == 0 ? "?" : ", ?";
    }
    sql += ')';
    std::unordered_set<std::string> used;
    const auto note = [&used](const Statement& row) {
        used.emplace(row.text(0));
    };
    std::apply([&](const auto&... values) { context.query(sql, note, values...); }, numbers);
    const auto free =
        std::ranges::find_if(candidates, [&used](const Next& candidate) { return !used.contains(candidate.number); });
    return free == candidates.end() ? std::nullopt : std::optional(*free);
}

/// Tries one number after the other. The first is nearly always free; where it isn't, many may be taken (after an
/// import, say), so the search goes on in blocks.
Found findFree(Context& context,
               NumberedKind kind,
               Instant date,
               const Client* client,
               const Series& series,
               const Calendar& calendar)
{
    constexpr std::size_t blockSize = 100;
    std::int64_t last = lastValue(context, series.key);
    for (std::size_t tried = 0; tried < maximumCandidates;) {
        const std::size_t size = tried == 0 ? 1 : std::min(blockSize, maximumCandidates - tried);
        const std::vector<Next> candidates = candidatesAfter(last, size, series, date, client, calendar);
        try {
            const auto free =
                tried == 0 ? firstFree<1>(context, kind, candidates) : firstFree<blockSize>(context, kind, candidates);
            if (free) {
                return {*free, {}};
            }
        } catch (const StoreError& error) {
            return {candidates.front(), error.message()};
        }
        tried += candidates.size();
        last = candidates.back().counter;
    }
    throw NumberingError(NumberingError::Reason::noFreeNumber);
}

/// A sample of a pattern that names the client, made with the first number of the business's client pattern.
std::string clientSample(Context& context,
                         NumberedKind kind,
                         Instant date,
                         const Business& business,
                         const NumberFormat& format,
                         const Calendar& calendar)
{
    const std::string clientNumber = formatOf(NumberedKind::client, business).render(1, date, {}, calendar);
    std::int64_t counter = 1;
    if (format.counter().reset != NumberFormat::Reset::client) {
        counter = counterAfter(lastValue(context, format.sequenceKey(kind, date, std::nullopt, calendar)));
    }
    return format.render(counter, date, clientNumber, calendar);
}

} // namespace

Calendar calendar(std::string_view timeZone)
{
    return Calendar(timeZone);
}

Next peek(Context& context,
          NumberedKind kind,
          Instant date,
          const Client* client,
          const Business& business,
          const Calendar& calendar)
{
    const Series series = seriesOf(kind, date, client, business, calendar);
    return findFree(context, kind, date, client, series, calendar).next;
}

std::string assign(Context& context,
                   NumberedKind kind,
                   Instant date,
                   const Client* client,
                   const Business& business,
                   const Calendar& calendar)
{
    const Series series = seriesOf(kind, date, client, business, calendar);
    Found found = findFree(context, kind, date, client, series, calendar);
    if (!found.failure.empty()) {
        context.refuseSaving("A new number couldn't be checked against the library. " + found.failure);
    }
    setLastValue(context, series.key, found.next.counter);
    return std::move(found.next.number);
}

std::vector<std::string> assignMany(Context& context,
                                    std::size_t count,
                                    const std::function<bool(const std::string&)>& isTaken,
                                    NumberedKind kind,
                                    Instant date,
                                    const Business& business,
                                    const Calendar& calendar)
{
    const Series series = seriesOf(kind, date, nullptr, business, calendar);
    const std::int64_t before = lastValue(context, series.key);
    std::int64_t last = before;
    const CalendarDate day = calendar.date(date);
    std::vector<std::string> numbers;
    numbers.reserve(count);
    // Every counter makes another number, and what is taken has an end, so the search has one too.
    for (std::int64_t next = counterAfter(last);; next = counterAfter(next)) {
        std::string number = series.format.render(next, day, {});
        const bool isFree = !isTaken(number);
        if (isFree && numbers.size() == count) {
            break;
        }
        last = next;
        if (isFree) {
            numbers.push_back(std::move(number));
        }
    }
    if (last != before) {
        setLastValue(context, series.key, last);
    }
    return numbers;
}

bool releaseIfNewest(Context& context,
                     std::string_view number,
                     NumberedKind kind,
                     Instant date,
                     const Client* client,
                     const Business& business,
                     const Calendar& calendar)
{
    if (number.empty()) {
        return false;
    }
    try {
        const Series series = seriesOf(kind, date, client, business, calendar);
        const std::int64_t last = lastValue(context, series.key);
        if (last <= 0 || series.format.render(last, date, numberOf(client), calendar) != number) {
            return false;
        }
        setLastValue(context, series.key, last - 1);
        return true;
    } catch (const NumberingError&) {
        return false; // without a pattern or a client there is no series whose newest number this could be
    }
}

std::int64_t nextCounter(Context& context,
                         NumberedKind kind,
                         Instant date,
                         const Client* client,
                         const Business& business,
                         const Calendar& calendar)
{
    return counterAfter(lastValue(context, seriesOf(kind, date, client, business, calendar).key));
}

void setNextCounter(Context& context,
                    std::int64_t value,
                    NumberedKind kind,
                    Instant date,
                    const Client* client,
                    const Business& business,
                    const Calendar& calendar)
{
    precondition(value >= 1, "a counter starts at 1 or later");
    setLastValue(context, seriesOf(kind, date, client, business, calendar).key, value - 1);
}

std::string
example(Context& context, NumberedKind kind, Instant date, const Business& business, const Calendar& calendar)
{
    const NumberFormat format = formatOf(kind, business);
    if (format.usesClient()) {
        return clientSample(context, kind, date, business, format, calendar);
    }
    return peek(context, kind, date, nullptr, business, calendar).number;
}

} // namespace Quillary::Numbering
