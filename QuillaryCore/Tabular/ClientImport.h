#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Tabular/CSVRows.h"
#include "QuillaryCore/Tabular/ClientMatcher.h"
#include "QuillaryCore/Tabular/ClientReader.h"
#include "QuillaryCore/Tabular/ImportColumns.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

class Context;

enum class ImportStatus : std::uint8_t {
    isNew,
    duplicate, ///< is there already: not imported
    empty,     ///< names no client: not imported
};

/// "new", "duplicate", "empty": what the screen shows.
[[nodiscard]] std::string_view title(ImportStatus status);

/// A client list beside a library: what would become of each row, and the import of those that are new.
class ClientImport
{
public:
    struct Row
    {
        std::size_t number = 0; ///< as a spreadsheet shows it, see `CSVRows::number`
        ImportStatus status = ImportStatus::empty;
        ReadClient read;                           ///< a new client's number is filled in when it is imported
        std::optional<ClientMatcher::Match> match; ///< of a duplicate
    };

    /// Told now and then how many of how many rows are done; not by every row.
    using Progress = std::function<void(std::size_t done, std::size_t total)>;

    /// Reads every row and compares it with the library, which may be open for reading only, and with the rows above it.
    /// Nothing is written. No library compares with none. Throws: `StoreError`.
    ClientImport(const CSVRows& rows, ImportColumns columns, Context* library, const Progress& progress = {});

    [[nodiscard]] const ImportColumns& columns() const { return m_reader.columns(); }
    [[nodiscard]] const std::vector<Row>& rows() const { return m_rows; }
    [[nodiscard]] std::size_t count(ImportStatus status) const;

    /// Adds the new clients, with numbers for those that have none, as one action: all of them are on disk when it
    /// returns, or none. Called once, with the library that was compared with and nothing changed since. The day of the
    /// numbers is that of the context's clock. Throws: `NumberingError`, `StoreError`; nothing has changed then.
    void run(Context& library, const Business& business, const Calendar& calendar, const Progress& progress = {});

private:
    /// Returns what each of the rows is compared by.
    std::vector<ClientMatcher::Keys> read(const CSVRows& rows);
    void judge(Row& row, const ClientMatcher::Keys& keys);
    void number(Context& library, const Business& business, const Calendar& calendar);

    ClientReader m_reader;
    ClientMatcher m_matcher;
    std::vector<Row> m_rows;
};

/// "has the same email address as Acme in row 3": the reason of a duplicate.
[[nodiscard]] std::string sentence(const ClientMatcher::Match& match);

} // namespace Quillary
