#pragma once

#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/Schema.h"

#include <filesystem>
#include <string>
#include <vector>

/// Four versions of a small made-up library, and files written with each of them.
namespace Quillary::OldLibraries {

/// What happens between the versions:
/// 2 adds "Customer.language" ('en') and the entity "Payment", widens "Customer.discount" to int32, drops
///   "Customer.fax" and the entity "Stamp";
/// 3 renames the entity "Customer" to "Client" and its "name" to "title", changes the default of "language" to 'de',
///   clusters "Line" by its order;
/// 4 renames "title" to "fullName", adds "Client.isVIP" and a new attribute under the old word "name", widens "discount"
///   to int64, drops "Payment", adds "Note".
[[nodiscard]] const Schema& schema(int version);

/// The history as the program knew it when `version` was current.
[[nodiscard]] SchemaHistory history(int version = 4);

/// Makes a library of a version, in place of what is there, with `orders` orders of three lines each, two customers, and awkward values (quotes,
/// an image, empty dates, the largest integers). The connection stays open, so that its log stays beside the file
/// until it is dropped.
std::unique_ptr<Connection> make(const std::filesystem::path& file, int version, int orders = 3);

/// `make` in a process that is killed: the file is left with its log, as a crash leaves it.
void makeAndCrash(const std::filesystem::path& file, int version, int orders = 3);

/// All tables, rows and values as text, ordered by table and key; equal texts mean equal libraries.
[[nodiscard]] std::string contents(const std::filesystem::path& file);

/// The names in a folder, sorted.
[[nodiscard]] std::vector<std::string> names(const std::filesystem::path& folder);

} // namespace Quillary::OldLibraries
