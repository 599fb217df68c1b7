#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// The page of a document taken apart at its line rows. Refers to the text it was made of.
struct PageRows
{
    std::string_view opening;           ///< until the body: what holds for the looks of everything below
    std::string_view before;            ///< from there until the first row
    std::vector<std::string_view> rows; ///< each whole, from "<tr" to the end of its line
    std::string_view after;

    /// No value: the text is no document's page of `DocumentHTML`, or has no lines.
    [[nodiscard]] static std::optional<PageRows> of(std::string_view html);

    static constexpr std::string_view figureBegin = "<td class=\"num\">";
    static constexpr std::string_view cellEnd = "</td>";

    /// The figures of a row, as they are marked up.
    [[nodiscard]] static std::vector<std::string_view> figures(std::string_view row);
};

} // namespace Quillary
