#include "Quillary/Commands/DocumentCommand.h"

#include "Quillary/Commands/CommandSession.h"
#include "QuillaryCore/Foundation/Precondition.h"

#include <CLI/CLI.hpp>

#include <source_location>
#include <utility>

namespace Quillary {

DocumentCommand::DocumentCommand(CLI::App& app)
    : m_app(app.add_subcommand("document", "Lists documents and does to them what can be done after the draft."))
{
    m_app->require_subcommand(1);
    CommandSession::addOutput(*m_app, m_output);
    addList();
    addCopies();
    addChanges();
}

CLI::App& DocumentCommand::add(const std::string& name, const std::string& description, Work work)
{
    CLI::App* command = m_app->add_subcommand(name, description);
    command->fallthrough();
    m_commands.emplace_back(command, std::move(work));
    return *command;
}

CLI::App& DocumentCommand::addOnDocument(const std::string& name, const std::string& description, Work work)
{
    CLI::App& command = add(name, description, std::move(work));
    command.add_option("document", m_change.document, "Its number or id.")->required();
    return command;
}

void DocumentCommand::addList()
{
    CLI::App& list = add("list", "Lists documents, the newest first.", [this](CommandSession& session) {
        return listDocuments(session, m_list);
    });
    list.add_option("--kind", m_list.kind, "invoice, quote, credit-note or recurring.");
    list.add_option(
        "--status", m_list.status, "open, draft, sent, partly-paid, overdue, paid, accepted, declined or expired.");
    list.add_option("--period", m_list.period, "When it was issued: this-quarter, last-month, 2026, 2026-07 …");
    list.add_option("--client", m_list.client, "The client's name, number or id.");
    list.add_option("--project", m_list.project, "The project's name or id.");
    list.add_option("--tag", m_list.tag, "One of its tags.");
    list.add_option("--text", m_list.text, "What its number, title or client holds.");
    list.add_option("--limit", m_list.limit, "At most this many (default 50); 0 for all.");
    addOnDocument("show",
                  "Shows a document with all its lines, payments and what is left to credit.",
                  [this](CommandSession& session) { return DocumentChanges::show(session, m_change); });
}

void DocumentCommand::addCopies()
{
    constexpr const char* dateHelp = "The new document's date as YYYY-MM-DD; today by default.";
    CLI::App& credit =
        addOnDocument("credit-note",
                      "Makes a draft that takes an invoice back, or what is left of it.",
                      [this](CommandSession& session) { return DocumentChanges::creditNote(session, m_change); });
    credit.add_option("--line", m_change.lines, "Only this line: its number, or 3=1.5 for a part of it. Repeatable.")
        ->type_name("NUMBER[=QUANTITY]")
        ->allow_extra_args(false)
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    credit.add_flag("--fees", m_change.withFees, "With chosen lines: takes the fees back as well.");
    credit.add_option("--date", m_change.date, dateHelp);
    addOnDocument("invoice",
                  "Makes an invoice from a quote, which is accepted with it.",
                  [this](CommandSession& session) { return DocumentChanges::invoice(session, m_change); })
        .add_option("--date", m_change.date, dateHelp);
    addOnDocument("duplicate", "Makes a draft with the same contents.", [this](CommandSession& session) {
        return DocumentChanges::duplicate(session, m_change);
    }).add_option("--date", m_change.date, dateHelp);
}

void DocumentCommand::addChanges()
{
    addOnDocument("status",
                  "Marks a document as sent, paid, accepted …",
                  [this](CommandSession& session) { return DocumentChanges::status(session, m_change); })
        .add_option(
            "action",
            m_change.action,
            "sent, paid, unpaid, draft, accepted, declined, reopen; refunded and not-refunded for credit notes.")
        ->required();
    CLI::App& pay = addOnDocument("pay",
                                  "Records a payment for an invoice, or takes one back.",
                                  [this](CommandSession& session) { return DocumentChanges::pay(session, m_change); });
    CLI::Option* amount = pay.add_option("--amount", m_change.amount, "What came in; all that is due by default.");
    pay.add_option("--date", m_change.date, "When it came in, as YYYY-MM-DD; today by default.");
    pay.add_option("--method", m_change.method, "bankTransfer (by default), cash, card, paypal, cheque or other.");
    pay.add_option("--note", m_change.note, "A note for yourself.");
    pay.add_option("--remove", m_change.removedPayment, "Takes back this payment: its number in “show”, or its id.")
        ->excludes(amount);
    addOnDocument("tag", "Sets the tags of a document; none takes all off.", [this](CommandSession& session) {
        return DocumentChanges::tag(session, m_change);
    }).add_option("tags", m_change.tags, "All its tags from now on.");
    addOnDocument("project", "Puts a document into a project; none takes it out.", [this](CommandSession& session) {
        return DocumentChanges::project(session, m_change);
    }).add_option("project", m_change.project, "The project's name or id.");
    addOnDocument("delete",
                  "Deletes a draft; its number and its time entries are free again.",
                  [this](CommandSession& session) { return DocumentChanges::remove(session, m_change); });
}

bool DocumentCommand::wasGiven() const
{
    return m_app->parsed();
}

int DocumentCommand::run(const CommandSetting& setting) const
{
    for (const auto& [command, work] : m_commands) {
        if (command->parsed()) {
            return CommandSession::run(setting, m_output, work);
        }
    }
    stopProgram("one of the document commands was given", std::source_location::current());
}

} // namespace Quillary
