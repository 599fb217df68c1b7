#include "QuillaryCore/Model/PrintLocale.h"

#include "QuillaryCore/Foundation/Text.h"

#include <functional>
#include <map>
#include <string>

namespace Quillary {

const Locale& printLocale(DocumentLanguage language, std::string_view countryCode)
{
    std::string identifier(code(language));
    if (countryCode.size() == 2) {
        identifier.append(1, '_').append(upperCasedASCII(countryCode));
    }
    // Learning a locale's formats takes longer than making a page with them. One business has one country, so a handful
    // is all there ever is.
    thread_local std::map<std::string, Locale, std::less<>> known;
    const auto found = known.find(identifier);
    return found != known.end() ? found->second : known.emplace(identifier, Locale(identifier)).first->second;
}

} // namespace Quillary
