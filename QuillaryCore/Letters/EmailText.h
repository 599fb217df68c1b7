#pragma once

#include <string>

namespace Quillary {

/// An email's words, with placeholders in braces such as {number} until they are filled.
struct EmailText
{
    std::string subject;
    std::string body; ///< lines end in "\n"

    friend bool operator==(const EmailText&, const EmailText&) = default;
};

} // namespace Quillary
