#pragma once

#include "QuillaryCore/Letters/EmailDraft.h"

#include <string>
#include <vector>

namespace Quillary {

struct AssistantEnvironment;
struct Document;
struct ReminderNotice;

/// A mail about a document without its files yet, and what its writer should know before sending it.
struct LetterMail
{
    MailDraft draft;
    std::vector<std::string> notes; ///< finished sentences
};

/// The mail with a document, or with a reminder of it, in the user's own words where there are some.
///
/// `typedRecipients` is a list of addresses; one that is known at the client is greeted by its name there. Without any
/// it goes to the first of `EmailDraft::recipients`, or to nobody yet. Throws: `UserError` for what is no address.
[[nodiscard]] LetterMail letterMail(const AssistantEnvironment& environment,
                                    const Document& document,
                                    const ReminderNotice* reminder,
                                    const std::string& typedRecipients);

/// The addresses of a mail, with commas between them.
[[nodiscard]] std::string addressList(const MailDraft& mail);

} // namespace Quillary
