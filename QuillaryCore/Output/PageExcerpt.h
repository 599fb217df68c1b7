#pragma once

#include "QuillaryCore/Output/PageMark.h"

#include <optional>
#include <string>
#include <vector>

namespace Quillary {

/// A document cut down to what one of its pages shows, so that this page is there long before the whole document is. Made
/// by `PageLayout::excerpt`.
struct PageExcerpt
{
    std::string html;  ///< to be printed on the document's sheet, this page alone
    int page = 0;      ///< index
    int pageCount = 0; ///< of the document, when it was last printed whole

    // What the print has to show, or the page is another one than the document's.
    std::string firstRow;
    std::optional<double> top; ///< of the first row. Unit: points, as in `PageMark`
    std::string rowBelow;      ///< the second row
    double leastHeight = 0;    ///< of the first row
    std::string rowBeyond;     ///< stands on a page further on. Empty: the excerpt goes on until the document's end
    std::vector<double> columnLefts; ///< of the columns of figures

    /// Whether a print of it, with these marks, is the very page of the document.
    [[nodiscard]] bool isExact(const std::vector<PageMark>& marks) const;
};

} // namespace Quillary
