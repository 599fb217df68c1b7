#pragma once

#include "QuillaryCore/Letters/EmailKind.h"
#include "QuillaryCore/Letters/EmailText.h"
#include "QuillaryCore/Model/DocumentLanguage.h"

namespace Quillary {

class Context;

/// The words that emails begin with: built in, until the user writes others for a kind and a language.
///
/// What the user wrote is a row of `EmailTemplate`. There may be several for one kind and language when two libraries
/// were brought together: the first one counts, and the next `set` deletes the others. Saving is left to the caller.
namespace EmailTemplates {

/// The user's own text where there is one, else the built-in one.
[[nodiscard]] EmailText text(Context& context, EmailKind kind, DocumentLanguage language);

[[nodiscard]] bool isCustomized(Context& context, EmailKind kind, DocumentLanguage language);

/// A typed text as it is kept: trimmed, lines of the body end in "\n". Throws: `UserError` for what can't be a subject
/// or a body.
[[nodiscard]] EmailText checked(EmailText text);

/// Keeps the user's own text. The built-in one, given back, is no text of the user's any more. `modifiedAt` changes only
/// with the words.
void set(Context& context, const EmailText& text, EmailKind kind, DocumentLanguage language);

/// Forgets the user's own text.
void restoreDefault(Context& context, EmailKind kind, DocumentLanguage language);

[[nodiscard]] const EmailText& defaultText(EmailKind kind, DocumentLanguage language);

} // namespace EmailTemplates

} // namespace Quillary
