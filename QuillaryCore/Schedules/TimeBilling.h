#pragma once

#include <vector>

namespace Quillary {

class Context;
struct Client;
struct Document;
struct LineItem;
struct TimeEntry;

/// Which time was billed where. An entry is unbilled while no invoice has it.
namespace TimeBilling {

/// The billable entries of a client that are on no invoice and not running any more, by their starts.
[[nodiscard]] std::vector<const TimeEntry*> unbilled(Context& context, const Client& client);

/// Remembers that a line bills an entry.
void bill(Context& context, const TimeEntry& entry, const Document& invoice, const LineItem& line);

/// The entries that a line bills, without those of its sub-lines.
[[nodiscard]] std::vector<const TimeEntry*> entries(Context& context, const LineItem& line);

/// Frees the entries that a line and its sub-lines bill, before the line goes: they can be billed again. When the whole
/// document goes, its entries are freed with it.
void release(Context& context, const LineItem& line);

} // namespace TimeBilling

} // namespace Quillary
