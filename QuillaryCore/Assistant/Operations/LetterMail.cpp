#include "QuillaryCore/Assistant/Operations/LetterMail.h"

#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Letters/EmailTemplates.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

namespace Quillary {

namespace {

bool canBeWrittenTo(const std::string& address)
{
    return EmailDraft::invalidAddresses(address).empty() && MailDraft::canAddress(address);
}

/// What was typed, each with the name that the client's records give it.
std::vector<EmailRecipient> typed(const std::string& list, const std::vector<EmailRecipient>& known)
{
    std::vector<EmailRecipient> result;
    for (const std::string& address : EmailDraft::addresses(list)) {
        if (!canBeWrittenTo(address)) {
            throw UserError(fmt::format("{} is no email address.", inQuotes(address)));
        }
        const auto same = std::ranges::find_if(known, [&address](const EmailRecipient& recipient) {
            return lowerCasedASCII(recipient.address) == lowerCasedASCII(address);
        });
        result.push_back({same == known.end() ? "" : same->name, address});
    }
    if (result.empty()) {
        throw UserError("There is no address in the list of recipients.");
    }
    return result;
}

std::vector<EmailRecipient> recipients(LetterMail& mail,
                                       const AssistantEnvironment& environment,
                                       const Document& document,
                                       const std::string& typedRecipients)
{
    const Client* client = environment.context.find(document.client);
    const std::vector<EmailRecipient> known =
        client == nullptr ? std::vector<EmailRecipient>() : EmailDraft::recipients(environment.context, *client);
    if (!typedRecipients.empty()) {
        return typed(typedRecipients, known);
    }
    if (known.empty()) {
        mail.notes.emplace_back("No email address is known: fill it in in the mail program.");
        return {};
    }
    if (!canBeWrittenTo(known.front().address)) {
        mail.notes.push_back(fmt::format("The client's address {} is none that mail can go to: correct it in the mail "
                                         "program.",
                                         inQuotes(known.front().address)));
        return {};
    }
    return {known.front()};
}

} // namespace

LetterMail letterMail(const AssistantEnvironment& environment,
                      const Document& document,
                      const ReminderNotice* reminder,
                      const std::string& typedRecipients)
{
    const Business& business = environment.ownBusiness();
    LetterMail mail;
    mail.draft.to = recipients(mail, environment, document, typedRecipients);
    mail.draft.from = {business.name, business.email};
    mail.draft.date = environment.clock.now();
    const EmailKind kind = reminder == nullptr ? emailKind(document) : emailKind(reminder->details.level);
    const EmailText words = EmailTemplates::text(environment.context, kind, language(document));
    const std::string recipientName = mail.draft.to.empty() ? "" : mail.draft.to.front().name;
    const EmailDraft::Matter matter{
        .document = document, .business = business, .recipientName = recipientName, .reminder = reminder};
    const EmailDraft::Values values =
        EmailDraft::values(environment.context, matter, environment.clock.now(), environment.calendar);
    EmailText filled = EmailDraft::fill(words, values);
    mail.draft.subject = std::move(filled.subject);
    mail.draft.body = std::move(filled.body);
    if (const std::vector<std::string> open = EmailDraft::unfilled(words, values); !open.empty()) {
        mail.notes.push_back(
            fmt::format("The email still says {}, for which there is no value.", fmt::join(open, ", ")));
    }
    return mail;
}

std::string addressList(const MailDraft& mail)
{
    std::string list;
    for (const MailAddress& recipient : mail.to) {
        list.append(list.empty() ? "" : ", ").append(recipient.address);
    }
    return list;
}

} // namespace Quillary
