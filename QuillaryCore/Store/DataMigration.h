#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/Schema.h"

#include <filesystem>
#include <functional>
#include <optional>

/// Brings a library that an earlier version wrote up to the current schema.
namespace Quillary::DataMigration {

/// What an upgrade has just done, in this order.
enum class Step {
    leftoversRemoved, ///< of an upgrade that was killed
    storeTaken,       ///< the old file is whole without its log, and nobody else has it open
    backupMade,       ///< and checked, still under a working name
    storeClosed,
    tablesMade,   ///< in the new file
    entityCopied, ///< once for each entity that the old library knew
    indexesMade,
    factsCopied, ///< the library's identifier, its keys
    newFileChecked,
    backupNamed, ///< it now has its final name
    newFileInPlace,
};

/// Called after each step, to show progress. What it throws ends the upgrade as a failure would.
using StepHook = std::function<void(Step)>;

/// The version of the schema that a library was written with. The file is not changed.
///
/// The tables decide, by their fingerprint; the number that the file remembers chooses between versions that differ
/// only in defaults or indexes. No value: the file is missing, or empty, or was never finished being made.
/// This program has the file nowhere open. Throws: `StoreError` with `notALibrary`, `newerLibrary` or `unknownSchema`.
[[nodiscard]] std::optional<int> writtenWith(const std::filesystem::path& storeAt, const SchemaHistory& history);

/// The same of a file that is open.
[[nodiscard]] std::optional<int> writtenWith(Connection& connection, const SchemaHistory& history);

/// Upgrades an older library to `history.current` and returns where its backup lies: beside the store, named
/// "Library before upgrade 2026-11-21 14.03.22.sqlite" after `now` in UTC. No value: nothing was to be done.
///
/// Attributes and entities that are new get their defaults, those that are gone are dropped (the backup has them),
/// renamed ones keep their values, row keys stay. A changed default applies to new rows only.
///
/// The store is closed and the library locked while this runs. The new file is built beside the old one, checked, and
/// takes its place in one step: whatever happens, power failure and a full disk included, the library is the whole old
/// one or the whole new one. What a killed upgrade left behind is removed by the next.
/// Throws: as `writtenWith`, and `StoreError` with `inUse`, `readOnly`, `diskFull` or `failed`; the library is then as
/// it was.
std::optional<std::filesystem::path> upgradeIfNeeded(const std::filesystem::path& storeAt,
                                                     Instant now,
                                                     const SchemaHistory& history,
                                                     const StepHook& afterStep = {});

} // namespace Quillary::DataMigration
