#pragma once

#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Model/DocumentLanguage.h"

#include <string_view>

namespace Quillary {

/// The locale of a document's figures and dates: its language, as the country of the business writes it. Lives as long as
/// the thread that asked.
[[nodiscard]] const Locale& printLocale(DocumentLanguage language, std::string_view countryCode);

} // namespace Quillary
