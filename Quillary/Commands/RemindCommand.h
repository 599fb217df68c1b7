#pragma once

#include "Quillary/Commands/Command.h"
#include "QuillaryCore/Billing/Reminders.h"

#include <string>

namespace CLI {
class App;
}

namespace Quillary {

class LetterReport;
class PrintingHost;
struct AssistantEnvironment;
struct Document;

/// `quillary remind DOCUMENT`: writes the next payment reminder of an invoice and records it.
///
/// First everything is checked and the page is printed, then the files are written, and last the reminder is recorded in
/// one scope; when that fails the files are removed. So a reminder is never recorded without its letter, and a command
/// that dies in between leaves at most files that nothing was recorded for: it can be given again.
class RemindCommand : public Command
{
public:
    explicit RemindCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    [[nodiscard]] LetterReport report(const CommandSetting& setting) const;
    [[nodiscard]] ReminderNotice notice(const AssistantEnvironment& desk, const Document& document) const;
    [[nodiscard]] ReminderNotice plannedNotice(const AssistantEnvironment& desk, const Document& document) const;
    void write(LetterReport& report,
               const AssistantEnvironment& desk,
               const Document& document,
               const ReminderNotice& reminder,
               PrintingHost& host) const;
    [[nodiscard]] LetterReport takenBack(const AssistantEnvironment& desk, const Document& document) const;
    [[nodiscard]] bool writesFiles() const { return !m_pdfFolder.empty() || !m_mailFolder.empty(); }

    CLI::App* m_app;
    std::string m_document;
    std::string m_level;
    std::string m_fee;
    std::string m_payBy;
    std::string m_pdfFolder;
    std::string m_mailFolder;
    std::string m_to;
    std::string m_output = "text";
    bool m_withInvoice = false;
    bool m_dryRun = false;
    bool m_again = false;
    bool m_undo = false;
};

} // namespace Quillary
