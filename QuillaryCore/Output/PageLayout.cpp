#include "QuillaryCore/Output/PageLayout.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <unordered_map>
#include <utility>

namespace Quillary {

namespace {

constexpr std::string_view bodyEnd = "</body>";

/// Rows beyond the last one that the page had: it may have become shorter.
constexpr std::size_t spareRows = 4;

/// A filler leaves so little of its page that no row fits below it. Unit: points.
constexpr double leftBelowFiller = 3;

constexpr std::size_t widestFigures = 4;

/// Marks are places that a link leads to; the links themselves are never laid out.
class Marker
{
public:
    explicit Marker(std::string& html)
        : m_html(html)
    {
    }

    void row(std::string_view row, std::size_t index, bool hasFigureMarks)
    {
        constexpr std::string_view begin = "<tr";
        m_html += begin;
        m_html += mark(PageLayout::rowName(index));
        row.remove_prefix(begin.size());
        if (hasFigureMarks) {
            figures(row);
        } else {
            m_html += row;
        }
    }

    void end(std::string_view rest)
    {
        const std::size_t at = rest.rfind(bodyEnd);
        m_html += rest.substr(0, at);
        m_html += "<nav hidden>" + m_links + "</nav>";
        m_html += rest.substr(at);
    }

private:
    std::string mark(const std::string& name)
    {
        m_links += fmt::format("<a href=\"#{}\"></a>", name);
        return fmt::format(" id=\"{}\"", name);
    }

    void figures(std::string_view row)
    {
        std::size_t column = 0;
        for (std::size_t at = row.find(PageRows::figureBegin); at != std::string_view::npos;
             at = row.find(PageRows::figureBegin)) {
            const std::size_t insideTag = at + PageRows::figureBegin.size() - 1;
            m_html += row.substr(0, insideTag);
            m_html += mark(PageLayout::figureName(column++));
            row.remove_prefix(insideTag);
        }
        m_html += row;
    }

    std::string& m_html;
    std::string m_links;
};

/// The figures of each column that make it as wide as it is, without height. Figures have equal digits, so one of each
/// form is enough; of many forms the longest. Should that be too few, the print tells.
std::vector<std::string> rulers(const PageRows& page)
{
    std::vector<std::map<std::pair<std::size_t, std::string>, std::string_view, std::greater<>>> columns;
    for (const std::string_view row : page.rows) {
        const std::vector<std::string_view> figures = PageRows::figures(row);
        columns.resize(std::max(columns.size(), figures.size()));
        for (std::size_t column = 0; column < figures.size(); ++column) {
            std::string form(figures[column]);
            std::ranges::replace_if(form, [](char c) { return c >= '0' && c <= '9'; }, '0');
            columns[column].try_emplace(std::pair(form.size(), form), figures[column]);
        }
    }
    std::vector<std::string> rulers;
    rulers.reserve(columns.size());
    for (const auto& forms : columns) {
        std::string ruler = "<div style=\"height:0;overflow:hidden;visibility:hidden\">";
        std::size_t count = 0;
        for (auto form = forms.begin(); form != forms.end() && count < widestFigures; ++form, ++count) {
            ruler.append(form->second).append("<br>");
        }
        rulers.push_back(ruler + "</div>");
    }
    return rulers;
}

/// The row with a ruler in each of its cells of figures.
std::string ruled(std::string_view row, const std::vector<std::string>& rulers)
{
    std::string all;
    for (const std::string& ruler : rulers) {
        const std::size_t begin = row.find(PageRows::figureBegin);
        if (begin == std::string_view::npos) {
            break;
        }
        const std::size_t end = row.find(PageRows::cellEnd, begin);
        all += row.substr(0, end);
        all += ruler;
        row.remove_prefix(end);
    }
    return all.append(row);
}

std::string filler(double height, std::size_t columns)
{
    std::string row = fmt::format("<tr><td class=\"desc\" style=\"height:{:.2f}pt\"></td>", height);
    for (std::size_t column = 0; column < columns; ++column) {
        row.append(PageRows::figureBegin).append(PageRows::cellEnd);
    }
    return row + "</tr>\n";
}

} // namespace

std::string PageLayout::rowName(std::size_t row)
{
    return fmt::format("row-{}", row);
}

std::string PageLayout::figureName(std::size_t column)
{
    return fmt::format("figure-{}", column);
}

std::string PageLayout::marked(const std::string& html)
{
    const std::optional<PageRows> page = PageRows::of(html);
    if (!page) {
        return html;
    }
    constexpr std::size_t markSize = 50;
    std::string all;
    all.reserve(html.size() + markSize * (page->rows.size() + 10));
    all += page->opening;
    all += page->before;
    Marker marker(all);
    for (std::size_t row = 0; row < page->rows.size(); ++row) {
        marker.row(page->rows[row], row, row == 0);
    }
    marker.end(page->after);
    return all;
}

PageLayout::PageLayout(std::string html, const PageGeometry& geometry, int pageCount)
    : m_html(std::move(html))
    , m_geometry(geometry)
    , m_pageCount(pageCount)
{
}

std::optional<PageLayout>
PageLayout::of(std::string html, const PageGeometry& geometry, int pageCount, const std::vector<PageMark>& marks)
{
    PageLayout layout(std::move(html), geometry, pageCount);
    const std::optional<PageRows> page = PageRows::of(layout.m_html);
    if (!page || pageCount < 2) {
        return std::nullopt;
    }
    std::unordered_map<std::string_view, const PageMark*> named;
    for (const PageMark& mark : marks) {
        named.emplace(mark.name, &mark);
    }
    layout.m_rows.reserve(page->rows.size());
    for (std::size_t row = 0; row < page->rows.size(); ++row) {
        const auto mark = named.find(rowName(row));
        if (mark == named.end()) {
            return std::nullopt;
        }
        layout.m_rows.push_back({mark->second->page, mark->second->top});
    }
    for (std::size_t column = 0; column < PageRows::figures(page->rows.front()).size(); ++column) {
        const auto mark = named.find(figureName(column));
        if (mark == named.end()) {
            return std::nullopt;
        }
        layout.m_columnLefts.push_back(mark->second->left);
    }
    return layout;
}

std::optional<PageExcerpt> PageLayout::excerpt(std::string_view html) const
{
    const std::optional<PageRows> was = PageRows::of(m_html);
    const std::optional<PageRows> now = PageRows::of(html);
    if (!was || !now || was->opening != now->opening) {
        return std::nullopt;
    }
    const std::optional<Cut> part = cut(*was, *now);
    if (!part) {
        return std::nullopt;
    }
    PageExcerpt excerpt{.html = write(*now, *part),
                        .page = part->page,
                        .pageCount = m_pageCount,
                        .firstRow = rowName(part->first),
                        .top = std::nullopt,
                        .rowBelow = rowName(part->first + 1),
                        .leastHeight = 0,
                        .rowBeyond = part->end < now->rows.size() ? rowName(part->end - 1) : std::string(),
                        .columnLefts = m_columnLefts};
    if (part->first > 0) {
        excerpt.top = m_rows[part->first].top;
        if (part->changed == part->first) {
            const bool isAlone = part->first + 1 == m_rows.size() || m_rows[part->first + 1].page != part->page;
            if (isAlone) {
                return std::nullopt; // how high it was isn't known
            }
            excerpt.leastHeight = *excerpt.top - m_rows[part->first + 1].top;
        }
    }
    return excerpt;
}

std::optional<int> PageLayout::changedPage(const PageRows& was, const PageRows& now, std::size_t changed) const
{
    const int firstPage = m_rows.front().page;
    if (was.before != now.before) {
        return firstPage == 0 ? std::optional(0) : std::nullopt;
    }
    if (changed < was.rows.size() || changed < now.rows.size()) {
        return m_rows[std::min(changed, was.rows.size() - 1)].page;
    }
    return was.after != now.after ? std::optional(m_pageCount - 1) : std::nullopt;
}

std::optional<PageLayout::Cut> PageLayout::cut(const PageRows& was, const PageRows& now) const
{
    const auto [differing, ignored] = std::ranges::mismatch(was.rows, now.rows);
    const auto changed = std::size_t(std::distance(was.rows.begin(), differing));
    const std::optional<int> page = changedPage(was, now, changed);
    if (!page) {
        return std::nullopt;
    }
    const auto isOnPage = [&](const Place& place) {
        return place.page == *page;
    };
    const auto first = std::size_t(std::distance(m_rows.begin(), std::ranges::find_if(m_rows, isOnPage)));
    const auto count = std::size_t(std::ranges::count_if(m_rows, isOnPage));
    if (count == 0 || first >= now.rows.size()) {
        return std::nullopt;
    }
    const std::size_t added = now.rows.size() - std::min(was.rows.size(), now.rows.size());
    std::size_t end = first + count + added + spareRows;
    if (end + spareRows >= now.rows.size()) {
        end = now.rows.size();
    }
    // Past the cut all is as it was, so nothing there can make a column wider.
    const std::size_t rest = now.rows.size() - end;
    const bool isRestSame = rest <= was.rows.size() &&
                            std::equal(now.rows.rbegin(), now.rows.rbegin() + std::ptrdiff_t(rest), was.rows.rbegin());
    return isRestSame ? std::optional(Cut{.page = *page, .first = first, .end = end, .changed = changed})
                      : std::nullopt;
}

double PageLayout::fillerHeight(int page, std::size_t first) const
{
    const bool isFirst = page == m_rows.front().page;
    const double top = isFirst ? m_rows.front().top : m_rows[first].top; // below the heading that every page repeats
    return std::max(0.0, top - m_geometry.marginBottom - leftBelowFiller);
}

std::string PageLayout::write(const PageRows& page, const Cut& cut) const
{
    const std::vector<std::string> rulers = Quillary::rulers(page);
    const int fillers = cut.page - m_rows.front().page;
    std::string html;
    constexpr std::size_t perRow = 400;
    html.reserve(page.opening.size() + page.before.size() + page.after.size() + perRow * (cut.end - cut.first + 10));
    html += page.opening;
    html += page.before;
    if ((std::size_t(fillers) + cut.first) % 2 != 0) {
        html += "<tr style=\"display:none\"></tr>\n"; // designs may tint every second row
    }
    for (int number = 0; number < fillers; ++number) {
        const std::string row = filler(fillerHeight(m_rows.front().page + number, cut.first), m_columnLefts.size());
        html += number == 0 ? ruled(row, rulers) : row;
    }
    Marker marker(html);
    for (std::size_t row = cut.first; row < cut.end; ++row) {
        const bool isFirst = row == cut.first;
        marker.row(isFirst && fillers == 0 ? ruled(page.rows[row], rulers) : std::string(page.rows[row]), row, isFirst);
    }
    marker.end(cut.end == page.rows.size() ? page.after : std::string_view("</tbody>\n</table>\n</body>\n</html>\n"));
    return html;
}

} // namespace Quillary
