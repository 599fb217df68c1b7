#pragma once

#include "QuillaryCore/Store/Connection.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>

/// Whole copies of a library, made through SQLite and never by copying a file without its log.
namespace Quillary::LibraryCopy {

/// The number of rows of each table.
using RowCounts = std::map<std::string, std::int64_t, std::less<>>;

[[nodiscard]] RowCounts rowCounts(Connection& connection);

/// The first fault that SQLite finds anywhere in the file. No value: it is sound.
[[nodiscard]] std::optional<std::string> fault(Connection& connection);

/// Copies the last saved state into a new file: one snapshot, while others go on reading and writing. On return the
/// copy was opened and checked (integrity, rows of each table against the snapshot), is on disk and needs no files
/// beside it. A file of that name is replaced; the copy may be read by those who may read `rightsOf`, or by its owner
/// alone where that is missing. Throws: `StoreError`, and nothing is left of the copy.
void make(Connection& source, const std::filesystem::path& target, const std::filesystem::path& rightsOf);

/// Opens a library for this connection alone, with its log emptied into the file and switched off: on return the file
/// is whole by itself and has no "-wal" and "-shm". Throws: `StoreError` (`inUse`) when anybody else has it open.
[[nodiscard]] std::unique_ptr<Connection> openAlone(const std::filesystem::path& file);

} // namespace Quillary::LibraryCopy
