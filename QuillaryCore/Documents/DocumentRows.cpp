#include "QuillaryCore/Documents/DocumentRows.h"

#include "QuillaryCore/Documents/ListedFacts.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientNames.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace Quillary {

namespace {

constexpr std::string_view furtherColumns = ", number, title, currencyCode, issueDate FROM Document";
/// A document whose kind can't be read is treated as an invoice everywhere.
constexpr std::string_view ofKind = "WHERE (kindRaw = ?1 OR (?1 = 0 AND kindRaw NOT IN (0, 1, 2, 3)))";

void readFurther(const Statement& row, Document& facts)
{
    facts.tags = row.text(ListedFacts::tags);
    facts.number = row.text(ListedFacts::count);
    facts.title = row.text(ListedFacts::count + 1);
    facts.currencyCode = row.text(ListedFacts::count + 2);
    facts.issueDate = row.instant(ListedFacts::count + 3);
}

std::string foldedTagText(const Document& facts)
{
    std::string text;
    if (!facts.tags.empty()) {
        for (const std::string& tag : tagList(facts)) {
            text += "\n" + folded(tag);
        }
        text += "\n";
    }
    return text;
}

DocumentRows::Row rowOf(const Document& facts, Instant today, const Calendar& calendar)
{
    DocumentRows::Row row{.key = facts.ref.key(),
                          .status = displayStatus(facts, today, calendar),
                          .daysOverdue = 0,
                          .number = facts.number,
                          .title = facts.title,
                          .clientName = {},
                          .currencyCode = facts.currencyCode,
                          .foldedText = {},
                          .foldedTags = foldedTagText(facts),
                          .issueDate = facts.issueDate,
                          .dueDate = kind(facts) == DocumentKind::quote ? facts.validUntil : facts.dueDate,
                          .totalMinorUnits = facts.cachedTotalMinorUnits,
                          .dueMinorUnits = 0,
                          .client = facts.client.key(),
                          .project = facts.project.key()};
    if (row.status == DisplayStatus::overdue) {
        row.daysOverdue = daysOverdue(facts, today, calendar);
    }
    if (acceptsPayments(facts)) {
        row.dueMinorUnits = cachedAmountDueMinorUnits(facts);
    }
    return row;
}

/// The newest first; what has no date is older than everything.
bool isNewer(const DocumentRows::Row& left, const DocumentRows::Row& right)
{
    return std::tuple(left.issueDate, left.key) > std::tuple(right.issueDate, right.key);
}

void nameClients(Context& context, std::vector<DocumentRows::Row>& rows)
{
    std::vector<std::int64_t> keys;
    keys.reserve(rows.size());
    for (const DocumentRows::Row& row : rows) {
        if (row.client != 0) {
            keys.push_back(row.client);
        }
    }
    const ClientNames names(context, std::move(keys));
    std::unordered_map<std::int64_t, std::string> foldedNames;
    for (DocumentRows::Row& row : rows) {
        row.foldedText = folded(fmt::format("{}\n{}", row.number, row.title));
        const ClientNames::Client* client = names.find(row.client);
        if (client != nullptr) {
            row.clientName = client->name;
            std::string& name = foldedNames[row.client];
            if (name.empty()) {
                name = folded(client->name);
            }
            row.foldedText += "\n" + name;
        }
        row.foldedText += row.foldedTags;
    }
}

void add(std::int64_t& sum, std::int64_t amount)
{
    // Every stored amount is within `Limits`; only a foreign library could get there.
    if (__builtin_add_overflow(sum, amount, &sum)) {
        sum = amount < 0 ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
    }
}

DocumentStatus storedStatus(DisplayStatus status)
{
    switch (status) {
    case DisplayStatus::draft:
        return DocumentStatus::draft;
    case DisplayStatus::sent:
    case DisplayStatus::partlyPaid:
    case DisplayStatus::overdue:
    case DisplayStatus::expired:
        return DocumentStatus::sent;
    case DisplayStatus::paid:
        return DocumentStatus::paid;
    case DisplayStatus::accepted:
        return DocumentStatus::accepted;
    case DisplayStatus::declined:
        return DocumentStatus::declined;
    }
    return DocumentStatus::draft;
}

/// Which actions are open to all documents that were added.
class CommonActions
{
public:
    explicit CommonActions(DocumentKind kind) { m_facts.kindRaw = static_cast<std::int16_t>(kind); }

    void add(const DocumentRows::Row& row)
    {
        m_facts.statusRaw = static_cast<std::int16_t>(storedStatus(row.status));
        // Whether money or a fee came in is all that the actions ask.
        m_facts.cachedPaidMinorUnits = m_facts.kindRaw == 0 && row.dueMinorUnits != row.totalMinorUnits ? 1 : 0;
        const std::pair facts(m_facts.statusRaw, m_facts.cachedPaidMinorUnits);
        if (std::ranges::find(m_seen, facts) == m_seen.end()) {
            m_seen.push_back(facts);
            const std::vector<StatusAction> open = statusActions(m_facts);
            if (m_seen.size() == 1) {
                m_actions = open;
            }
            std::erase_if(m_actions,
                          [&open](StatusAction action) { return std::ranges::find(open, action) == open.end(); });
        }
    }

    [[nodiscard]] std::vector<StatusAction> actions() && { return std::move(m_actions); }

private:
    Document m_facts;
    std::vector<std::pair<std::int16_t, std::int64_t>> m_seen;
    std::vector<StatusAction> m_actions;
};

} // namespace

void DocumentRows::load(Context& context, Instant today, const Calendar& calendar, std::optional<std::size_t> limit)
{
    clear();
    const std::int64_t most = limit ? static_cast<std::int64_t>(*limit) : -1;
    read(context, "ORDER BY issueDate DESC, id DESC LIMIT ?2", most, today, calendar);
    m_isWhole = !limit || m_rows.size() < *limit;
    index();
}

void DocumentRows::read(
    Context& context, std::string_view condition, std::int64_t value, Instant today, const Calendar& calendar)
{
    Document facts;
    std::vector<Row> rows;
    context.query(
        fmt::format("{}{} {} {}", ListedFacts::selection, furtherColumns, ofKind, condition),
        [&](const Statement& row) {
            ListedFacts::read(row, facts);
            readFurther(row, facts);
            rows.push_back(rowOf(facts, today, calendar));
        },
        static_cast<std::int16_t>(m_kind),
        value);
    nameClients(context, rows);
    if (m_rows.empty()) {
        m_rows = std::move(rows);
    } else {
        std::ranges::move(rows, std::back_inserter(m_rows));
    }
}

bool DocumentRows::update(Context& context, const ChangeSet& changes, Instant today, const Calendar& calendar)
{
    const RecordChanges& documents = changes.of<Document>();
    const RecordChanges& clients = changes.of<Client>();
    std::vector<Key> keys = documents.inserted;
    keys.insert(keys.end(), documents.changed.begin(), documents.changed.end());
    if (!clients.changed.empty() || !clients.deleted.empty()) {
        for (const Row& row : m_rows) {
            if (std::ranges::binary_search(clients.changed, row.client) ||
                std::ranges::binary_search(clients.deleted, row.client)) {
                keys.push_back(row.key);
            }
        }
    }
    if (keys.empty() && documents.deleted.empty()) {
        return false;
    }
    std::ranges::sort(keys);
    keys.erase(std::ranges::unique(keys).begin(), keys.end());
    const std::size_t before = m_rows.size();
    std::erase_if(m_rows, [&](const Row& row) {
        return std::ranges::binary_search(documents.deleted, row.key) || std::ranges::binary_search(keys, row.key);
    });
    const bool hasLost = m_rows.size() != before;
    const std::size_t kept = m_rows.size();
    reload(context, keys, today, calendar);
    if (!hasLost && m_rows.size() == kept) {
        return false; // of other kinds, all of them
    }
    index();
    return true;
}

void DocumentRows::reload(Context& context, std::span<const Key> keys, Instant today, const Calendar& calendar)
{
    const auto kept = static_cast<std::ptrdiff_t>(m_rows.size());
    for (const Key key : keys) {
        read(context, "AND id = ?2", key, today, calendar);
    }
    std::sort(m_rows.begin() + kept, m_rows.end(), isNewer);
    std::inplace_merge(m_rows.begin(), m_rows.begin() + kept, m_rows.end(), isNewer);
}

void DocumentRows::clear()
{
    m_rows.clear();
    m_places.clear();
    m_isWhole = false;
}

void DocumentRows::index()
{
    m_places.clear();
    m_places.reserve(m_rows.size());
    for (std::uint32_t place = 0; place < m_rows.size(); ++place) {
        m_places.emplace(m_rows[place].key, place);
    }
}

std::optional<std::uint32_t> DocumentRows::place(Key key) const
{
    const auto found = m_places.find(key);
    return found == m_places.end() ? std::nullopt : std::optional(found->second);
}

std::array<std::size_t, allDisplayStatuses.size()> DocumentRows::counts() const
{
    std::array<std::size_t, allDisplayStatuses.size()> counts{};
    for (const Row& row : m_rows) {
        counts.at(static_cast<std::size_t>(row.status)) += 1;
    }
    return counts;
}

DocumentRows::Sum DocumentRows::sum(std::span<const std::uint32_t> places) const
{
    Sum sum;
    const std::string* currency = nullptr; // mostly that of the row before
    std::int64_t* total = nullptr;
    std::int64_t* due = nullptr;
    for (const std::uint32_t place : places) {
        const Row& row = m_rows[place];
        if (currency == nullptr || row.currencyCode != *currency) {
            currency = &row.currencyCode;
            total = &sum.totals[*currency];
            due = &sum.due[*currency];
        }
        sum.count += 1;
        add(*total, row.totalMinorUnits);
        add(*due, row.dueMinorUnits);
    }
    return sum;
}

DocumentRows::Summary DocumentRows::summary(std::span<const std::uint32_t> places) const
{
    Summary summary;
    CommonActions common(m_kind);
    std::unordered_set<Key> clients;
    summary.owesAll = !places.empty();
    for (const std::uint32_t place : places) {
        const Row& row = m_rows[place];
        summary.statuses.at(static_cast<std::size_t>(row.status)) += 1;
        clients.insert(row.client);
        common.add(row);
        summary.owesAll = summary.owesAll && row.dueMinorUnits > 0 && storedStatus(row.status) == DocumentStatus::sent;
        if (row.dueDate) {
            summary.firstDue = std::min(summary.firstDue.value_or(*row.dueDate), *row.dueDate);
            summary.lastDue = std::max(summary.lastDue.value_or(*row.dueDate), *row.dueDate);
        }
    }
    clients.erase(0);
    summary.clients = clients.size();
    summary.actions = std::move(common).actions();
    return summary;
}

} // namespace Quillary
