#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Model/ReminderLevel.h"

#include <string>

namespace Quillary {

class Context;
struct Business;
struct Document;

/// What the PDF files of documents and letters are called, without extension: the business's pattern, or the default one
/// where that can't be used.
namespace LetterFileName {

[[nodiscard]] std::string
of(Context& context, const Document& document, const Business& business, const Calendar& calendar);

/// The reminder's heading stands for the type and the day it is written on for the date. A pattern without a type would
/// call it as the invoice, so the heading stands behind the name.
[[nodiscard]] std::string ofReminder(Context& context,
                                     const Document& document,
                                     const Business& business,
                                     ReminderLevel level,
                                     Instant date,
                                     const Calendar& calendar);

} // namespace LetterFileName

} // namespace Quillary
