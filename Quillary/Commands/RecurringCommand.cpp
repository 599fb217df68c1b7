#include "Quillary/Commands/RecurringCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/Commands/RecurringList.h"
#include "Quillary/OpenLibrary.h"
#include "QuillaryCore/Assistant/Access/ShownText.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <span>
#include <vector>

namespace Quillary {

namespace {

using MissedDates = RecurringTemplate::MissedDates;

constexpr std::size_t longestMessage = 1000; ///< Unit: characters
constexpr const char* moreIsDue = "More is due than one run makes. Run it again for the rest.\n";

std::string dayText(std::optional<Instant> day, const Calendar& calendar)
{
    return day ? isoText(calendar.date(*day)) : "";
}

/// What comes next of a template, as a sentence.
std::string nextSentence(const Document& recurring, const Calendar& calendar)
{
    return RecurringTemplate::hasEnded(recurring, calendar)
               ? "Its schedule has ended."
               : fmt::format("The next invoice is that of {}.", dayText(recurring.nextIssueDate, calendar));
}

} // namespace

RecurringCommand::RecurringCommand(CLI::App& app)
    : m_app(app.add_subcommand("recurring", "Lists the recurring invoices and makes what is due of them."))
    , m_list(m_app->add_subcommand("list", "Lists them with their state and next date; also without this word."))
    , m_run(m_app->add_subcommand("run", "Makes the invoices that are due, at most 60."))
    , m_pause(m_app->add_subcommand("pause", "Makes no more invoices until it is resumed."))
    , m_resume(m_app->add_subcommand(
          "resume",
          "Goes on from today. Dates that passed while it was paused are skipped, unless --make-up is given."))
{
    m_app->require_subcommand(0, 1);
    app.add_flag("--show-recurring", m_isShown, "Shows the recurring invoices.");
    m_app->add_option("--output", m_output, "How to answer: text or json.")->check(CLI::IsMember({"text", "json"}));
    m_run->add_flag("--dry-run", m_isDryRun, "Only says what would be made.");
    for (CLI::App* command : {m_pause, m_resume}) {
        command->add_option("invoice", m_template, "The recurring invoice: its title, its client or its id.")
            ->required();
    }
    m_resume->add_flag("--make-up", m_makesUp, "Makes the invoices of the dates that passed, too, in the next run.");
    for (CLI::App* command : {m_list, m_run, m_pause, m_resume}) {
        command->fallthrough();
    }
}

bool RecurringCommand::wasGiven() const
{
    return m_app->parsed() || m_isShown;
}

int RecurringCommand::run(const CommandSetting& setting) const
{
    AppEnvironment& environment = setting.environment;
    Answer answer;
    {
        OpenLibrary library(setting.library, environment);
        if (m_run->parsed()) {
            answer = m_isDryRun ? showDue(library, environment) : runDue(library, environment);
        } else if (m_pause->parsed()) {
            answer = pause(library, environment);
        } else if (m_resume->parsed()) {
            answer = resume(library, environment);
        } else {
            answer = list(library, environment);
        }
        library.backUpIfDue(environment);
    }
    fmt::print("{}", answer.text);
    fmt::print(stderr, "{}", answer.complaint);
    return answer.complaint.empty() ? 0 : 1;
}

RecurringCommand::Answer RecurringCommand::list(OpenLibrary& library, const AppEnvironment& environment) const
{
    Context& context = library.context();
    const RecurringList list(context, environment.calendar());
    const std::vector<const Document*> templates = RecurringInvoices::all(context);
    return {.text = m_output == "json" ? list.data(templates).pretty() + "\n" : list.text(templates), .complaint = {}};
}

RecurringCommand::Answer RecurringCommand::runDue(OpenLibrary& library, const AppEnvironment& environment) const
{
    Context& context = library.context();
    const RecurringInvoices::Run run = RecurringInvoices::catchUp(
        context, environment.clock().now(), RecurringInvoices::mostPerRun, environment.calendar());
    const RecurringList list(context, environment.calendar());
    Answer answer{.text = m_output == "json" ? list.data(run).pretty() + "\n"
                                             : list.text(run, environment.locale()) + (run.isComplete ? "" : moreIsDue),
                  .complaint = {}};
    for (const RecurringError& failure : run.failures) {
        answer.complaint += ShownText::line(failure.message(), longestMessage) + "\n";
    }
    return answer;
}

RecurringCommand::Answer RecurringCommand::showDue(OpenLibrary& library, const AppEnvironment& environment) const
{
    Context& context = library.context();
    const RecurringList list(context, environment.calendar());
    const std::vector<DueInvoice> due = list.due(environment.clock().now(), RecurringInvoices::mostPerRun + 1);
    const bool isComplete = due.size() <= RecurringInvoices::mostPerRun;
    const std::span<const DueInvoice> shown(due.data(), std::min(due.size(), RecurringInvoices::mostPerRun));
    return {.text = m_output == "json" ? list.data(shown, isComplete).pretty() + "\n"
                                       : list.text(shown) + (isComplete ? "" : moreIsDue),
            .complaint = {}};
}

RecurringCommand::Answer RecurringCommand::pause(OpenLibrary& library, const AppEnvironment& environment) const
{
    Context& context = library.context();
    const Document& recurring = findRecurring(context, m_template);
    const std::string name = ShownText::line(RecurringInvoices::name(context, recurring), longestMessage);
    auto scope = context.beginScope("Pause recurring invoice");
    context.edit(recurring).isPaused = true;
    scope.commit();
    return {.text = fmt::format("{} is paused. Dates that pass meanwhile are skipped when it is resumed.{}\n",
                                name,
                                RecurringTemplate::hasEnded(recurring, environment.calendar())
                                    ? " Its schedule has ended anyway."
                                    : ""),
            .complaint = {}};
}

RecurringCommand::Answer RecurringCommand::resume(OpenLibrary& library, const AppEnvironment& environment) const
{
    Context& context = library.context();
    const Calendar& calendar = environment.calendar();
    const Document& recurring = findRecurring(context, m_template);
    const std::string name = ShownText::line(RecurringInvoices::name(context, recurring), longestMessage);
    if (!recurring.isPaused) {
        return {.text = fmt::format("{} isn't paused. {}\n", name, nextSentence(recurring, calendar)), .complaint = {}};
    }
    auto scope = context.beginScope("Resume recurring invoice");
    const std::size_t skipped = RecurringTemplate::resume(context.edit(recurring),
                                                          calendar.date(environment.clock().now()),
                                                          m_makesUp ? MissedDates::madeUp : MissedDates::skipped,
                                                          calendar);
    scope.commit();
    const std::string past = skipped == 0   ? ""
                             : skipped == 1 ? " One date that passed was skipped."
                                            : fmt::format(" {} dates that passed were skipped.", skipped);
    return {.text = fmt::format("{} goes on.{} {}\n", name, past, nextSentence(recurring, calendar)), .complaint = {}};
}

} // namespace Quillary
