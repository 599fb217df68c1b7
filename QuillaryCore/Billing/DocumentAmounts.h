#pragma once

#include "QuillaryCore/Billing/Totals.h"
#include "QuillaryCore/Foundation/Instant.h"

#include <cstdint>

namespace Quillary {

class Context;
struct Document;
struct LineItem;

// Amounts are minor units of the document's currency.

/// The figures of a stored document: its lines in print order (parents and sub-lines alike), its discounts and fees.
[[nodiscard]] Totals::Result calculateTotals(Context& context, const Document& document);

/// Quantity × price of the line alone.
[[nodiscard]] std::int64_t amount(const LineItem& line);

/// The line's amount and those of its sub-lines. Outside 64 bits the nearest end of their range.
[[nodiscard]] std::int64_t amountWithChildren(Context& context, const LineItem& line);

/// The sum of the fees of all reminders.
[[nodiscard]] std::int64_t lateFeesMinorUnits(Context& context, const Document& document);

/// The total and the fees of all reminders.
[[nodiscard]] std::int64_t owedMinorUnits(Context& context, const Document& document);

/// The sum of all payments.
[[nodiscard]] std::int64_t paidMinorUnits(Context& context, const Document& document);

/// The sum of the payments dated in a period: start ≤ date < end.
[[nodiscard]] std::int64_t amountPaid(Context& context, const Document& document, Instant start, Instant end);

/// Owed less paid; negative when overpaid.
[[nodiscard]] std::int64_t amountDueMinorUnits(Context& context, const Document& document);

/// Writes `cachedNetMinorUnits` and `cachedTotalMinorUnits` where they differ from the figures. To be called after
/// every change of lines, discounts, fees or exemption.
void updateCachedTotals(Context& context, const Document& document);

} // namespace Quillary
