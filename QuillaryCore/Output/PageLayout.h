#pragma once

#include "QuillaryCore/Output/PageExcerpt.h"
#include "QuillaryCore/Output/PageMark.h"
#include "QuillaryCore/Output/PageRows.h"
#include "QuillaryCore/Output/TemplateSettings.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// Where the line rows of a document stand on its pages, learned from a print of the whole. From then on one page of the
/// changed document can be cut out and printed alone.
///
/// A page is what it is by the rows from its first one on, by how wide the columns are, and by the place where its first
/// row comes to stand. So an excerpt has the document's true beginning, one high empty row for each page of lines before,
/// the page's own rows with a few more, and a row's worth of the widest figures of all. That nothing else has changed is
/// compared text by text; that the columns are as wide as before is told by the print itself. The figures are those of
/// the whole document: an excerpt leaves out rows, never works anything out.
class PageLayout
{
public:
    /// The page with marks on its rows and columns, for the print to learn from.
    [[nodiscard]] static std::string marked(const std::string& html);

    /// `html` is the page without marks. No value: it has no rows or no second page, or `marks` don't tell of all rows.
    [[nodiscard]] static std::optional<PageLayout>
    of(std::string html, const PageGeometry& geometry, int pageCount, const std::vector<PageMark>& marks);

    /// The page on which `html` first differs. No value: the looks differ, nothing does, or that page can't be told
    /// without the ones around it.
    [[nodiscard]] std::optional<PageExcerpt> excerpt(std::string_view html) const;

    [[nodiscard]] static std::string rowName(std::size_t row);
    [[nodiscard]] static std::string figureName(std::size_t column);

private:
    struct Place
    {
        int page;
        double top;
    };

    /// What is cut out, as indexes of rows.
    struct Cut
    {
        int page;
        std::size_t first;
        std::size_t end;
        std::size_t changed; ///< the first row that differs
    };

    PageLayout(std::string html, const PageGeometry& geometry, int pageCount);
    [[nodiscard]] std::optional<Cut> cut(const PageRows& was, const PageRows& now) const;
    [[nodiscard]] std::optional<int> changedPage(const PageRows& was, const PageRows& now, std::size_t changed) const;
    [[nodiscard]] std::string write(const PageRows& page, const Cut& cut) const;
    [[nodiscard]] double fillerHeight(int page, std::size_t first) const;

    std::string m_html;
    PageGeometry m_geometry;
    int m_pageCount;
    std::vector<Place> m_rows;
    std::vector<double> m_columnLefts;
};

} // namespace Quillary
