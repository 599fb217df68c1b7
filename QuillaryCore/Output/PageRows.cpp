#include "QuillaryCore/Output/PageRows.h"

#include <utility>

namespace Quillary {

namespace {

// As `DocumentHTML` writes them. No text of a user's holds any of them, for its angle brackets are escaped.
constexpr std::string_view bodyBegin = "<body class=\"design-";
constexpr std::string_view rowsBegin = "<tbody>\n";
constexpr std::string_view rowsEnd = "</tbody>";
constexpr std::string_view rowEnd = "</td></tr>\n";

} // namespace

std::optional<PageRows> PageRows::of(std::string_view html)
{
    const std::size_t body = html.find(bodyBegin);
    const std::size_t begin = html.find(rowsBegin);
    if (body == std::string_view::npos || begin == std::string_view::npos || begin < body) {
        return std::nullopt;
    }
    std::size_t at = begin + rowsBegin.size();
    const std::size_t end = html.find(rowsEnd, at);
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    PageRows page{.opening = html.substr(0, body), .before = html.substr(body, at - body), .rows = {}, .after = {}};
    while (at < end) {
        const std::size_t last = html.find(rowEnd, at);
        if (last == std::string_view::npos || last > end) {
            return std::nullopt;
        }
        page.rows.push_back(html.substr(at, last + rowEnd.size() - at));
        at = last + rowEnd.size();
    }
    page.after = html.substr(end);
    return page.rows.empty() ? std::nullopt : std::optional(std::move(page));
}

std::vector<std::string_view> PageRows::figures(std::string_view row)
{
    std::vector<std::string_view> figures;
    for (std::size_t at = row.find(figureBegin); at != std::string_view::npos; at = row.find(figureBegin, at)) {
        at += figureBegin.size();
        figures.push_back(row.substr(at, row.find(cellEnd, at) - at));
    }
    return figures;
}

} // namespace Quillary
