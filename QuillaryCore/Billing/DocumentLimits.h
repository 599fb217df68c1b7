#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace Quillary {

class Context;
struct Document;

/// Why a document can't be saved as it is, as a finished sentence: too many lines, discounts or fees, or a figure beyond
/// `Limits`. Every way in asks this after changing a document and before `calculateTotals` is relied on. No value: it
/// can be saved.
[[nodiscard]] std::optional<std::string> checkAggregates(Context& context, const Document& document);

/// Why a payment can't be recorded. No value: it can.
[[nodiscard]] std::optional<std::string>
checkPayment(Context& context, const Document& document, std::int64_t amountMinorUnits);

/// Why a reminder can't charge this fee. No value: it can.
[[nodiscard]] std::optional<std::string>
checkLateFee(Context& context, const Document& document, std::int64_t feeMinorUnits);

} // namespace Quillary
