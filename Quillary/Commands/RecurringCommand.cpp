#include "Quillary/Commands/RecurringCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/Commands/CommandSession.h"
#include "Quillary/Commands/RecurringList.h"
#include "QuillaryCore/Assistant/Access/ShownText.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"

#include <CLI/CLI.hpp>

namespace Quillary {

namespace {

constexpr std::size_t longestMessage = 1000; ///< Unit: characters
constexpr const char* moreIsDue = "More is due than one run makes. Run it again for the rest.\n";

RecurringList listOf(CommandSession& session)
{
    return {session.context(), session.environment().calendar};
}

CommandAnswer listAll(CommandSession& session)
{
    const std::vector<const Document*> templates = RecurringInvoices::all(session.context());
    return {.text = listOf(session).text(templates), .data = listOf(session).data(templates)};
}

/// What is common to a run and its preview.
CommandAnswer withFailures(CommandAnswer answer, const std::vector<RecurringError>& failures, bool isComplete)
{
    answer.text += isComplete ? "" : moreIsDue;
    for (const RecurringError& failure : failures) {
        answer.complaint += ShownText::line(failure.message(), longestMessage) + "\n";
    }
    return answer;
}

CommandAnswer runDue(CommandSession& session)
{
    const RecurringInvoices::Run run = RecurringInvoices::catchUp(
        session.context(), session.now(), RecurringInvoices::mostPerRun, session.environment().calendar);
    return withFailures(
        {.text = listOf(session).text(run, session.environment().locale), .data = listOf(session).data(run)},
        run.failures,
        run.isComplete);
}

CommandAnswer showDue(CommandSession& session)
{
    const RecurringInvoices::Preview preview = RecurringInvoices::preview(
        session.context(), session.now(), RecurringInvoices::mostPerRun, session.environment().calendar);
    return withFailures({.text = listOf(session).text(preview), .data = listOf(session).data(preview)},
                        preview.failures,
                        preview.isComplete);
}

} // namespace

RecurringCommand::RecurringCommand(CLI::App& app)
    : m_app(app.add_subcommand("recurring", "Makes and lists recurring invoices, and what is due of them."))
{
    m_app->require_subcommand(0, 1);
    app.add_flag("--show-recurring",
                 m_isShown,
                 "Shows the recurring invoices: in the window, or as text where there is no screen.");
    CommandSession::addOutput(*m_app, m_output);
    add("list", "Lists them with their state and next date; also without this word.", listAll);
    add("run", "Makes the invoices that are due, at most 60.", [this](CommandSession& session) {
        return m_isDryRun ? showDue(session) : runDue(session);
    }).add_flag("--dry-run", m_isDryRun, "Only says what would be made, and what can't be.");
    addSetup();
    addOnTemplate("pause", "Makes no more invoices until it is resumed.", RecurringChanges::pause);
    addOnTemplate("resume",
                  "Goes on from today. Dates that passed while it was paused are skipped, unless --make-up is given.",
                  RecurringChanges::resume)
        .add_flag("--make-up", m_request.makesUp, "Makes the invoices of the dates that passed, too, in the next run.");
    addOnTemplate("delete", "Deletes it; the invoices that were made from it stay.", RecurringChanges::remove);
}

CLI::App& RecurringCommand::add(const std::string& name, const std::string& description, Work work)
{
    CLI::App* command = m_app->add_subcommand(name, description);
    command->fallthrough();
    m_commands.emplace_back(command, std::move(work));
    return *command;
}

CLI::App& RecurringCommand::addOnTemplate(const std::string& name, const std::string& description, Change change)
{
    CLI::App& command =
        add(name, description, [this, change](CommandSession& session) { return change(session, m_request); });
    command.add_option("invoice", m_request.recurring, "The recurring invoice: its title, its client or its id.")
        ->required();
    return command;
}

void RecurringCommand::addSetup()
{
    CLI::App& create =
        add("create",
            "Makes a recurring invoice from an invoice: every month unless you say otherwise, first one interval after "
            "that one.",
            [this](CommandSession& session) { return RecurringChanges::create(session, m_request); });
    create.add_option("document", m_request.document, "The invoice to repeat: its number or id.")->required();
    create
        .add_option(
            "--start", m_request.next, "When the first invoice is made. If that is past, a run makes up for it.")
        ->type_name("YYYY-MM-DD");
    addChoices(create);
    CLI::App& edit =
        addOnTemplate("edit",
                      "Changes a recurring invoice. Another unit, interval or day counts from its next date on.",
                      RecurringChanges::edit);
    edit.add_option("--next", m_request.next, "When the next invoice is made.")->type_name("YYYY-MM-DD");
    edit.add_option("--client", m_request.client, "Another client: name, number or id.");
    addChoices(edit);
    edit.get_option("--count")->excludes(edit.get_option("--until"),
                                         edit.add_flag("--no-end", m_request.isEndless, "It has no end any more."));
    edit.get_option("--until")->excludes(edit.get_option("--no-end"));
}

void RecurringCommand::addChoices(CLI::App& command)
{
    command.add_option("--title",
                       m_request.title,
                       "Its title, with {month}, {month_year}, {quarter}, {year}, {period} … as you like.");
    command.add_option("--unit", m_request.unit, "week, month, quarter or year.")->type_name("UNIT");
    command.add_option("--interval", m_request.interval, "How many of these lie between two invoices.");
    command.add_option("--day", m_request.day, "The day of the month, 1 to 31; a shorter month uses its last day.");
    CLI::Option* count = command.add_option("--count", m_request.count, "Ends after so many invoices.");
    CLI::Option* until =
        command.add_option("--until", m_request.until, "Ends after this day.")->type_name("YYYY-MM-DD");
    CLI::Option* sent = command.add_flag("--sent", m_request.sends, "Its invoices are marked as sent at once.");
    CLI::Option* draft = command.add_flag("--draft", m_request.drafts, "Its invoices wait as drafts.");
    command
        .add_option("--service-period",
                    m_request.servicePeriod,
                    "The period that its invoices state: none, current (starting on the invoice date) or previous.")
        ->type_name("PERIOD");
    count->excludes(until);
    sent->excludes(draft);
}

bool RecurringCommand::wasGiven() const
{
    return m_app->parsed() || (m_isShown && !AppEnvironment().hasDisplay());
}

int RecurringCommand::run(const CommandSetting& setting) const
{
    for (const auto& [command, work] : m_commands) {
        if (command->parsed()) {
            return CommandSession::run(setting, m_output, work);
        }
    }
    return CommandSession::run(setting, m_output, listAll);
}

} // namespace Quillary
