#include "QuillaryCore/Documents/ClientList.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Store/Columns.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <tuple>
#include <utility>

namespace Quillary {

namespace {

constexpr std::string_view clientColumns =
    "SELECT id, kindRaw, number, name, firstName, lastName, city, email FROM Client";

ClientList::Row rowOf(const Statement& statement)
{
    Client facts;
    Column<std::int16_t>::read(statement, 1, facts.kindRaw);
    facts.name = statement.text(3);
    facts.firstName = statement.text(4);
    facts.lastName = statement.text(5);
    facts.email = statement.text(7);
    facts.number = statement.text(2);
    ClientList::Row row{.key = statement.integer(0),
                        .name = displayName(facts),
                        .number = std::string(statement.text(2)),
                        .city = std::string(statement.text(6)),
                        .foldedName = {},
                        .foldedText = {},
                        .open = {}};
    row.foldedName = folded(row.name);
    row.foldedText = row.foldedName + "\n" + folded(fmt::format("{}\n{}\n{}", row.number, row.city, statement.text(7)));
    return row;
}

void add(std::int64_t& sum, std::int64_t amount)
{
    // Every stored amount is within `Limits`; only a foreign library could get there.
    if (__builtin_add_overflow(sum, amount, &sum)) {
        sum = amount < 0 ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
    }
}

std::int64_t largest(const ClientList::Row& row)
{
    std::int64_t most = 0;
    for (const auto& [currency, amount] : row.open) {
        most = std::max(most, amount);
    }
    return most;
}

template <class Value>
void sortBy(std::vector<std::uint32_t>& places, ClientList::Order order, const Value& value)
{
    if (order == ClientList::Order::ascending) {
        std::ranges::stable_sort(places, std::less{}, value);
    } else {
        std::ranges::stable_sort(places, std::greater{}, value);
    }
}

} // namespace

void ClientList::load(Context& context)
{
    clear();
    readClients(context);
    sort();
    readOpen(context);
}

bool ClientList::update(Context& context, const ChangeSet& changes)
{
    const RecordChanges& clients = changes.of<Client>();
    const RecordChanges& documents = changes.of<Document>();
    if (clients.isEmpty() && documents.isEmpty()) {
        return false;
    }
    std::erase_if(m_rows, [&](const Row& row) {
        return std::ranges::binary_search(clients.deleted, row.key) ||
               std::ranges::binary_search(clients.changed, row.key) ||
               std::ranges::binary_search(clients.inserted, row.key); // read before it was told of
    });
    for (const std::vector<Key>* keys : {&clients.inserted, &clients.changed}) {
        for (const Key key : *keys) {
            readClient(context, key);
        }
    }
    sort();
    readOpen(context);
    return true;
}

void ClientList::clear()
{
    m_rows.clear();
    m_places.clear();
}

void ClientList::readClients(Context& context)
{
    context.query(clientColumns, [this](const Statement& row) { m_rows.push_back(rowOf(row)); });
}

void ClientList::readClient(Context& context, Key key)
{
    context.query(
        fmt::format("{} WHERE id = ?", clientColumns),
        [this](const Statement& row) { m_rows.push_back(rowOf(row)); },
        key);
}

void ClientList::readOpen(Context& context)
{
    for (Row& row : m_rows) {
        row.open.clear();
    }
    Document facts;
    context.query(
        "SELECT client, kindRaw, statusRaw, cachedTotalMinorUnits, cachedPaidMinorUnits, cachedLateFeesMinorUnits, "
        "currencyCode FROM Document WHERE kindRaw = ? AND statusRaw = ?",
        [&](const Statement& row) {
            const std::optional<std::uint32_t> owner = place(row.integer(0));
            Quillary::Column<std::int16_t>::read(row, 1, facts.kindRaw);
            Quillary::Column<std::int16_t>::read(row, 2, facts.statusRaw);
            facts.cachedTotalMinorUnits = row.integer(3);
            facts.cachedPaidMinorUnits = row.integer(4);
            facts.cachedLateFeesMinorUnits = row.integer(5);
            facts.currencyCode = row.text(6);
            const std::int64_t due = acceptsPayments(facts) ? cachedAmountDueMinorUnits(facts) : 0;
            if (owner && due != 0) {
                add(m_rows[*owner].open[facts.currencyCode], due);
            }
        },
        static_cast<std::int16_t>(DocumentKind::invoice),
        static_cast<std::int16_t>(DocumentStatus::sent));
}

void ClientList::sort()
{
    std::ranges::sort(m_rows, {}, [](const Row& row) { return std::tie(row.foldedName, row.key); });
    m_places.clear();
    m_places.reserve(m_rows.size());
    for (std::uint32_t place = 0; place < m_rows.size(); ++place) {
        m_places.emplace(m_rows[place].key, place);
    }
}

std::vector<std::uint32_t> ClientList::arranged(std::string_view text, Column column, Order order) const
{
    const std::string whole = folded(text);
    const std::vector<std::string_view> words = split(whole, ' ');
    std::vector<std::uint32_t> places;
    places.reserve(m_rows.size());
    for (std::uint32_t place = 0; place < m_rows.size(); ++place) {
        const std::string& content = m_rows[place].foldedText;
        if (std::ranges::all_of(words,
                                [&](std::string_view word) { return content.find(word) != std::string::npos; })) {
            places.push_back(place);
        }
    }
    const auto by = [&](const auto& value) {
        sortBy(places, order, [&](std::uint32_t place) -> decltype(auto) { return value(m_rows[place]); });
    };
    switch (column) {
    case Column::name:
        by([](const Row& row) -> const std::string& { return row.foldedName; });
        break;
    case Column::number:
        by([](const Row& row) -> const std::string& { return row.number; });
        break;
    case Column::city:
        by([](const Row& row) -> const std::string& { return row.city; });
        break;
    case Column::open:
        by([](const Row& row) { return largest(row); });
        break;
    }
    return places;
}

std::optional<std::uint32_t> ClientList::place(Key key) const
{
    const auto found = m_places.find(key);
    return found == m_places.end() ? std::nullopt : std::optional(found->second);
}

} // namespace Quillary
