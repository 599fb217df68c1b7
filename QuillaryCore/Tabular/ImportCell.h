#pragma once

#include <string>
#include <string_view>

/// Makes of a cell what a person would have typed.
namespace Quillary::ImportCell {

/// A text of one line: without control characters, and without what programs put around cells: the apostrophe against
/// formulas, ="…" around digits. Empty for what only says that there is nothing: "-", "n/a".
[[nodiscard]] std::string line(std::string_view cell);

/// The same with its line breaks, each a line feed.
[[nodiscard]] std::string lines(std::string_view cell);

/// One space for each run of spaces and line feeds, so that names compare.
[[nodiscard]] std::string singleSpaced(std::string text);

/// True for "4.93012E+11": what is left of a long number that a spreadsheet program took for an amount.
[[nodiscard]] bool isShortenedNumber(std::string_view text);

} // namespace Quillary::ImportCell
