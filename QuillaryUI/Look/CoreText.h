#pragma once

#include <QString>

#include <string_view>

/// The core speaks English: to assistants, on the command line, in files. Where a window shows its words, they pass
/// through here.
namespace Quillary::CoreText {

/// A word or sentence of a closed set, such as "Partly Paid", in the language of the windows. As it is when there is no
/// translation: what it says was perhaps a person's own.
[[nodiscard]] QString word(std::string_view english);

/// A sentence that the core filled in: "Aurora's address is missing; invoices must show it.". Its pattern is known here,
/// and what was filled in stays. As it is when no pattern fits.
[[nodiscard]] QString sentence(std::string_view english);

} // namespace Quillary::CoreText
