#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Store/Field.h"

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// Who a mail comes from or goes to.
struct MailAddress
{
    std::string name;
    std::string address; ///< empty: left to the mail program

    friend bool operator==(const MailAddress&, const MailAddress&) = default;
};

/// A file that a mail carries.
struct MailAttachment
{
    std::string name; ///< with its ending
    Bytes pdf;
};

/// A mail with files, for a person to check and send: a mail program opens it as a draft.
struct MailDraft
{
    MailAddress from;
    std::vector<MailAddress> to;
    std::string subject;
    std::string body; ///< plain text, lines end in "\n"
    std::vector<MailAttachment> attachments;
    Instant date;

    /// The whole message. No text of it, whatever it holds, can begin a header of its own.
    /// Source: RFC 5322; MIME (RFC 2045, 2046), encoded words (RFC 2047), file names (RFC 2231), `X-Unsent` as mail
    /// programs read it. Lines end in CRLF and have at most 998 bytes.
    [[nodiscard]] std::string message() const;

    /// Whether an address can stand in a header without being taken for something else.
    [[nodiscard]] static bool canAddress(std::string_view address);
};

} // namespace Quillary
