#include "QuillaryCore/Store/Statement.h"

#include "QuillaryCore/Store/Connection.h"

#include <sqlite3.h>

#include <algorithm>

namespace Quillary {

Statement::Statement(Connection& connection, std::string_view sql)
    : m_connection(connection)
{
    sqlite3_stmt* handle = nullptr;
    connection.startCollectingTables(m_tablesRead);
    const int code = sqlite3_prepare_v3(
        connection.handle(), sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT, &handle, nullptr);
    connection.stopCollectingTables();
    m_handle.reset(handle);
    if (code != SQLITE_OK) {
        connection.fail(code, sql);
    }
    std::ranges::sort(m_tablesRead);
    m_tablesRead.erase(std::unique(m_tablesRead.begin(), m_tablesRead.end()), m_tablesRead.end());
}

void Statement::Finalizer::operator()(sqlite3_stmt* handle) const noexcept
{
    sqlite3_finalize(handle);
}

void Statement::check(int code) const
{
    if (code != SQLITE_OK) {
        m_connection.fail(code, sqlite3_sql(m_handle.get()));
    }
}

void Statement::noteBound(int index, bool isEmptyText)
{
    if (static_cast<std::size_t>(index) < watchedParameters) {
        m_emptyTexts.set(static_cast<std::size_t>(index), isEmptyText);
    }
}

bool Statement::holdsEmptyText(int index) const
{
    return static_cast<std::size_t>(index) < watchedParameters && m_emptyTexts.test(static_cast<std::size_t>(index));
}

void Statement::bind(int index, std::int64_t value)
{
    noteBound(index, false);
    check(sqlite3_bind_int64(m_handle.get(), index, value));
}

void Statement::bind(int index, std::string_view value)
{
    // SQLite keeps what is bound, and most texts of most records are empty: a tenth of an import's time.
    if (value.empty() && holdsEmptyText(index)) {
        return;
    }
    noteBound(index, false);
    // An empty view may have no address, which SQLite would take for NULL.
    check(sqlite3_bind_text64(
        m_handle.get(), index, value.empty() ? "" : value.data(), value.size(), SQLITE_STATIC, SQLITE_UTF8));
    noteBound(index, value.empty());
}

void Statement::bind(int index, const UUID& value)
{
    noteBound(index, false);
    check(sqlite3_bind_blob64(m_handle.get(), index, value.bytes().data(), value.bytes().size(), SQLITE_STATIC));
}

void Statement::bind(int index, const Bytes& value)
{
    noteBound(index, false);
    if (value.empty()) {
        check(sqlite3_bind_null(m_handle.get(), index));
    } else {
        check(sqlite3_bind_blob64(m_handle.get(), index, value.data(), value.size(), SQLITE_STATIC));
    }
}

void Statement::bind(int index, std::nullopt_t /*value*/)
{
    noteBound(index, false);
    check(sqlite3_bind_null(m_handle.get(), index));
}

bool Statement::step()
{
    const int code = sqlite3_step(m_handle.get());
    if (code == SQLITE_ROW) {
        m_isBusy = true;
        return true;
    }
    m_isBusy = false;
    if (code == SQLITE_DONE) {
        sqlite3_reset(m_handle.get());
        return false;
    }
    // The error is read before the reset, which would clear its text.
    try {
        m_connection.fail(code, sqlite3_sql(m_handle.get()));
    } catch (...) {
        sqlite3_reset(m_handle.get());
        throw;
    }
}

void Statement::run()
{
    while (step()) {
    }
}

void Statement::reset()
{
    sqlite3_reset(m_handle.get()); // its result repeats the failure of the last step, which was thrown already
    m_isBusy = false;
}

bool Statement::isReadOnly() const
{
    return sqlite3_stmt_readonly(m_handle.get()) != 0;
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_handle.get(), column) == SQLITE_NULL;
}

std::int64_t Statement::integer(int column) const
{
    return sqlite3_column_int64(m_handle.get(), column);
}

std::string_view Statement::text(int column) const
{
    // The address first: asking for the length may convert the value.
    const auto* address = reinterpret_cast<const char*>(sqlite3_column_text(m_handle.get(), column));
    const int size = sqlite3_column_bytes(m_handle.get(), column);
    return address == nullptr ? std::string_view() : std::string_view(address, static_cast<std::size_t>(size));
}

std::optional<UUID> Statement::uuid(int column) const
{
    const auto* address = static_cast<const std::uint8_t*>(sqlite3_column_blob(m_handle.get(), column));
    UUID::Bytes bytes{};
    if (address == nullptr || static_cast<std::size_t>(sqlite3_column_bytes(m_handle.get(), column)) != bytes.size()) {
        return std::nullopt;
    }
    std::copy_n(address, bytes.size(), bytes.begin());
    return UUID(bytes);
}

std::optional<Instant> Statement::instant(int column) const
{
    if (isNull(column)) {
        return std::nullopt;
    }
    return Instant(std::chrono::milliseconds(integer(column)));
}

Bytes Statement::bytes(int column) const
{
    const auto* address = static_cast<const std::uint8_t*>(sqlite3_column_blob(m_handle.get(), column));
    const int size = sqlite3_column_bytes(m_handle.get(), column);
    return address == nullptr ? Bytes() : Bytes(address, address + size);
}

int Statement::columnCount() const
{
    return sqlite3_column_count(m_handle.get());
}

std::string_view Statement::columnName(int column) const
{
    return sqlite3_column_name(m_handle.get(), column);
}

} // namespace Quillary
