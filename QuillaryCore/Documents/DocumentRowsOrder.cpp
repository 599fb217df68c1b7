// Which rows a list shows, and in which order. A hundred thousand of them are sorted within a frame: what they are
// compared by is gathered side by side first, since rows lie far apart in memory.
#include "QuillaryCore/Documents/DocumentRows.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

using Places = std::vector<std::uint32_t>;

/// A day that isn't there lies in no bounds.
bool isWithin(const std::optional<Instant>& day, const std::optional<Instant>& start, const std::optional<Instant>& end)
{
    return (!start || (day && *day >= *start)) && (!end || (day && *day < *end));
}

/// Sorts by a number that stands for what a column shows; equal ones stay in the order of their places.
template <class Figure>
void sortByFigure(Places& places, DocumentRows::Order order, const Figure& figure)
{
    std::vector<std::pair<std::int64_t, std::uint32_t>> keyed;
    keyed.reserve(places.size());
    for (const std::uint32_t place : places) {
        const std::int64_t value = figure(place);
        keyed.emplace_back(order == DocumentRows::Order::ascending ? value : ~value, place); // ~ turns the order round
    }
    if (!std::ranges::is_sorted(keyed)) {
        std::ranges::sort(keyed);
    }
    std::ranges::transform(keyed, places.begin(), [](const auto& one) { return one.second; });
}

/// A day as a number; none comes before all of them.
std::int64_t figureOf(const std::optional<Instant>& day)
{
    return day ? day->time_since_epoch().count() : std::numeric_limits<std::int64_t>::min();
}

/// What all texts begin with. Numbers of a business differ behind it at once.
template <class Text>
std::size_t commonPrefix(const Places& places, const Text& text)
{
    const std::string_view first = text(places.front());
    std::size_t length = first.size();
    for (const std::uint32_t place : places) {
        const std::string_view other = text(place);
        length = std::min(length, other.size());
        length = static_cast<std::size_t>(std::mismatch(first.begin(), first.begin() + length, other.begin()).first -
                                          first.begin());
    }
    return length;
}

/// Eight bytes as a number that sorts as they do.
std::uint64_t head(std::string_view text)
{
    std::uint64_t value = 0;
    for (std::size_t index = 0; index < sizeof value; ++index) {
        value = value << 8U | (index < text.size() ? static_cast<unsigned char>(text[index]) : 0U);
    }
    return value;
}

/// The same by a text, byte by byte.
template <class Text>
void sortByText(Places& places, DocumentRows::Order order, const Text& text)
{
    struct Keyed
    {
        std::uint64_t head;
        std::uint32_t place;
    };
    if (places.empty()) {
        return;
    }
    const std::size_t prefix = commonPrefix(places, text);
    std::vector<Keyed> keyed;
    keyed.reserve(places.size());
    for (const std::uint32_t place : places) {
        keyed.push_back({head(text(place).substr(prefix)), place});
    }
    const bool isAscending = order == DocumentRows::Order::ascending;
    std::ranges::sort(keyed, [&](const Keyed& left, const Keyed& right) {
        if (left.head != right.head) {
            return (left.head < right.head) == isAscending;
        }
        const int compared = text(left.place).compare(text(right.place));
        return compared == 0 ? left.place < right.place : (compared < 0) == isAscending;
    });
    std::ranges::transform(keyed, places.begin(), &Keyed::place);
}

/// The marked ones of `places`.
Places marked(const Places& places, const std::vector<std::uint8_t>& marks)
{
    Places result(places.size());
    std::size_t count = 0;
    for (const std::uint32_t place : places) { // without a branch: whether a row fits can't be foreseen
        result[count] = place;
        count += marks[place];
    }
    result.resize(count);
    return result;
}

Places upTo(std::size_t count)
{
    Places places(count);
    std::iota(places.begin(), places.end(), 0U);
    return places;
}

} // namespace

std::vector<std::uint32_t> DocumentRows::arranged(const Filter& filter, Column column, Order order) const
{
    constexpr std::size_t fewInRows = 8; // up to one in so many, they alone are sorted
    const std::optional<Marks> marks = fitting(filter);
    if (!marks) {
        return allBy(column, order);
    }
    const auto count = static_cast<std::size_t>(std::ranges::count(*marks, 1));
    const bool isReady = m_arranged && m_arranged->column == column && m_arranged->order == order;
    if (isReady || count * fewInRows > size()) {
        return marked(allBy(column, order), *marks);
    }
    Places places = marked(upTo(size()), *marks);
    sort(places, column, order);
    return places;
}

/// No value: all of them fit.
std::optional<DocumentRows::Marks> DocumentRows::fitting(const Filter& filter) const
{
    Filter facts = filter;
    facts.text.clear();
    const bool asksForFacts = facts != Filter();
    const Marks found = m_texts.holding(filter.text);
    if (found.empty() && !asksForFacts) {
        return std::nullopt;
    }
    Marks marks(size(), 1);
    if (!found.empty()) {
        std::ranges::transform(m_slots, marks.begin(), [&found](Slot slot) { return found[slot]; });
    }
    if (asksForFacts) {
        const std::string tag = filter.tag.empty() ? std::string() : RowTexts::preparedTag(filter.tag);
        for (std::uint32_t place = 0; place < marks.size(); ++place) {
            marks[place] = marks[place] != 0 && fits(m_slots[place], filter, tag) ? 1 : 0;
        }
    }
    return marks;
}

/// But for the words. The cheap questions come first.
bool DocumentRows::fits(Slot slot, const Filter& filter, std::string_view tag) const
{
    const Facts& facts = m_facts[slot];
    return (!filter.client || m_texts.clientKey(slot) == *filter.client) &&
           (!filter.project || facts.project == *filter.project) &&
           (filter.statuses.empty() || std::ranges::find(filter.statuses, facts.status) != filter.statuses.end()) &&
           isWithin(facts.issueDate, filter.start, filter.end) &&
           isWithin(facts.dueDate, filter.dueStart, filter.dueEnd) &&
           (filter.currencyCode.empty() || m_currencies[m_amounts[slot].currency] == filter.currencyCode) &&
           (tag.empty() || m_texts.hasTag(slot, tag));
}

/// Sorted once and kept, so that a letter more in the search doesn't sort.
const DocumentRows::Places& DocumentRows::allBy(Column column, Order order) const
{
    if (!m_arranged || m_arranged->column != column || m_arranged->order != order) {
        Places places = upTo(size());
        sort(places, column, order);
        m_arranged = Arranged{.column = column, .order = order, .places = std::move(places)};
    }
    return m_arranged->places;
}

void DocumentRows::sort(Places& places, Column column, Order order) const
{
    const auto facts = [this](std::uint32_t place) -> const Facts& {
        return m_facts[m_slots[place]];
    };
    const auto amounts = [this](std::uint32_t place) -> const Amounts& {
        return m_amounts[m_slots[place]];
    };
    switch (column) {
    case Column::number:
        sortByText(places, order, [this](std::uint32_t place) { return m_texts.number(m_slots[place]); });
        break;
    case Column::title:
        sortByText(places, order, [this](std::uint32_t place) { return m_texts.title(m_slots[place]); });
        break;
    case Column::client: {
        const std::vector<std::uint32_t> ranks = m_texts.clients().ranks();
        sortByFigure(
            places, order, [&](std::uint32_t place) { return std::int64_t(ranks[m_texts.client(m_slots[place])]); });
        break;
    }
    case Column::issueDate:
        if (order != Order::descending) { // else they are
            sortByFigure(places, order, [&](std::uint32_t place) { return figureOf(facts(place).issueDate); });
        }
        break;
    case Column::dueDate:
        sortByFigure(places, order, [&](std::uint32_t place) { return figureOf(facts(place).dueDate); });
        break;
    case Column::total:
        sortByFigure(places, order, [&](std::uint32_t place) { return amounts(place).total; });
        break;
    case Column::due:
        sortByFigure(places, order, [&](std::uint32_t place) { return amounts(place).due; });
        break;
    case Column::status:
        sortByFigure(places, order, [&](std::uint32_t place) { return std::int64_t(facts(place).status); });
        break;
    }
}

} // namespace Quillary
