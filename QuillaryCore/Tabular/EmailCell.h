#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// What a cell of email addresses holds.
struct EmailCell
{
    std::string address;             ///< the first valid one; else the text of the cell
    std::vector<std::string> others; ///< further valid addresses
    bool isValid = false;
};

/// Reads "a@b.example", "Anna <a@b.example>", "mailto:a@b.example" and several of them, separated by anything usual.
[[nodiscard]] EmailCell emailCell(std::string_view text);

} // namespace Quillary
