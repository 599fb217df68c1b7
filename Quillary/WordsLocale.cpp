#include "Quillary/WordsLocale.h"

namespace Quillary {

Locale wordsLocale(const std::function<std::string(const char* name)>& variable)
{
    std::string locale;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (locale = variable(name); !locale.empty()) {
            break;
        }
    }
    const bool isPlain = locale.empty() || locale == "POSIX" || locale == "C" || locale.starts_with("C.");
    const std::string wanted = variable("LANGUAGE");
    return Locale(isPlain ? "en" : wanted.empty() ? locale : wanted.substr(0, wanted.find(':')));
}

} // namespace Quillary
