#pragma once

#include "QuillaryCore/Store/Schema.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Quillary {

/// Where the rows and values of each current entity come from in an older schema.
///
/// The plan follows the history version by version, so that a library which skips several versions ends with the same
/// values as one that was upgraded at each of them: names are followed through every renaming, and an attribute that
/// an intermediate version added brings that version's default, even if the default was changed later.
struct UpgradePlan
{
    /// A column of the new table and the SQL expression over the old row that fills it.
    struct Column
    {
        std::string name;
        std::string value;

        friend bool operator==(const Column&, const Column&) = default;
    };

    /// A table that gets the rows of an older one. Columns that aren't listed keep the new table's default.
    struct Table
    {
        std::string name;
        std::string source; ///< the older table's name
        std::vector<Column> columns;

        friend bool operator==(const Table&, const Table&) = default;
    };

    std::vector<Table> tables; ///< entities that the older schema didn't have are absent

    /// The plan from the first of `versions` to its last, one after the other. At least one version.
    ///
    /// Attributes and entities are followed by name, or by `renamedFrom` in the version that introduces it. A type may
    /// only widen (boolean, int16, int32, int64 in this order); any other change of a type under one name stops the
    /// program: no rule says what would become of the values. A reference whose target is no longer the same entity is
    /// emptied.
    [[nodiscard]] static UpgradePlan make(std::span<const Schema* const> versions);
};

} // namespace Quillary
