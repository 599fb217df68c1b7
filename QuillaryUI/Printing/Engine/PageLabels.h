#pragma once

#include "QuillaryUI/Printing/PrintJob.h"

#include <QByteArray>

#include <string>

/// The page numbers of a document, as a PDF of their own that is laid over it.
namespace Quillary::PageLabels {

/// "{page}" and "{pages}" replaced in a label.
[[nodiscard]] std::string text(std::string_view label, int page, int pages);

/// As many sheets as the document has, each with nothing but its label: small, grey, in the middle of the bottom margin's
/// height, flush with the right edge of the text. The typeface is embedded.
[[nodiscard]] QByteArray sheets(const PrintJob& job, int pages);

} // namespace Quillary::PageLabels
