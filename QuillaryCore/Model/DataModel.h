#pragma once

#include "QuillaryCore/Store/Records.h"
#include "QuillaryCore/Store/Schema.h"

#include <string>
#include <vector>

/// The schema of the library: every record that it stores. A library is opened with
/// `Store(location, DataModel::records(), DataModel::history(), clock, uuids)`.
namespace Quillary::DataModel {

/// The number of the current schema.
inline constexpr int currentVersion = 4;

/// The record types in schema order; the records that Quillary ties to them by identifier come last. Made once.
[[nodiscard]] const Records& records();

/// The current schema, made once from the records' own lists.
[[nodiscard]] const Schema& model();

/// The schema of one version. Null: no such version.
[[nodiscard]] const Schema* model(int version);

/// The earlier schemas that a library can be upgraded from, oldest first.
[[nodiscard]] const std::vector<Schema>& olderModels();

/// All versions, for opening a library.
[[nodiscard]] const SchemaHistory& history();

/// A digest of a schema's entities, attributes and their types, by which a file tells the version that wrote it.
[[nodiscard]] std::string fingerprint(const Schema& model);

} // namespace Quillary::DataModel
