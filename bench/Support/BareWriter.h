#pragma once

#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/LineItem.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <tuple>

// The floor of writing: bare SQLite with the tables of the model.

namespace Quillary {

inline void check(int code)
{
    if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) {
        fmt::print(stderr, "SQLite {}\n", code);
        std::abort();
    }
}

/// The floor's statement: bound and stepped by hand.
class BareStatement
{
public:
    BareStatement(sqlite3* database, const std::string& sql)
    {
        check(sqlite3_prepare_v2(database, sql.c_str(), -1, &m_handle, nullptr));
    }
    BareStatement(const BareStatement&) = delete;
    BareStatement& operator=(const BareStatement&) = delete;
    ~BareStatement() { sqlite3_finalize(m_handle); }

    [[nodiscard]] sqlite3_stmt* handle() const { return m_handle; }

    void run()
    {
        check(sqlite3_step(m_handle));
        check(sqlite3_reset(m_handle));
    }

private:
    sqlite3_stmt* m_handle = nullptr;
};

inline std::string insertion(const Entity& entity)
{
    std::string names = "id";
    std::string places = "?";
    for (const Attribute& attribute : entity.attributes) {
        names += ", " + attribute.name;
        places += ", ?";
    }
    for (const Relationship& relationship : entity.relationships) {
        names += ", " + relationship.name;
        places += ", ?";
    }
    return fmt::format("INSERT INTO {} ({}) VALUES ({})", entity.name, names, places);
}

/// Writes documents with their lines into the tables of the model, every column bound, and nothing else.
class BareWriter
{
public:
    explicit BareWriter(sqlite3* database)
        : m_document(database, insertion(*DataModel::model().entity("Document")))
        , m_line(database, insertion(*DataModel::model().entity("LineItem")))
    {
    }

    void write(const Document& document, const LineItem& line, int linesPerDocument)
    {
        ++m_documentKey;
        sqlite3_stmt* statement = m_document.handle();
        int index = 1;
        sqlite3_bind_int64(statement, index++, m_documentKey);
        bindFields(statement, index, document);
        sqlite3_bind_int64(statement, index++, 1);
        sqlite3_bind_int64(statement, index++, 0);
        m_document.run();
        for (int number = 0; number < linesPerDocument; ++number) {
            statement = m_line.handle();
            index = 1;
            sqlite3_bind_int64(statement, index++, ++m_lineKey);
            bindFields(statement, index, line);
            sqlite3_bind_int64(statement, index++, m_documentKey);
            sqlite3_bind_int64(statement, index++, 0);
            m_line.run();
        }
    }

private:
    template <class T>
    void bindFields(sqlite3_stmt* statement, int& index, const T& record)
    {
        std::apply([&](const auto&... fields) { (bind(statement, index++, record.*fields.member), ...); }, T::fields());
    }

    void bind(sqlite3_stmt* statement, int index, const std::optional<UUID>& value)
    {
        if (value) {
            // A fresh one each time, as every record has: the index over them grows at the end here and there.
            m_uuid = value->bytes();
            const std::uint64_t number = ++m_uuidCount;
            for (std::size_t byte = 0; byte < 8; ++byte) {
                m_uuid[15 - byte] = static_cast<std::uint8_t>(number >> (8 * byte));
            }
            sqlite3_bind_blob(statement, index, m_uuid.data(), 16, SQLITE_STATIC);
        } else {
            sqlite3_bind_null(statement, index);
        }
    }
    static void bind(sqlite3_stmt* statement, int index, const std::optional<Instant>& value)
    {
        value ? sqlite3_bind_int64(statement, index, value->time_since_epoch().count())
              : sqlite3_bind_null(statement, index);
    }
    static void bind(sqlite3_stmt* statement, int index, const std::string& value)
    {
        sqlite3_bind_text(statement, index, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
    }
    static void bind(sqlite3_stmt* statement, int index, std::int64_t value)
    {
        sqlite3_bind_int64(statement, index, value);
    }

    BareStatement m_document;
    BareStatement m_line;
    std::int64_t m_documentKey = 1'000'000;
    std::int64_t m_lineKey = 10'000'000;
    std::uint64_t m_uuidCount = 0;
    UUID::Bytes m_uuid{};
};

} // namespace Quillary
