#pragma once

#include "QuillaryCore/Foundation/Locale.h"

#include <functional>
#include <string>

namespace Quillary {

/// The language in which the windows speak, which may be another than that of numbers and dates. `variable` reads the
/// process's environment, empty for what isn't set: LC_ALL, LC_MESSAGES and LANG in this order, the first that says
/// something; LANGUAGE, gettext's list of languages, precedes them unless they say "C". Without any: English.
[[nodiscard]] Locale wordsLocale(const std::function<std::string(const char* name)>& variable);

} // namespace Quillary
