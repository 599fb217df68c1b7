#pragma once

#include "QuillaryCore/Tabular/CSVFormat.h"
#include "QuillaryCore/Tabular/CSVValue.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The one writer of CSV (RFC 4180) in the program. Never fails.
namespace Quillary::CSVWriter {

/// The header and the rows, each line ended by CR LF.
[[nodiscard]] std::string
string(std::span<const std::string> header, std::span<const std::vector<CSVValue>> rows, const CSVFormat& format);

/// The same as the bytes of a file: behind the mark of UTF-8, without which spreadsheet programs misread accents.
[[nodiscard]] std::string
data(std::span<const std::string> header, std::span<const std::vector<CSVValue>> rows, const CSVFormat& format);

/// Appends the line of a header, or of a row, to a text: for tables that are too long to be held as cells.
void appendHeader(std::string& text, std::span<const std::string> header, const CSVFormat& format);
void appendRow(std::string& text, std::span<const CSVValue> row, const CSVFormat& format);

/// The finished text of one cell. A text that a spreadsheet program would run as a formula gets an apostrophe in front.
/// Amounts show all minor digits of their currency and neither symbol nor grouping; days are "YYYY-MM-DD"; rates show no
/// needless zeros and no sign.
[[nodiscard]] std::string cell(const CSVValue& value, const CSVFormat& format);

/// A text as a cell: in quotes, its own doubled, where it holds the separator, a quote or a line break.
[[nodiscard]] std::string field(std::string_view text, const CSVFormat& format);

/// `value` × 10^-`digits` in plain digits, with exactly `digits` behind the separator, or without zeros at the end.
/// Below 1 digit there is no fraction.
[[nodiscard]] std::string decimal(std::int64_t value, int digits, std::string_view separator, bool trimZeros);

} // namespace Quillary::CSVWriter
