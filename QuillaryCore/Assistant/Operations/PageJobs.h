#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantHost.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Store/Context.h"

#include <string>

namespace Quillary {

struct AssistantEnvironment;
struct Business;
struct Document;
struct PrintedDocument;
struct PrintedTable;

/// A page ready for the printer: that of a document, or a letter.
[[nodiscard]] PageJob pageJob(const PrintedDocument& printed);

/// A table ready for the printer, with "Page {page} of {pages}" in the reader's language.
[[nodiscard]] PageJob pageJob(const PrintedTable& printed, const std::string& pageLabel);

/// A document ready for the printer.
[[nodiscard]] PageJob
pageJob(Context& context, const Document& document, const Business& business, const Calendar& calendar);

/// The file name of a document's PDF by the business's pattern, without extension. A pattern that can't be used gives
/// way to the default one.
[[nodiscard]] std::string
pdfFileName(Context& context, const Document& document, const Business& business, const Calendar& calendar);

/// The same as answers can name it: no character of it is an identifier's bracket, hidden or a turn of direction, so
/// that what the user reads is where the file lies.
[[nodiscard]] std::string shownFileName(const AssistantEnvironment& environment, const Document& document);

} // namespace Quillary
