#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Letters/EmailDraft.h"
#include "QuillaryCore/Letters/EmailTemplates.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"

#include <fmt/format.h>

#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

/// The client's own address, else that of the first contact person who has one.
EmailRecipient recipient(Context& context, const Client& client)
{
    const std::vector<EmailRecipient> offered = EmailDraft::recipients(context, client);
    if (offered.empty()) {
        throw AssistantError(
            fmt::format("{} has no email address. Ask the user for it, and fill it in with update_client.",
                        Lookup::reference(client)));
    }
    return offered.front();
}

EmailRecipient requiredRecipient(const AssistantEnvironment& environment, const Document& document)
{
    if (kind(document) == DocumentKind::recurring) {
        throw AssistantError("A recurring template isn't sent; the invoices made from it are.");
    }
    const Client* client = environment.context.find(document.client);
    if (client == nullptr) {
        throw AssistantError(
            fmt::format("{} has no client to write to. Set one with update_document.", Lookup::reference(document)));
    }
    EmailRecipient to = recipient(environment.context, *client);
    if (!MailDraft::canAddress(to.address) || !EmailDraft::invalidAddresses(to.address).empty()) {
        throw AssistantError(fmt::format("The email address of {} can't be written to. Correct it with update_client.",
                                         Lookup::reference(*client)));
    }
    return to;
}

/// The email without its PDF.
MailDraft words(const AssistantEnvironment& environment, const Document& document)
{
    const Business& business = environment.ownBusiness();
    EmailRecipient to = requiredRecipient(environment, document);
    EmailText text =
        EmailDraft::fill(EmailTemplates::text(environment.context, emailKind(document), language(document)),
                         EmailDraft::values(environment.context,
                                            {.document = document, .business = business, .recipientName = to.name},
                                            environment.clock.now(),
                                            environment.calendar));
    return {.from = {business.name, business.email},
            .to = {std::move(to)},
            .subject = std::move(text.subject),
            .body = std::move(text.body),
            .attachments = {{shownFileName(environment, document) + ".pdf", {}}},
            .date = environment.clock.now()};
}

/// What the user should know before the email goes out.
std::string advice(const AssistantEnvironment& environment, const Document& document)
{
    if (status(document).value_or(DocumentStatus::draft) != DocumentStatus::draft) {
        return {};
    }
    std::string text = "\nIt is still a draft: when the user has sent the email, mark it as sent (mark_document_sent).";
    const DocumentReview review = DocumentOperations::reviewed(environment, document);
    if (!review.canBeSent()) {
        text += fmt::format("\nIt isn't ready to be sent yet.\n\n{}", review.text());
    }
    return text;
}

/// The answer, but for where the email lies.
ToolResult answer(const Document& document, const MailDraft& mail)
{
    ToolResult result{.text = fmt::format("Prepared the email with {} for {}, “{}”.",
                                          Lookup::reference(document),
                                          plainText(mail.to.front().address),
                                          plainText(mail.subject))};
    result.data = JSON::object({{"document", Lookup::idText(document.uuid)},
                                {"to", mail.to.front().address},
                                {"subject", mail.subject},
                                {"attachment", mail.attachments.front().name},
                                {"sent", false}});
    result.documentID = document.uuid;
    result.summary = result.text;
    return result;
}

void tellPlace(ToolResult& result, const PreparedEmail& email, const std::string& advice)
{
    if (email.isOpened) {
        result.text += " It is open on the user's screen, to be checked and sent there.";
    }
    if (!email.file.empty()) {
        result.text += fmt::format("{} {}",
                                   email.isOpened ? " The draft lies in"
                                                  : " The user opens this draft with their mail program and sends it:",
                                   email.file.string());
    }
    result.text += "\nNothing has been sent." + advice;
    JSON data = result.data.value_or(JSON());
    data.set("file", email.file.empty() ? JSON() : JSON(email.file.string()));
    data.set("opened", email.isOpened);
    result.data = std::move(data);
}

} // namespace

void SendingOperations::email(const AssistantEnvironment& environment,
                              const Arguments& arguments,
                              const AssistantActions::Reply& reply)
{
    const Document& document = Lookup::document(environment, arguments);
    AssistantHost& host = environment.printer();
    const Business& business = environment.ownBusiness();
    MailDraft mail = words(environment, document);
    ToolResult result = answer(document, mail);
    const std::string name = shownFileName(environment, document);
    PageJob job = pageJob(environment.context, document, business, environment.calendar);

    const auto prepared = [reply, result = std::move(result), advice = advice(environment, document)](
                              const EmailOutcome& outcome) mutable {
        if (const std::string* sentence = std::get_if<std::string>(&outcome)) {
            reply(ToolResult::error(*sentence));
            return;
        }
        tellPlace(result, std::get<PreparedEmail>(outcome), advice);
        reply(std::move(result));
    };
    host.printPage(std::move(job), [&host, reply, prepared, name, mail = std::move(mail)](PageOutcome page) mutable {
        if (const std::string* sentence = std::get_if<std::string>(&page)) {
            reply(ToolResult::error(*sentence));
            return;
        }
        mail.attachments.front().pdf = std::move(std::get<Bytes>(page));
        host.prepareEmail(std::move(mail), name, prepared);
    });
}

} // namespace Quillary
