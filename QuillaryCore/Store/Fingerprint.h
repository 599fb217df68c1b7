#pragma once

#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/Schema.h"

#include <string>

namespace Quillary {

/// A digest of a schema: its entities, and the name and type of each attribute and relationship. 32 lower-case
/// hexadecimal digits (FNV-1a with 128 bits), the same for all time.
///
/// The order of entities and attributes doesn't count, nor do defaults, indexes and delete rules: two schemas with one
/// digest keep the same values under the same names. It recognises versions of our own and defends against nobody, so
/// it needs no cryptographic hash; 128 bits keep the few schemas that there will ever be apart.
[[nodiscard]] std::string fingerprint(const Schema& schema);

/// The digest of the schema that a file was written with, read from the tables themselves.
/// Throws: `StoreError` when the file can't be read.
[[nodiscard]] std::string fingerprintOfFile(Connection& connection);

} // namespace Quillary
