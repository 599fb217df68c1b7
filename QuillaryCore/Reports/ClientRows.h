#pragma once

#include "QuillaryCore/Model/ClientNames.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Quillary {

class Context;

/// The rows of a report by client, in the order in which they were begun. `Row` has an `id` and a `client`.
template <class Row>
class ClientRows
{
public:
    /// The row of a client, by its key; 0 for none.
    Row& of(std::int64_t client)
    {
        const auto [place, isNew] = m_places.try_emplace(client, m_rows.size());
        if (isNew) {
            m_rows.push_back({client, {}});
        }
        return m_rows[place->second].second;
    }

    /// The rows with the identifiers and names of their clients. What belongs to no client that is there, or to one
    /// without an identifier, is one row: `merge(Row&, const Row&)` adds a row to another. Throws: `StoreError`.
    template <class Merge>
    [[nodiscard]] std::vector<Row> named(Context& context, const Merge& merge) const
    {
        std::vector<std::int64_t> keys;
        keys.reserve(m_rows.size());
        for (const auto& [key, row] : m_rows) {
            keys.push_back(key);
        }
        const ClientNames clients(context, std::move(keys));
        std::vector<Row> rows;
        rows.reserve(m_rows.size());
        std::optional<std::size_t> withoutClient;
        for (const auto& [key, row] : m_rows) {
            const ClientNames::Client* client = clients.find(key);
            const bool hasIdentifier = client != nullptr && client->id;
            if (!hasIdentifier && withoutClient) {
                merge(rows[*withoutClient], row);
                continue;
            }
            if (!hasIdentifier) {
                withoutClient = rows.size();
            }
            Row& added = rows.emplace_back(row);
            added.id = hasIdentifier ? client->id : std::nullopt;
            added.client = client != nullptr ? client->name : "No client";
        }
        return rows;
    }

private:
    std::vector<std::pair<std::int64_t, Row>> m_rows;
    std::unordered_map<std::int64_t, std::size_t> m_places;
};

} // namespace Quillary
