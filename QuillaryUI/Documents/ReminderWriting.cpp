#include "QuillaryUI/Documents/ReminderWriting.h"

#include "QuillaryCore/Assistant/Operations/LetterMail.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Letters/LetterFileName.h"
#include "QuillaryCore/Letters/ReminderLetter.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QCoreApplication>
#include <QPointer>

#include <string>
#include <utility>

namespace Quillary::ReminderWriting {

namespace {

/// What outlives whoever asked for the letter.
struct Letter
{
    QPointer<LibraryAccess> library;
    PlannedReminder planned;
    std::filesystem::path folder;
    std::string name;
    std::optional<MailDraft> mail; ///< made first: its words count what is due without this reminder
    AssistantHost* host = nullptr;
};

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReminderWriting)
};

const Document* found(const LibraryAccess& library, std::int64_t key)
{
    return library.isOpen() ? library.context().find(Ref<Document>(key)) : nullptr;
}

/// Throws: `UserError`.
void record(const Letter& letter)
{
    const ReminderDetails& details = letter.planned.notice.details;
    const auto refusal = letter.library->perform(Words::tr("Send Reminder"), [&] {
        const Document* document = found(*letter.library, letter.planned.document);
        if (document == nullptr) {
            throw UserError(utf8(Words::tr("The invoice isn't there any more.")));
        }
        addReminder(letter.library->context(),
                    *document,
                    details.level,
                    details.feeMinorUnits,
                    letter.planned.notice.date,
                    details.payBy);
    });
    if (refusal) {
        throw UserError(utf8(*refusal));
    }
}

Outcome lay(const Letter& letter, const PrintResult& result)
{
    if (const auto* error = std::get_if<PrintError>(&result)) {
        return CoreText::sentence(error->message());
    }
    if (!letter.library) {
        return Words::tr("The library was closed before the letter was printed.");
    }
    if (const auto refused = refusal(*letter.library, letter.planned)) {
        return *refused; // paid meanwhile, or reminded of
    }
    try {
        auto file = saveUniqueFile(letter.folder, letter.name, "pdf", std::get<PrintedPDF>(result).bytes);
        try {
            record(letter);
        } catch (...) {
            std::error_code ignored;
            std::filesystem::remove(file, ignored); // a letter of a reminder that there isn't
            throw;
        }
        return WrittenReminder{.file = std::move(file), .email = {}};
    } catch (const UserError& error) {
        return CoreText::sentence(error.message());
    }
}

void finish(Letter letter, const PrintResult& result, const std::function<void(const Outcome&)>& reply)
{
    const Outcome outcome = lay(letter, result);
    const auto* written = std::get_if<WrittenReminder>(&outcome);
    if (written == nullptr || !letter.mail) {
        reply(outcome);
        return;
    }
    letter.mail->attachments = {{written->file.filename().string(), std::get<PrintedPDF>(result).bytes}};
    letter.host->prepareEmail(
        *std::move(letter.mail), letter.name, [reply, file = written->file](const EmailOutcome& email) {
            if (const auto* sentence = std::get_if<std::string>(&email)) {
                reply(Words::tr("The reminder is recorded and its letter is %1, but there is no "
                                "email. %2")
                          .arg(text(file.string()), CoreText::sentence(*sentence)));
            } else {
                reply(WrittenReminder{file, std::get<PreparedEmail>(email)});
            }
        });
}

std::optional<MailDraft>
mailOf(const AssistantEnvironment& environment, const Document& document, const PlannedReminder& planned)
{
    return planned.emailTo ? std::optional(letterMail(environment, document, &planned.notice, *planned.emailTo).draft)
                           : std::nullopt;
}

} // namespace

std::optional<PlannedReminder> next(const LibraryAccess& library, std::int64_t document)
{
    const Document* record = found(library, document);
    if (record == nullptr) {
        return std::nullopt;
    }
    const Calendar& calendar = library.formats().calendar();
    const Instant today = calendar.storedDay(calendar.date(library.now()));
    return PlannedReminder{
        document,
        {.details = nextReminder(library.context(), *record, library.business(), today, calendar), .date = today}};
}

std::optional<QString> refusal(const LibraryAccess& library, const PlannedReminder& planned)
{
    const Document* document = found(library, planned.document);
    if (document == nullptr) {
        return Words::tr("The invoice isn't there any more.");
    }
    const auto sentence = checkReminder(
        library.context(), *document, planned.notice.details, planned.notice.date, library.formats().calendar());
    return sentence ? std::optional(CoreText::sentence(*sentence)) : std::nullopt;
}

std::optional<PageJob> letter(const LibraryAccess& library, const PlannedReminder& planned)
{
    const Document* document = found(library, planned.document);
    if (document == nullptr) {
        return std::nullopt;
    }
    return pageJob(ReminderLetter::printed(
        library.context(), *document, library.business(), planned.notice, library.formats().calendar()));
}

void write(LibraryAccess& library,
           const PlannedReminder& planned,
           const std::filesystem::path& folder,
           std::function<void(const Outcome&)> reply)
{
    if (const auto refused = refusal(library, planned)) {
        reply(*refused);
        return;
    }
    const Document* document = found(library, planned.document);
    std::optional<PageJob> page = letter(library, planned);
    if (document == nullptr || !page) {
        reply(Words::tr("The invoice isn't there any more."));
        return;
    }
    std::optional<MailDraft> mail;
    if (const auto refused = library.attempt([&] { mail = mailOf(library.environment(), *document, planned); })) {
        reply(*refused);
        return;
    }
    Letter waiting{.library = &library,
                   .planned = planned,
                   .folder = folder,
                   .name = LetterFileName::ofReminder(library.context(),
                                                      *document,
                                                      library.business(),
                                                      planned.notice.details.level,
                                                      planned.notice.date,
                                                      library.formats().calendar()),
                   .mail = std::move(mail),
                   .host = planned.emailTo ? &library.environment().printer() : nullptr};
    library.press().press(*std::move(page),
                          [waiting = std::move(waiting), reply = std::move(reply)](const PrintResult& result) {
                              finish(waiting, result, reply);
                          });
}

} // namespace Quillary::ReminderWriting
