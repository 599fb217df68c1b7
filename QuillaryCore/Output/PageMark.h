#pragma once

#include <string>

namespace Quillary {

/// Where an element with a name of its own came to stand on paper.
struct PageMark
{
    std::string name;
    int page = 0;    ///< its index in the PDF
    double left = 0; ///< from the sheet's left edge. Unit: points
    double top = 0;  ///< from the sheet's lower edge up to the element's upper one. Unit: points
};

} // namespace Quillary
