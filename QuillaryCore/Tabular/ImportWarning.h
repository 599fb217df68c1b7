#pragma once

#include <cstdint>
#include <string>

namespace Quillary {

/// What a person should look at in a row of a client list.
struct ImportWarning
{
    enum class Reason : std::uint8_t {
        noName,          ///< the email address stands for it
        invalidEmail,    ///< kept as it stands
        invalidVATID,    ///< kept as it stands
        shortenedNumber, ///< a spreadsheet program made "4.9E+11" of a long number; kept as it stands
        unknownCountry,  ///< left out, as are the three below: only codes and kinds are stored
        unknownCurrency,
        unknownLanguage,
        unknownKind,
        tooLong,  ///< cut
        sameName, ///< as an earlier row with another number
    };

    Reason reason = Reason::noName;
    std::string message; ///< a finished sentence

    friend bool operator==(const ImportWarning&, const ImportWarning&) = default;
};

} // namespace Quillary
