#pragma once

#include <string_view>

namespace Quillary {

/// An SQL condition taken apart: `number = ? ORDER BY createdAt LIMIT 1`. Keywords are seen in either case, and not
/// inside quotes or parentheses. The parts point into the text that was parsed.
struct Condition
{
    std::string_view filter; ///< empty: all rows
    std::string_view order;  ///< with its ORDER BY; empty: none
    std::string_view limit;  ///< with its LIMIT; empty: none

    [[nodiscard]] static Condition parse(std::string_view text);
};

} // namespace Quillary
