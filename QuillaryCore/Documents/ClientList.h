#pragma once

#include "QuillaryCore/Store/ChangeSet.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Quillary {

class Context;

/// The list of all clients with what they owe, in memory: narrowing and sorting ask the library nothing.
///
/// Belongs to the thread of its context.
class ClientList
{
public:
    using Key = std::int64_t;

    struct Row
    {
        Key key = 0;
        std::string name; ///< the display name
        std::string number;
        std::string city;
        std::string foldedName;
        std::string foldedText; ///< what a search looks through: name, number, city, email
        /// What all sent invoices still ask for, by currency; settled ones aren't in it. Unit: minor units.
        std::map<std::string, std::int64_t, std::less<>> open;
    };

    /// Amounts of several currencies are never added: `open` goes by a client's largest.
    enum class Column { name, number, city, open };
    enum class Order { ascending, descending };

    /// Throws: `StoreError`.
    void load(Context& context);

    /// Brings in what a notification told. False: nothing in it concerns this list.
    bool update(Context& context, const ChangeSet& changes);

    void clear();

    [[nodiscard]] std::size_t size() const { return m_rows.size(); }

    /// The places of the clients in whose texts all words of `text` occur, without regard to case and accents; equal
    /// ones by name.
    [[nodiscard]] std::vector<std::uint32_t> arranged(std::string_view text, Column column, Order order) const;

    [[nodiscard]] const Row& row(std::uint32_t place) const { return m_rows[place]; }

    /// No value: it isn't in the list.
    [[nodiscard]] std::optional<std::uint32_t> place(Key key) const;

private:
    void readClients(Context& context);
    void readClient(Context& context, Key key);
    void readOpen(Context& context);
    void sort();

    std::vector<Row> m_rows; ///< by name
    std::unordered_map<Key, std::uint32_t> m_places;
};

} // namespace Quillary
