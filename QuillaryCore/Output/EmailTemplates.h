#pragma once

#include "QuillaryCore/Model/DocumentLanguage.h"

#include <cstdint>
#include <string>

namespace Quillary {

class Context;

/// What an email is about. The values are stored in `EmailTemplate::kindRaw`; reminders begin at 11.
enum class EmailKind : std::int16_t {
    invoice = 0,
    quote = 1,
    creditNote = 2,
    reminder = 11,
    secondReminder = 12,
    finalNotice = 13,
};

/// An email's words, with placeholders in braces such as {number} until they are filled.
struct EmailText
{
    std::string subject;
    std::string body; ///< lines end in "\n"

    friend bool operator==(const EmailText&, const EmailText&) = default;
};

/// The words that emails begin with.
namespace EmailTemplates {

/// The user's own text where there is one, else the built-in one.
[[nodiscard]] EmailText text(Context& context, EmailKind kind, DocumentLanguage language);

[[nodiscard]] const EmailText& defaultText(EmailKind kind, DocumentLanguage language);

} // namespace EmailTemplates

} // namespace Quillary
