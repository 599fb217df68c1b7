#include "Quillary/Commands/RemindCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/Commands/LetterFiles.h"
#include "Quillary/Commands/LetterReport.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/LetterMail.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Letters/LetterFileName.h"
#include "QuillaryCore/Letters/ReminderLetter.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Money/Money.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <array>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

ReminderLevel typedLevel(const std::string& typed)
{
    constexpr std::pair<std::string_view, ReminderLevel> words[] = {{"1", ReminderLevel::first},
                                                                    {"first", ReminderLevel::first},
                                                                    {"2", ReminderLevel::second},
                                                                    {"second", ReminderLevel::second},
                                                                    {"3", ReminderLevel::final},
                                                                    {"final", ReminderLevel::final}};
    for (const auto& [word, level] : words) {
        if (word == lowerCasedASCII(typed)) {
            return level;
        }
    }
    throw UserError(
        fmt::format("The level of a reminder is 1, 2 or 3 (first, second or final), not {}.", inQuotes(typed)));
}

std::int64_t typedFee(const std::string& typed, const std::string& currencyCode, const Locale& locale)
{
    const std::optional<Money> fee = Money::typed(typed, currencyCode, locale);
    if (!fee) {
        throw UserError(fmt::format("The fee must be an amount such as 10.00, not {}.", inQuotes(typed)));
    }
    return fee->minorUnits();
}

Instant typedDay(const std::string& typed, const Calendar& calendar)
{
    const std::optional<CalendarDate> day = documentDate(typed);
    if (!day) {
        throw UserError(fmt::format("The day to pay by must be a date such as 2026-03-31, not {}.", inQuotes(typed)));
    }
    return calendar.storedDay(*day);
}

const Reminder& requiredReminder(const AssistantEnvironment& desk, const Document& document)
{
    const Reminder* last = lastReminder(desk.context, document);
    if (last == nullptr) {
        throw UserError(fmt::format("No reminder of {} has been recorded.", Lookup::reference(document)));
    }
    return *last;
}

void record(Context& context, const Document& document, const ReminderNotice& reminder)
{
    const ReminderDetails& details = reminder.details;
    addReminder(context, document, details.level, details.feeMinorUnits, reminder.date, details.payBy);
}

/// The invoice as it is once the reminder is recorded: with its fee, and the day that it asks to pay by.
PageJob invoicePage(const AssistantEnvironment& desk, const Document& document, const ReminderNotice& reminder)
{
    auto scope = desk.context.beginScope("Look ahead"); // taken back at once: nothing is recorded before the letter
    if (!reminder.isRecorded) {
        record(desk.context, document, reminder);
    }
    PageJob job = pageJob(desk.context, document, desk.ownBusiness(), desk.calendar);
    scope.rollback();
    return job;
}

} // namespace

RemindCommand::RemindCommand(CLI::App& app)
    : m_app(app.add_subcommand("remind", "Writes the next payment reminder of an invoice and records it."))
{
    m_app->add_option("document", m_document, "The invoice: its number or id.")->required();
    auto* level = m_app->add_option("--level", m_level, "1, 2 or 3; the next one by default.");
    auto* fee = m_app->add_option("--fee", m_fee, "The late fee, 0 for none; that of the settings by default.");
    auto* payBy = m_app->add_option("--pay-by", m_payBy, "The new day to pay by; that of the settings by default.");
    m_app->add_option("--pdf", m_pdfFolder, "The folder that the letter is written to.")->type_name("FOLDER");
    m_app->add_option("--mail", m_mailFolder, "The folder for a mail draft with the letter.")->type_name("FOLDER");
    m_app->add_option("--to", m_to, "Who the mail goes to, with commas; the client's address by default.");
    m_app->add_flag("--with-invoice", m_withInvoice, "Puts the invoice into the mail, too.");
    m_app->add_option("--output", m_output, "How to answer: text or json.")->check(CLI::IsMember({"text", "json"}));
    auto* dryRun =
        m_app->add_flag("--dry-run", m_dryRun, "Says what the reminder would be. Nothing is recorded or written.");
    auto* again = m_app->add_flag("--again", m_again, "Writes the last reminder once more. Nothing is recorded.");
    auto* undo = m_app->add_flag("--undo", m_undo, "Takes the last reminder and its fee back.");
    again->excludes(level, fee, payBy, dryRun);
    undo->excludes(level, fee, payBy, dryRun, again);
    level->type_name("LEVEL");
    fee->type_name("AMOUNT");
    payBy->type_name("YYYY-MM-DD");
}

bool RemindCommand::wasGiven() const
{
    return m_app->parsed();
}

/// The library is let go of before anything is printed, for whoever waits for it.
int RemindCommand::run(const CommandSetting& setting) const
{
    if (m_undo && writesFiles()) {
        throw UserError("--undo writes no files: leave --pdf and --mail out.");
    }
    if (m_mailFolder.empty() && (m_withInvoice || !m_to.empty())) {
        throw UserError("--to and --with-invoice belong to a mail: say --mail FOLDER, too.");
    }
    if (m_again && !writesFiles()) {
        throw UserError("Where to? Say --pdf FOLDER, --mail FOLDER or both.");
    }
    report(setting).print(m_output);
    return 0;
}

LetterReport RemindCommand::report(const CommandSetting& setting) const
{
    OpenLibrary open(setting.library, setting.environment);
    PrintingHost host(setting.environment);
    const AssistantEnvironment desk = open.actionsEnvironment(setting.environment, host);
    const Document& document = Lookup::document(desk, m_document);
    if (m_undo) {
        LetterReport report = takenBack(desk, document);
        open.backUpIfDue(setting.environment);
        return report;
    }
    const ReminderNotice reminder = notice(desk, document);
    LetterReport report;
    report.tellReminder(desk, document, reminder);
    if (m_dryRun) {
        report.add("Nothing has been recorded or written.");
        report.data.set("recorded", false);
        return report;
    }
    write(report, desk, document, reminder, host);
    open.backUpIfDue(setting.environment);
    return report;
}

ReminderNotice RemindCommand::notice(const AssistantEnvironment& desk, const Document& document) const
{
    return m_again ? recordedNotice(requiredReminder(desk, document)) : plannedNotice(desk, document);
}

ReminderNotice RemindCommand::plannedNotice(const AssistantEnvironment& desk, const Document& document) const
{
    const Calendar& calendar = desk.calendar;
    const Instant today = calendar.storedDay(calendar.date(desk.clock.now()));
    const ReminderLevel level = m_level.empty() ? nextReminderLevel(desk.context, document) : typedLevel(m_level);
    ReminderDetails details = reminderOfLevel(desk.context, document, desk.ownBusiness(), level, today, calendar);
    if (!m_fee.empty()) {
        details.feeMinorUnits = typedFee(m_fee, document.currencyCode, desk.locale);
    }
    if (!m_payBy.empty()) {
        details.payBy = typedDay(m_payBy, calendar);
    }
    if (const auto refusal = checkReminder(desk.context, document, details, today, calendar)) {
        throw UserError(fmt::format("{} can't be reminded of. {}", Lookup::reference(document), *refusal));
    }
    return {.details = details, .date = today};
}

void RemindCommand::write(LetterReport& report,
                          const AssistantEnvironment& desk,
                          const Document& document,
                          const ReminderNotice& reminder,
                          PrintingHost& host) const
{
    Context& context = desk.context;
    const Business& business = desk.ownBusiness();
    const std::string name =
        LetterFileName::ofReminder(context, document, business, reminder.details.level, reminder.date, desk.calendar);
    LetterFiles files;
    if (writesFiles()) {
        // Whatever can be refused comes before the first file.
        LetterMail mail = m_mailFolder.empty() ? LetterMail() : letterMail(desk, document, &reminder, m_to);
        Bytes letter =
            host.printAndWait(pageJob(ReminderLetter::printed(context, document, business, reminder, desk.calendar)));
        if (m_withInvoice) {
            mail.draft.attachments.push_back({pdfFileName(context, document, business, desk.calendar) + ".pdf",
                                              host.printAndWait(invoicePage(desk, document, reminder))});
        }
        if (!m_pdfFolder.empty()) {
            report.tellFile("letter", "Letter", files.save(m_pdfFolder, name, "pdf", letter));
        }
        if (!m_mailFolder.empty()) {
            mail.draft.attachments.insert(mail.draft.attachments.begin(), {name + ".pdf", std::move(letter)});
            report.tellMail(mail, files, m_mailFolder, name);
        }
    }
    if (!reminder.isRecorded) {
        auto scope = context.beginScope(fmt::format("Record {}", title(reminder.details.level)));
        record(context, document, reminder);
        scope.commit();
    }
    files.keep();
    report.data.set("recorded", !reminder.isRecorded);
    report.data.set("sent", false);
    report.add(
        fmt::format("{}{} Nothing has been sent.",
                    reminder.isRecorded ? "Nothing has been recorded: it was before." : "The reminder is recorded.",
                    writesFiles() ? "" : " No letter was written (--pdf FOLDER, --mail FOLDER)."));
}

LetterReport RemindCommand::takenBack(const AssistantEnvironment& desk, const Document& document) const
{
    const Reminder& last = requiredReminder(desk, document);
    const ReminderNotice notice = recordedNotice(last);
    auto scope = desk.context.beginScope(fmt::format("Take Back {}", title(notice.details.level)));
    deleteReminder(desk.context, last);
    scope.commit();
    LetterReport report;
    report.tellTakenBack(desk, document, notice);
    return report;
}

} // namespace Quillary
