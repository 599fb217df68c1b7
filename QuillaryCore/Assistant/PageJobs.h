#pragma once

#include "QuillaryCore/Assistant/AssistantHost.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Store/Context.h"

#include <string>

namespace Quillary {

struct Business;
struct Document;

/// A document ready for the printer.
[[nodiscard]] PageJob
pageJob(Context& context, const Document& document, const Business& business, const Calendar& calendar);

/// The file name of a document's PDF by the business's pattern, without extension. A pattern that can't be used gives
/// way to the default one.
[[nodiscard]] std::string
pdfFileName(Context& context, const Document& document, const Business& business, const Calendar& calendar);

} // namespace Quillary
