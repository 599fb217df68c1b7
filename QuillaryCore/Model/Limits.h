#pragma once

#include <cstddef>
#include <cstdint>

/// What may be entered. Every way in (tool, command, window, import) refuses more, with a sentence; docs/limits.md shows
/// why no sum or product of the program can then leave 64 bits.
///
/// Amounts count minor units of whatever currency: 10^13 are 100,000 million euros, 10 million million yen or 10,000
/// million Kuwaiti dinars. The largest amounts in use (rupiahs and rials with few or no minor digits) stay far below.
namespace Quillary::Limits {

/// In size, as are the ones below: negative amounts may be as large.
inline constexpr std::int64_t amountMinorUnits = 10'000'000'000'000;

inline constexpr std::int64_t unitPriceMinorUnits = amountMinorUnits;
inline constexpr std::int64_t discountMinorUnits = amountMinorUnits;
inline constexpr std::int64_t feeMinorUnits = amountMinorUnits;
inline constexpr std::int64_t paymentMinorUnits = amountMinorUnits;
inline constexpr std::int64_t lateFeeMinorUnits = amountMinorUnits;

/// One line's amount, and each figure of a document (subtotal, discount, fees, net, tax, total). Checked before a draft
/// is saved: `checkAggregates`.
inline constexpr std::int64_t documentMinorUnits = amountMinorUnits;

/// All late fees of a document, and all payments of a document.
inline constexpr std::int64_t lateFeesPerDocumentMinorUnits = amountMinorUnits;
inline constexpr std::int64_t paymentsPerDocumentMinorUnits = 2 * amountMinorUnits;

/// An hourly rate; times the seconds of a thousand million hours it still fits.
inline constexpr std::int64_t hourlyRateMinorUnits = 1'000'000'000;
/// The time billed on one line, and one time entry. Unit: seconds.
inline constexpr std::int64_t timeSeconds = 1'000'000 * std::int64_t{3600};

/// A thousand million units.
inline constexpr std::int64_t quantityThousandths = 1'000'000'000'000;

/// 100 %: tax rates, discounts, late fees.
inline constexpr std::int32_t rateBasisPoints = 10000;

inline constexpr std::size_t linesPerDocument = 5000; ///< sub-lines included
inline constexpr std::size_t discountsPerDocument = 50;
inline constexpr std::size_t feesPerDocument = 50;

inline constexpr std::int16_t paymentTermsDays = 3650;

// Characters (grapheme clusters).
inline constexpr std::size_t lineLength = 500;   ///< names, titles, numbers, codes: what fits one line of a form
inline constexpr std::size_t textLength = 10000; ///< details, intro, outro, notes
inline constexpr std::size_t pathLength = 4096;  ///< names of files and folders

} // namespace Quillary::Limits
