#pragma once

#include "QuillaryCore/Documents/Desk.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"

#include <cstdint>
#include <span>
#include <vector>

namespace Quillary {

class Context;
struct Business;
struct Client;
struct Document;
struct LineItem;
struct TimeEntry;

/// Which time was billed where. An entry is unbilled while no invoice has it: erasing the line that bills it, alone or
/// with its document, frees it again.
namespace TimeBilling {

/// The client's own hourly rate, else the business's. Minor units of the business's currency; 0: there is none.
[[nodiscard]] std::int64_t hourlyRate(const Client* client, const Business& business);

/// The billable entries of a client that are on no invoice and not running any more, by their starts.
[[nodiscard]] std::vector<const TimeEntry*> unbilled(Context& context, const Client& client);

/// Adds proposed lines to a draft, in hours, and remembers which of the entries each bills. The first takes the place
/// `firstIndex`. The figures of the draft are the caller's.
void addLines(const Desk& desk,
              const Document& draft,
              std::span<const TimeInvoicing::Line> lines,
              std::span<const TimeEntry* const> entries,
              std::int32_t firstIndex,
              std::int32_t vatBasisPoints);

/// Remembers that a line bills an entry.
void bill(Context& context, const TimeEntry& entry, const Document& invoice, const LineItem& line);

/// The entries that a line bills, without those of its sub-lines.
[[nodiscard]] std::vector<const TimeEntry*> entries(Context& context, const LineItem& line);

} // namespace TimeBilling

} // namespace Quillary
