#pragma once

#include "QuillaryCore/Output/PrintedDocument.h"
#include "QuillaryUI/Printing/PrintJob.h"

#include <string>
#include <string_view>

namespace Quillary {

/// A German invoice of so many lines, three to a page's inch; line 7 says "ZEILE7A" and, further down, "ZEILE7B".
[[nodiscard]] PrintedDocument sampleInvoice(int lines = 3, TemplateFont font = TemplateFont::system);

/// A job for the printer: the rendered document on A4, numbered in German.
[[nodiscard]] PrintJob sampleJob(const PrintedDocument& document = sampleInvoice());

/// The job with markup put at the end of its page's head, or of its body.
[[nodiscard]] PrintJob withHead(PrintJob job, std::string_view markup);
[[nodiscard]] PrintJob withBody(PrintJob job, std::string_view markup);

} // namespace Quillary
