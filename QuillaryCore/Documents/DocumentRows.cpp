#include "QuillaryCore/Documents/DocumentRows.h"

#include "QuillaryCore/Documents/ListedFacts.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/KeyRuns.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <tuple>
#include <utility>

namespace Quillary {

namespace {

constexpr std::string_view betweenKeys = "AND id BETWEEN ?2 AND ?3";
constexpr std::string_view furtherColumns = ", number, title, currencyCode, issueDate FROM Document";
constexpr int numberColumn = ListedFacts::count;
constexpr int titleColumn = numberColumn + 1;
constexpr int currencyColumn = titleColumn + 1;
constexpr int issueDateColumn = currencyColumn + 1;

/// A document whose kind can't be read is treated as an invoice everywhere.
constexpr std::string_view ofKind = "WHERE (kindRaw = ?1 OR (?1 = 0 AND kindRaw NOT IN (0, 1, 2, 3)))";

/// So many rows may always have been replaced since they were all read.
constexpr std::size_t fewestForgotten = 1000;

/// Leaves out what is gone, and puts what came in, the slots from `first` on, where it belongs.
template <class Before>
void follow(std::vector<RowTexts::Slot>& slots,
            const std::vector<bool>& isGone,
            RowTexts::Slot first,
            const Before& before)
{
    std::erase_if(slots, [&isGone](RowTexts::Slot slot) { return isGone[slot]; });
    const auto kept = static_cast<std::ptrdiff_t>(slots.size());
    slots.resize(slots.size() + isGone.size() - first);
    const auto fresh = slots.begin() + kept;
    std::iota(fresh, slots.end(), first);
    if (!std::is_sorted(fresh, slots.end(), before)) {
        std::reverse(fresh, slots.end()); // mostly read in the order of their keys, the oldest first
    }
    if (!std::is_sorted(fresh, slots.end(), before)) {
        std::sort(fresh, slots.end(), before);
    }
    std::inplace_merge(slots.begin(), fresh, slots.end(), before);
}

} // namespace

void DocumentRows::load(Context& context, Instant today, const Calendar& calendar, std::optional<std::size_t> limit)
{
    clear();
    if (limit) {
        read(context, "ORDER BY issueDate DESC, id DESC LIMIT ?2 OFFSET ?3", std::int64_t(*limit), 0, today, calendar);
    } else {
        using Keys = std::numeric_limits<Key>;
        read(context, betweenKeys, Keys::min(), Keys::max(), today, calendar);
    }
    arrangeFrom(0);
    m_isWhole = !limit || size() < *limit;
}

void DocumentRows::read(Context& context,
                        std::string_view condition,
                        std::int64_t first,
                        std::int64_t second,
                        Instant today,
                        const Calendar& calendar)
{
    Document facts;
    context.query(
        fmt::format("{}{} {} {}", ListedFacts::selection, furtherColumns, ofKind, condition),
        [&](const Statement& row) { add(row, facts, today, calendar); },
        static_cast<std::int16_t>(m_kind),
        first,
        second);
    m_texts.clients().readNames(context);
}

/// `facts` serves from row to row.
void DocumentRows::add(const Statement& row, Document& facts, Instant today, const Calendar& calendar)
{
    ListedFacts::read(row, facts);
    facts.tags = row.text(ListedFacts::tags);
    m_facts.push_back({.key = facts.ref.key(),
                       .issueDate = row.instant(issueDateColumn),
                       .dueDate = kind(facts) == DocumentKind::quote ? facts.validUntil : facts.dueDate,
                       .project = facts.project.key(),
                       .status = displayStatus(facts, today, calendar)});
    m_amounts.push_back({.total = facts.cachedTotalMinorUnits,
                         .due = acceptsPayments(facts) ? cachedAmountDueMinorUnits(facts) : 0,
                         .currency = currency(row.text(currencyColumn))});
    m_texts.add(row.text(numberColumn),
                row.text(titleColumn),
                facts.client.key(),
                facts.tags.empty() ? std::vector<std::string>() : tagList(facts));
}

std::uint32_t DocumentRows::currency(std::string_view code)
{
    auto found = m_currencyPlaces.find(code);
    if (found == m_currencyPlaces.end()) {
        found = m_currencyPlaces.emplace(code, static_cast<std::uint32_t>(m_currencies.size())).first;
        m_currencies.emplace_back(code);
    }
    return found->second;
}

bool DocumentRows::update(Context& context, const ChangeSet& changes, Instant today, const Calendar& calendar)
{
    const RecordChanges& documents = changes.of<Document>();
    const RecordChanges& clients = changes.of<Client>();
    const bool isRenamed = m_texts.clients().rename(context, clients.changed);
    std::vector<Key> keys = documents.inserted;
    keys.insert(keys.end(), documents.changed.begin(), documents.changed.end());
    if (!clients.deleted.empty()) {
        for (const Slot slot : m_slots) {
            if (std::ranges::binary_search(clients.deleted, m_texts.clientKey(slot))) {
                keys.push_back(m_facts[slot].key);
            }
        }
    }
    std::ranges::sort(keys);
    keys.erase(std::ranges::unique(keys).begin(), keys.end());
    const bool hasLost = int(remove(documents.deleted)) + int(remove(keys)) > 0;
    const auto first = static_cast<Slot>(m_facts.size());
    forEachRun(keys, 1, [&](Key from, Key to) { read(context, betweenKeys, from, to, today, calendar); });
    const bool isOther = hasLost || m_facts.size() != first; // else: of other kinds, all of them
    if (isOther && first > 2 * size() + fewestForgotten) {
        load(context, today, calendar); // most of what is kept is what was
    } else if (isOther) {
        arrangeFrom(first);
    }
    m_arranged.reset();
    return isOther || isRenamed;
}

bool DocumentRows::remove(std::span<const Key> keys)
{
    bool hasLost = false;
    for (const Key key : keys) {
        if (const std::optional<Slot> gone = slot(key)) {
            m_isGone[*gone] = true;
            m_texts.remove(*gone);
            hasLost = true;
        }
    }
    return hasLost;
}

/// The slots from `first` on are new.
void DocumentRows::arrangeFrom(Slot first)
{
    m_isGone.resize(m_facts.size());
    follow(m_slots, m_isGone, first, [this](Slot left, Slot right) { return isNewer(left, right); });
    follow(m_slotsByKey, m_isGone, first, [this](Slot left, Slot right) {
        return m_facts[left].key < m_facts[right].key;
    });
    m_places.resize(m_facts.size());
    for (std::uint32_t place = 0; place < m_slots.size(); ++place) {
        m_places[m_slots[place]] = place;
    }
}

/// The newest first; what has no date is older than everything.
bool DocumentRows::isNewer(Slot left, Slot right) const
{
    return std::tie(m_facts[left].issueDate, m_facts[left].key) >
           std::tie(m_facts[right].issueDate, m_facts[right].key);
}

void DocumentRows::clear()
{
    *this = DocumentRows(m_kind);
}

DocumentRows::Row DocumentRows::row(std::uint32_t place) const
{
    const Slot slot = m_slots[place];
    const Facts& facts = m_facts[slot];
    const Amounts& amounts = m_amounts[slot];
    return {.key = facts.key,
            .status = facts.status,
            .number = m_texts.number(slot),
            .title = m_texts.title(slot),
            .clientName = m_texts.clientName(slot),
            .currencyCode = m_currencies[amounts.currency],
            .issueDate = facts.issueDate,
            .dueDate = facts.dueDate,
            .totalMinorUnits = amounts.total,
            .dueMinorUnits = amounts.due,
            .client = m_texts.clientKey(slot),
            .project = facts.project};
}

std::optional<DocumentRows::Slot> DocumentRows::slot(Key key) const
{
    const auto found = std::ranges::lower_bound(m_slotsByKey, key, {}, [this](Slot slot) { return m_facts[slot].key; });
    const bool isThere = found != m_slotsByKey.end() && m_facts[*found].key == key && !m_isGone[*found];
    return isThere ? std::optional(*found) : std::nullopt;
}

std::optional<std::uint32_t> DocumentRows::place(Key key) const
{
    const std::optional<Slot> found = slot(key);
    return found ? std::optional(m_places[*found]) : std::nullopt;
}

} // namespace Quillary
