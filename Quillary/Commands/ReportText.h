#pragma once

#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Reports/ReportCSV.h"

#include <string>
#include <string_view>

namespace Quillary {

struct AgingReport;

/// Reports as a terminal shows them.
namespace ReportText {

enum class LastRow { isOneOfMany, isTotal };

/// The table with amounts, rates and dates as the locale writes them, numbers to the right. Where every amount carries
/// its currency, the headings don't: "Net (EUR)" is "Net".
[[nodiscard]] std::string
table(const ReportTable& table, LastRow lastRow, std::string_view currencyCode, const Locale& locale);

/// A bar for each bucket of what is owed, as long as its part of the whole. Empty when nothing is owed.
[[nodiscard]] std::string agingBars(const AgingReport& report, const Locale& locale);

/// A bar of `width` columns for `part` of `whole`, in eighths of a column. Nothing of nothing is no bar.
[[nodiscard]] std::string bar(std::int64_t part, std::int64_t whole, int width);

} // namespace ReportText

} // namespace Quillary
