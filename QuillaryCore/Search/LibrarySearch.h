#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Search/TextIndex.h"
#include "QuillaryCore/Store/Context.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Quillary {

/// Finds the clients and documents of one library by what people call them: without case, accents and width, with small
/// slips in typing.
///
/// Filled by narrow queries when it is first asked, then kept up to date by the context's notifications, so that a
/// search sees pending edits and forgets those that were rolled back. One for each context, which outlives it.
class LibrarySearch
{
public:
    using Hit = TextIndex::Hit;
    using Key = TextIndex::Key;

    /// What a list of documents is narrowed by.
    struct DocumentFacts
    {
        std::int16_t kindRaw = 0;
        std::int16_t statusRaw = 0;
        Key client = 0;
        std::optional<Instant> dueDate;
        std::optional<Instant> validUntil;
    };

    explicit LibrarySearch(Context& context);

    /// By number, name, email, VAT ID, contact person or city. An empty query gives all. Valid until the next search.
    [[nodiscard]] TextHits clients(std::string_view query, TextIndex::Slips slips = TextIndex::Slips::forgiven);

    /// Invoices, quotes and credit notes by number, title or client. An empty query gives all. Valid until the next
    /// search.
    [[nodiscard]] TextHits documents(std::string_view query);

    /// Of a document that `documents` has found; valid until the next search.
    [[nodiscard]] const DocumentFacts& facts(const Hit& hit) const { return m_facts[hit.slot]; }

    /// Whether clients can be found without reading the library.
    [[nodiscard]] bool hasClients() const { return m_hasClients; }

private:
    /// Counts the clients that were heard of; unlike a slot it stays as it is when a client is entered anew.
    using ClientNumber = std::uint32_t;

    void note(const ChangeSet& changes);
    void observe();
    void refreshClients();
    void refreshDocuments();
    void fillClients();
    void fillDocuments();
    void enterContacts(Key client, std::vector<std::string>& texts);
    void enterClient(const Statement& row, const std::vector<std::string>& contacts);
    void enterDocument(const Statement& row);
    [[nodiscard]] ClientNumber clientNumber(Key client);
    void addDocumentsOfClients(std::string_view query, TextHits& hits);

    Context& m_context;
    TextIndex m_clients;
    TextIndex m_documents;
    std::vector<DocumentFacts> m_facts;             ///< by the slots of `m_documents`
    std::vector<ClientNumber> m_clientsOfDocuments; ///< by the slots of `m_documents`
    std::vector<ClientNumber> m_clientsBySlot;      ///< by the slots of `m_clients`
    std::unordered_map<Key, ClientNumber> m_clientNumbers;
    std::unordered_map<Key, Key> m_clientOfContact;
    std::vector<Key> m_changedClients;
    std::vector<Key> m_changedContacts;
    std::vector<Key> m_changedDocuments;
    bool m_hasClients = false;
    bool m_hasDocuments = false;
    bool m_isObserving = false;
    Subscription m_subscription;
};

} // namespace Quillary
