#pragma once

#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Columns.h"
#include "QuillaryCore/Store/Statement.h"

#include <cstdint>
#include <string_view>

/// What lists ask of each document, without loading it: enough for its status and for whom it is.
namespace Quillary::ListedFacts {

/// The beginning of a SELECT; further columns, or " FROM Document", follow.
inline constexpr std::string_view selection =
    "SELECT id, kindRaw, statusRaw, dueDate, validUntil, cachedTotalMinorUnits, cachedPaidMinorUnits, "
    "cachedLateFeesMinorUnits, client, project, tags";
inline constexpr int tags = 10;  ///< the column of the tags, which `read` leaves alone: few lists need them
inline constexpr int count = 11; ///< the first column that follows

/// A row in a document that has nothing else.
inline void read(const Statement& row, Document& facts)
{
    facts.ref = Ref<Document>(row.integer(0));
    Column<std::int16_t>::read(row, 1, facts.kindRaw);
    Column<std::int16_t>::read(row, 2, facts.statusRaw);
    facts.dueDate = row.instant(3);
    facts.validUntil = row.instant(4);
    facts.cachedTotalMinorUnits = row.integer(5);
    facts.cachedPaidMinorUnits = row.integer(6);
    facts.cachedLateFeesMinorUnits = row.integer(7);
    facts.client = Ref<Client>(row.integer(8));
    facts.project = Ref<Project>(row.integer(9));
}

} // namespace Quillary::ListedFacts
