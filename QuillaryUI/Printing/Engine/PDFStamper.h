#pragma once

#include "QuillaryUI/Printing/PrintJob.h"

#include <string_view>

/// Finishes the engine's PDF: page numbers, title, language, origin, the exact size of the sheet.
namespace Quillary::PDFStamper {

/// Nothing in the result depends on when or where it was made. Pages of a document of one page carry no number.
/// Throws: `PrintError` when `pdf` is none.
[[nodiscard]] PrintedPDF stamp(std::string_view pdf, const PrintJob& job);

} // namespace Quillary::PDFStamper
