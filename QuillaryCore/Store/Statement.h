#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Store/Field.h"

#include <bitset>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

struct sqlite3_stmt;

namespace Quillary {

class Connection;

/// A prepared statement: bind the values (counted from 1), step through the rows, read columns (counted from 0).
///
/// Thinner than SQLiteCpp's own, which makes a shared pointer for every column read: loading a row costs half.
/// Bound text and blobs are not copied: they must live until the statement is reset.
/// Throws: `StoreError` when SQLite reports a failure.
class Statement
{
public:
    Statement(Connection& connection, std::string_view sql);

    void bind(int index, std::int64_t value);
    void bind(int index, std::string_view value);
    void bind(int index, const std::string& value) { bind(index, std::string_view(value)); }
    void bind(int index, const char* value) { bind(index, std::string_view(value)); }
    void bind(int index, const UUID& value);
    void bind(int index, Instant value) { bind(index, std::int64_t{value.time_since_epoch().count()}); }
    void bind(int index, const Bytes& value); ///< empty bytes are stored as NULL
    void bind(int index, std::nullopt_t value);

    template <std::integral Integer>
    void bind(int index, Integer value)
    {
        static_assert(sizeof(Integer) < sizeof(std::int64_t) || std::is_signed_v<Integer>);
        bind(index, static_cast<std::int64_t>(value));
    }

    template <class Target>
    void bind(int index, Ref<Target> value)
    {
        bind(index, value.key());
    }

    template <class Value>
    void bind(int index, const std::optional<Value>& value)
    {
        if (value) {
            bind(index, *value);
        } else {
            bind(index, std::nullopt);
        }
    }

    /// Goes to the next row. False: there is none, and the statement is reset.
    bool step();

    /// Runs a statement that gives no rows, and resets it.
    void run();

    /// Ends the reading of rows; the statement can be bound and stepped anew.
    void reset();

    /// Resets a statement when the reading of its rows ends, however it ends.
    class Reading
    {
    public:
        explicit Reading(Statement& statement)
            : m_statement(statement)
        {
        }
        Reading(const Reading&) = delete;
        Reading& operator=(const Reading&) = delete;
        ~Reading() { m_statement.reset(); }

    private:
        Statement& m_statement;
    };

    /// True between a `step` that gave a row and the end of the rows.
    [[nodiscard]] bool isBusy() const { return m_isBusy; }

    /// True when the statement writes nothing.
    [[nodiscard]] bool isReadOnly() const;

    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] std::string_view text(int column) const; ///< valid until the next step
    [[nodiscard]] std::optional<UUID> uuid(int column) const;
    [[nodiscard]] std::optional<Instant> instant(int column) const;
    [[nodiscard]] Bytes bytes(int column) const;
    [[nodiscard]] int columnCount() const;
    [[nodiscard]] std::string_view columnName(int column) const;

    /// The tables that the statement reads.
    [[nodiscard]] const std::vector<std::string>& tablesRead() const { return m_tablesRead; }

private:
    struct Finalizer
    {
        void operator()(sqlite3_stmt* handle) const noexcept;
    };

    static constexpr std::size_t watchedParameters = 160; // of the widest record, and some more

    void check(int code) const;
    void noteBound(int index, bool isEmptyText);
    [[nodiscard]] bool holdsEmptyText(int index) const;

    Connection& m_connection;
    std::unique_ptr<sqlite3_stmt, Finalizer> m_handle;
    std::bitset<watchedParameters> m_emptyTexts; ///< parameters that hold the empty text
    std::vector<std::string> m_tablesRead;
    bool m_isBusy = false;
};

} // namespace Quillary
