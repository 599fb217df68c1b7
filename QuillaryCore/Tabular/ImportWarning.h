#pragma once

#include <cstdint>
#include <string>

namespace Quillary {

/// What a person should look at in a row of a client list.
struct ImportWarning
{
    enum class Reason : std::uint8_t {
        noName,          ///< the email address stands for it
        shortenedNumber, ///< a spreadsheet program made "4.9E+11" of a long number; taken as it stands
        tooLong,         ///< cut
        sameName,        ///< as an earlier row with another number
        // What can't be stored where it belongs goes into the notes:
        invalidEmail,
        invalidVATID,
        unknownCountry,
        unknownCurrency,
        unknownLanguage,
        unknownKind,
    };

    Reason reason = Reason::noName;
    std::string message; ///< a finished sentence

    friend bool operator==(const ImportWarning&, const ImportWarning&) = default;
};

} // namespace Quillary
