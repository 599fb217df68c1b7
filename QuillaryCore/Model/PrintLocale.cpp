#include "QuillaryCore/Model/PrintLocale.h"

#include "QuillaryCore/Foundation/Text.h"

#include <string>

namespace Quillary {

Locale printLocale(DocumentLanguage language, std::string_view countryCode)
{
    std::string identifier(code(language));
    if (countryCode.size() == 2) {
        identifier.append(1, '_').append(upperCasedASCII(countryCode));
    }
    return Locale(identifier);
}

} // namespace Quillary
