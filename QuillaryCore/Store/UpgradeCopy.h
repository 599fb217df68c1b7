#pragma once

#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/LibraryCopy.h"
#include "QuillaryCore/Store/Schema.h"
#include "QuillaryCore/Store/UpgradePlan.h"

#include <cstddef>
#include <filesystem>
#include <span>

namespace Quillary {

/// Fills the new file of an upgrade from the old library, entity by entity in one transaction: `makeTables`,
/// `copyNextEntity` until it is false, `makeIndexes`, `copyFacts`, `finish`.
///
/// Both files belong to this object alone; the caller syncs the new one. Throws: `StoreError`.
class UpgradeCopy
{
public:
    /// `versions`: the old library's schema, those between, the current one last. They outlive the object.
    UpgradeCopy(const std::filesystem::path& newFile,
                const std::filesystem::path& oldFile,
                std::span<const Schema* const> versions);

    void makeTables();

    /// False: all are copied.
    bool copyNextEntity();

    /// After the copy: an index is made faster from all its rows than row by row.
    void makeIndexes();

    /// What the library knows about itself, under the current version's number.
    void copyFacts();

    /// Ends the transaction. Returns the rows that each table must have, counted in the old library.
    [[nodiscard]] LibraryCopy::RowCounts finish();

private:
    Connection m_connection; ///< to the new file; the old one is attached as "old"
    const Schema& m_schema;
    UpgradePlan m_plan;
    std::size_t m_copied = 0;
};

} // namespace Quillary
