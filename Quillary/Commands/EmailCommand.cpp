#include "Quillary/Commands/EmailCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/Commands/LetterFiles.h"
#include "Quillary/Commands/LetterReport.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/LetterMail.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <filesystem>
#include <system_error>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

/// Not every desktop has a folder for downloads.
fs::path usualFolder(const AppEnvironment& environment)
{
    std::error_code failure;
    return fs::is_directory(environment.downloadsFolder(), failure) ? environment.downloadsFolder()
                                                                    : environment.homeFolder();
}

LetterReport emailed(const CommandSetting& setting,
                     const std::string& asked,
                     const std::string& typedRecipients,
                     const fs::path& folder)
{
    OpenLibrary open(setting.library, setting.environment);
    PrintingHost host(setting.environment);
    const AssistantEnvironment desk = open.actionsEnvironment(setting.environment, host);
    const Document& document = Lookup::document(desk, asked);
    if (kind(document) == DocumentKind::recurring) {
        throw UserError("A recurring template isn't sent; the invoices made from it are.");
    }
    LetterMail mail = letterMail(desk, document, nullptr, typedRecipients);
    const std::string name = pdfFileName(desk.context, document, open.business(), desk.calendar);
    mail.draft.attachments.push_back(
        {name + ".pdf", host.printAndWait(pageJob(desk.context, document, open.business(), desk.calendar))});
    if (status(document).value_or(DocumentStatus::draft) == DocumentStatus::draft) {
        mail.notes.emplace_back("It is still a draft: mark it as sent when you have sent the email.");
    }
    LetterReport report;
    report.add(fmt::format("Prepared the email with {}.", Lookup::reference(document)));
    report.data.set("document", Lookup::idText(document.uuid));
    report.data.set("attachment", mail.draft.attachments.front().name);
    LetterFiles files;
    report.tellMail(mail, files, folder, name);
    files.keep();
    report.add("Nothing has been sent.");
    report.data.set("sent", false);
    return report;
}

} // namespace

EmailCommand::EmailCommand(CLI::App& app)
    : m_app(app.add_subcommand("email", "Writes a mail draft with a document's PDF. Nothing is sent."))
{
    m_app->add_option("document", m_document, "The document: its number or id.")->required();
    m_app->add_option("--mail", m_mailFolder, "The folder for the draft; the downloads folder by default.")
        ->type_name("FOLDER");
    m_app->add_option("--to", m_to, "Who it goes to, with commas; the client's address by default.");
    m_app->add_option("--output", m_output, "How to answer: text or json.")->check(CLI::IsMember({"text", "json"}));
}

bool EmailCommand::wasGiven() const
{
    return m_app->parsed();
}

int EmailCommand::run(const CommandSetting& setting) const
{
    const fs::path folder = m_mailFolder.empty() ? usualFolder(setting.environment) : fs::path(m_mailFolder);
    // The library is let go of before anything is printed, for whoever waits for it.
    emailed(setting, m_document, m_to, folder).print(m_output);
    return 0;
}

} // namespace Quillary
