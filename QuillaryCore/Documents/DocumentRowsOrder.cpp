// Which rows a list shows, and in which order. A hundred thousand of them are sorted within a frame: what they are
// compared by is gathered side by side first, since rows lie far apart in memory.
#include "QuillaryCore/Documents/DocumentRows.h"
#include "QuillaryCore/Foundation/Text.h"

#include <algorithm>
#include <limits>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

using Row = DocumentRows::Row;
using Places = std::vector<std::uint32_t>;

/// A day that isn't there lies in no bounds.
bool isWithin(const std::optional<Instant>& day, const std::optional<Instant>& start, const std::optional<Instant>& end)
{
    return (!start || (day && *day >= *start)) && (!end || (day && *day < *end));
}

bool fits(const Row& row,
          const DocumentRows::Filter& filter,
          std::span<const std::string> words,
          const std::string& tagLine)
{
    // The cheap questions first.
    return (!filter.client || row.client == *filter.client) && (!filter.project || row.project == *filter.project) &&
           (filter.statuses.empty() || std::ranges::find(filter.statuses, row.status) != filter.statuses.end()) &&
           isWithin(row.issueDate, filter.start, filter.end) && isWithin(row.dueDate, filter.dueStart, filter.dueEnd) &&
           (filter.currencyCode.empty() || row.currencyCode == filter.currencyCode) &&
           (tagLine.empty() || row.foldedTags.find(tagLine) != std::string::npos) &&
           std::ranges::all_of(
               words, [&row](const std::string& word) { return row.foldedText.find(word) != std::string::npos; });
}

std::vector<std::string> wordsOf(std::string_view text)
{
    std::vector<std::string> words;
    const std::string whole = folded(text);
    for (const std::string_view word : split(whole, ' ')) {
        if (!word.empty()) {
            words.emplace_back(word);
        }
    }
    return words;
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
std::size_t commonPrefix(std::span<const Row> rows, const Places& places, std::string Row::* text)
{
    const std::string& first = rows[places.front()].*text;
    std::size_t length = first.size();
    for (const std::uint32_t place : places) {
        const std::string& other = rows[place].*text;
        const auto end = first.begin() + static_cast<std::ptrdiff_t>(length);
        length = static_cast<std::size_t>(std::mismatch(first.begin(), end, other.begin(), other.end()).first -
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

void sortByText(std::span<const Row> rows, Places& places, DocumentRows::Order order, std::string Row::* text)
{
    struct Keyed
    {
        std::uint64_t head;
        std::uint32_t place;
    };
    if (places.empty()) {
        return;
    }
    const std::size_t prefix = commonPrefix(rows, places, text);
    std::vector<Keyed> keyed;
    keyed.reserve(places.size());
    for (const std::uint32_t place : places) {
        keyed.push_back({head(std::string_view(rows[place].*text).substr(prefix)), place});
    }
    const bool isAscending = order == DocumentRows::Order::ascending;
    std::ranges::sort(keyed, [&](const Keyed& left, const Keyed& right) {
        if (left.head != right.head) {
            return (left.head < right.head) == isAscending;
        }
        const int compared = (rows[left.place].*text).compare(rows[right.place].*text);
        return compared == 0 ? left.place < right.place : (compared < 0) == isAscending;
    });
    std::ranges::transform(keyed, places.begin(), &Keyed::place);
}

/// The place of each row's client in the order of their names, without regard to case and accents.
std::vector<std::uint32_t> clientRanks(std::span<const Row> rows)
{
    std::unordered_map<DocumentRows::Key, std::uint32_t> numbers; // the clients as they come
    std::vector<std::pair<std::string, std::uint32_t>> names;
    std::vector<std::uint32_t> ranks;
    ranks.reserve(rows.size());
    for (const Row& row : rows) {
        const auto [number, isNew] = numbers.try_emplace(row.client, static_cast<std::uint32_t>(names.size()));
        if (isNew) {
            names.emplace_back(folded(row.clientName), number->second);
        }
        ranks.push_back(number->second);
    }
    std::ranges::sort(names);
    std::vector<std::uint32_t> rankOf(names.size());
    for (std::uint32_t rank = 0; rank < names.size(); ++rank) {
        rankOf[names[rank].second] = rank;
    }
    std::ranges::transform(ranks, ranks.begin(), [&rankOf](std::uint32_t number) { return rankOf[number]; });
    return ranks;
}

Places fitting(std::span<const Row> rows, const DocumentRows::Filter& filter)
{
    const std::vector<std::string> words = wordsOf(filter.text);
    const std::string tagLine = filter.tag.empty() ? "" : "\n" + folded(filter.tag) + "\n";
    Places places;
    places.reserve(rows.size());
    for (std::uint32_t place = 0; place < rows.size(); ++place) {
        if (fits(rows[place], filter, words, tagLine)) {
            places.push_back(place);
        }
    }
    return places;
}

} // namespace

std::vector<std::uint32_t> DocumentRows::arranged(const Filter& filter, Column column, Order order) const
{
    Places places = fitting(m_rows, filter);
    switch (column) {
    case Column::number:
        sortByText(m_rows, places, order, &Row::number);
        break;
    case Column::title:
        sortByText(m_rows, places, order, &Row::title);
        break;
    case Column::client: {
        const std::vector<std::uint32_t> ranks = clientRanks(m_rows);
        sortByFigure(places, order, [&](std::uint32_t place) { return std::int64_t(ranks[place]); });
        break;
    }
    case Column::issueDate:
        sortByFigure(places, order, [this](std::uint32_t place) { return figureOf(m_rows[place].issueDate); });
        break;
    case Column::dueDate:
        sortByFigure(places, order, [this](std::uint32_t place) { return figureOf(m_rows[place].dueDate); });
        break;
    case Column::total:
        sortByFigure(places, order, [this](std::uint32_t place) { return m_rows[place].totalMinorUnits; });
        break;
    case Column::due:
        sortByFigure(places, order, [this](std::uint32_t place) { return m_rows[place].dueMinorUnits; });
        break;
    case Column::status:
        sortByFigure(places, order, [this](std::uint32_t place) { return std::int64_t(m_rows[place].status); });
        break;
    }
    return places;
}

} // namespace Quillary
