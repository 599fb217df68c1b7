#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Letters/EmailPlaceholder.h"
#include "QuillaryCore/Letters/EmailText.h"
#include "QuillaryCore/Letters/MailDraft.h"
#include "QuillaryCore/Model/DocumentLanguage.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
struct Business;
struct Client;
struct Document;
struct ReminderNotice;

/// Somebody whom an email may go to.
using EmailRecipient = MailAddress;

/// The words of an email, and whom it goes to.
namespace EmailDraft {

/// What replaces the placeholders. One that is not in here stays in the text as it was typed.
using Values = std::map<EmailPlaceholder, std::string>;

/// What an email is about, and who reads it.
struct Matter
{
    const Document& document;
    const Business& business;
    std::string_view recipientName;           ///< blank: the client's display name
    const ReminderNotice* reminder = nullptr; ///< the reminder that it goes with; null: the document itself
};

/// The values of a document, written as its language and the business's country write them: amounts in its currency, the
/// dates that it has, and what a reminder says. The amount due is what the letter with that reminder asks for.
[[nodiscard]] Values values(Context& context, const Matter& matter, Instant today, const Calendar& calendar);

/// Made-up values that fit together, for looking at a text: what `available` offers for the kind.
[[nodiscard]] Values sampleValues(
    EmailKind kind, DocumentLanguage language, const Business& business, Instant today, const Calendar& calendar);

/// Fills both texts; the subject loses the white space around it.
[[nodiscard]] EmailText fill(const EmailText& text, const Values& values);

/// Replaces every {word} that has a value, in whatever case it is written; other words in braces stay. Values are not
/// searched again.
[[nodiscard]] std::string fill(std::string_view text, const Values& values);

/// The words in braces that `fill` would leave standing, each once as it is written first: "{due_date}".
[[nodiscard]] std::vector<std::string> unfilled(const EmailText& text, const Values& values);

/// Whom to write to at a client: its own address (each of them, where several were typed), then its contact persons in
/// their order. Nobody twice.
[[nodiscard]] std::vector<EmailRecipient> recipients(Context& context, const Client& client);

/// The addresses in a typed list, in order and each once. Between them stand commas, semicolons or white space; of
/// "Anna Weber <anna@weber.example>" it is what stands between the angle brackets.
[[nodiscard]] std::vector<std::string> addresses(std::string_view typed);

/// Those of `addresses` that no mail can go to: all of the text must read name@domain.ending, without white space, with
/// one "@" and an ending of two characters or more.
[[nodiscard]] std::vector<std::string> invalidAddresses(std::string_view typed);

} // namespace EmailDraft

} // namespace Quillary
