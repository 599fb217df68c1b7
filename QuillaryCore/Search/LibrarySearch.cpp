#include "QuillaryCore/Search/LibrarySearch.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <utility>

namespace Quillary {

namespace {

/// Above so many changes it is quicker to read everything anew.
constexpr std::size_t manyChanges = 5000;

constexpr std::string_view clientColumns =
    "id, createdAt, number, name, firstName, lastName, email, vatID, city FROM Client";
constexpr std::string_view documentColumns =
    "id, createdAt, number, title, kindRaw, statusRaw, client, issueDate, dueDate, validUntil FROM Document";

void append(std::vector<TextIndex::Key>& keys, const RecordChanges& changes)
{
    for (const auto* list : {&changes.inserted, &changes.changed, &changes.deleted}) {
        keys.insert(keys.end(), list->begin(), list->end());
    }
}

std::vector<TextIndex::Key> taken(std::vector<TextIndex::Key>& keys)
{
    std::vector<TextIndex::Key> result = std::exchange(keys, {});
    std::ranges::sort(result);
    result.erase(std::ranges::unique(result).begin(), result.end());
    return result;
}

std::int64_t milliseconds(const std::optional<Instant>& instant)
{
    return instant ? std::int64_t{instant->time_since_epoch().count()} : std::numeric_limits<std::int64_t>::min() / 2;
}

/// A VAT ID is written with spaces and dots, or without.
std::string withoutMarks(std::string_view text)
{
    std::string result;
    std::ranges::copy_if(
        text, std::back_inserter(result), [](char byte) { return byte != ' ' && byte != '.' && byte != '-'; });
    return result;
}

} // namespace

LibrarySearch::LibrarySearch(Context& context)
    : m_context(context)
{
}

void LibrarySearch::note(const ChangeSet& changes)
{
    if (m_hasClients) {
        append(m_changedClients, changes.of<Client>());
        append(m_changedContacts, changes.of<ContactPerson>());
    }
    if (m_hasDocuments) {
        append(m_changedDocuments, changes.of<Document>());
    }
}

void LibrarySearch::observe()
{
    if (!m_isObserving) {
        m_subscription = m_context.onChanged([this](const ChangeSet& changes) { note(changes); });
        m_isObserving = true;
    }
    // Edits that are pending now count as told, so that their coming and their going are both heard of.
    m_context.tellChanges();
}

void LibrarySearch::enterContacts(Key client, std::vector<std::string>& texts)
{
    m_context.query(
        "SELECT id, name, email FROM ContactPerson WHERE client = ?",
        [&](const Statement& row) {
            m_clientOfContact[row.integer(0)] = client;
            texts.emplace_back(row.text(1));
            texts.emplace_back(row.text(2));
        },
        client);
}

void LibrarySearch::enterClient(const Statement& row, const std::vector<std::string>& contacts)
{
    std::string person(row.text(4));
    if (!person.empty() && !row.text(5).empty()) {
        person += ' ';
    }
    person += row.text(5);
    const std::string vatID = withoutMarks(row.text(7));
    const std::array<std::string_view, 5> own = {row.text(2), row.text(3), person, row.text(6), vatID};
    std::vector<std::string_view> further = {row.text(8)};
    further.insert(further.end(), contacts.begin(), contacts.end());
    const std::size_t slot = m_clients.put(row.integer(0), milliseconds(row.instant(1)), own, further);
    m_clientsBySlot.resize(slot + 1);
    m_clientsBySlot[slot] = clientNumber(row.integer(0));
}

LibrarySearch::ClientNumber LibrarySearch::clientNumber(Key client)
{
    return m_clientNumbers.try_emplace(client, static_cast<ClientNumber>(m_clientNumbers.size())).first->second;
}

void LibrarySearch::fillClients()
{
    m_clients.clear();
    m_clientsBySlot.clear();
    m_clientOfContact.clear();
    m_changedClients.clear();
    m_changedContacts.clear();
    m_clients.reserve(static_cast<std::size_t>(m_context.count<Client>("")));
    std::unordered_map<Key, std::vector<std::string>> contacts;
    m_context.query("SELECT id, client, name, email FROM ContactPerson ORDER BY sortIndex, id",
                    [&](const Statement& row) {
                        m_clientOfContact[row.integer(0)] = row.integer(1);
                        std::vector<std::string>& texts = contacts[row.integer(1)];
                        texts.emplace_back(row.text(2));
                        texts.emplace_back(row.text(3));
                    });
    const std::vector<std::string> none;
    m_context.query(fmt::format("SELECT {} ORDER BY id", clientColumns), [&](const Statement& row) {
        const auto found = contacts.find(row.integer(0));
        enterClient(row, found == contacts.end() ? none : found->second);
    });
    m_hasClients = true;
}

void LibrarySearch::refreshClients()
{
    observe();
    for (const Key contact : taken(m_changedContacts)) {
        if (const auto owner = m_clientOfContact.find(contact); owner != m_clientOfContact.end()) {
            m_changedClients.push_back(owner->second);
        }
        m_context.query(
            "SELECT client FROM ContactPerson WHERE id = ?",
            [this](const Statement& row) { m_changedClients.push_back(row.integer(0)); },
            contact);
    }
    const std::vector<Key> changed = taken(m_changedClients);
    if (!m_hasClients || changed.size() > manyChanges || m_clients.isWorn()) {
        fillClients();
        return;
    }
    for (const Key key : changed) {
        std::vector<std::string> contacts;
        m_clients.remove(key);
        enterContacts(key, contacts);
        m_context.query(
            fmt::format("SELECT {} WHERE id = ?", clientColumns),
            [&](const Statement& row) { enterClient(row, contacts); },
            key);
    }
}

void LibrarySearch::enterDocument(const Statement& row)
{
    const auto kindRaw = static_cast<std::int16_t>(row.integer(4));
    if (kindRaw == static_cast<std::int16_t>(DocumentKind::recurring)) {
        return;
    }
    const std::optional<Instant> issued = row.instant(7);
    const std::array<std::string_view, 2> own = {row.text(2), row.text(3)};
    const std::size_t slot = m_documents.put(row.integer(0), milliseconds(issued ? issued : row.instant(1)), own, {});
    m_facts.resize(slot + 1);
    m_facts[slot] = {.kindRaw = kindRaw,
                     .statusRaw = static_cast<std::int16_t>(row.integer(5)),
                     .client = row.integer(6),
                     .dueDate = row.instant(8),
                     .validUntil = row.instant(9)};
    m_clientsOfDocuments.resize(slot + 1);
    m_clientsOfDocuments[slot] = clientNumber(row.integer(6));
}

void LibrarySearch::fillDocuments()
{
    m_documents.clear();
    m_facts.clear();
    m_clientsOfDocuments.clear();
    m_changedDocuments.clear();
    const auto count = static_cast<std::size_t>(m_context.count<Document>(""));
    m_documents.reserve(count);
    m_facts.reserve(count);
    m_clientsOfDocuments.reserve(count);
    m_context.query(fmt::format("SELECT {} ORDER BY id", documentColumns),
                    [this](const Statement& row) { enterDocument(row); });
    m_hasDocuments = true;
}

void LibrarySearch::refreshDocuments()
{
    observe();
    const std::vector<Key> changed = taken(m_changedDocuments);
    if (!m_hasDocuments || changed.size() > manyChanges || m_documents.isWorn()) {
        fillDocuments();
        return;
    }
    for (const Key key : changed) {
        m_documents.remove(key);
        m_context.query(
            fmt::format("SELECT {} WHERE id = ?", documentColumns),
            [this](const Statement& row) { enterDocument(row); },
            key);
    }
}

TextHits LibrarySearch::clients(std::string_view query, TextIndex::Slips slips)
{
    refreshClients();
    return query.empty() ? m_clients.all() : m_clients.find(query, slips);
}

TextHits LibrarySearch::documents(std::string_view query)
{
    refreshDocuments();
    if (query.empty()) {
        return m_documents.all();
    }
    TextHits hits = m_documents.find(query);
    addDocumentsOfClients(query, hits);
    return hits;
}

void LibrarySearch::addDocumentsOfClients(std::string_view query, TextHits& hits)
{
    const auto isReal = [](const Hit& hit) {
        return hit.rank != TextRank::similar;
    };
    const bool hasReal = hits.anyOf(isReal);
    // What only looks like a client's name adds nothing to documents that really hold the query.
    const TextHits found = clients(query, hasReal ? TextIndex::Slips::notForgiven : TextIndex::Slips::forgiven);
    if (found.isEmpty()) {
        return;
    }
    if (!hasReal && found.anyOf(isReal)) {
        hits.clear();
    }
    struct ClientHit
    {
        bool isFound = false;
        TextRank rank = TextRank::exact;
        std::uint8_t slips = 0;
    };
    std::vector<ClientHit> hitOfClient(m_clientNumbers.size());
    found.forEach([&](const Hit& hit) {
        hitOfClient[m_clientsBySlot[hit.slot]] = {
            .isFound = true, .rank = hit.rank, .slips = static_cast<std::uint8_t>(hit.slips)};
    });
    for (std::size_t slot = 0; slot < m_documents.slotCount(); ++slot) {
        const ClientHit& client = hitOfClient[m_clientsOfDocuments[slot]];
        if (client.isFound && !hits.holds(slot) && m_documents.isThere(slot)) {
            hits.note(slot, std::max(client.rank, TextRank::word), false, client.slips);
        }
    }
}

} // namespace Quillary
