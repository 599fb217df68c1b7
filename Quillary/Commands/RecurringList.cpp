#include "Quillary/Commands/RecurringList.h"

#include "Quillary/TextTable.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t widestText = 40;
constexpr std::size_t mostCandidates = 5;
constexpr std::size_t shownDates = 5;
constexpr const char* nothingDue = "No recurring invoice is due.\n";

std::string dayText(std::optional<Instant> day, const Calendar& calendar)
{
    return day ? isoText(calendar.date(*day)) : "";
}

JSON dayData(std::optional<Instant> day, const Calendar& calendar)
{
    return day ? JSON(isoText(calendar.date(*day))) : JSON();
}

JSON idData(const std::optional<UUID>& uuid)
{
    return uuid ? JSON(uuid->text()) : JSON();
}

JSON::Array failureData(const std::vector<RecurringError>& failures)
{
    JSON::Array list;
    for (const RecurringError& failure : failures) {
        list.push_back(JSON::object({{"template", idData(failure.templateID())}, {"message", failure.message()}}));
    }
    return list;
}

/// How well a template answers to a name: by all of its title or client, or by a part of them.
enum class Fit { none, part, whole };

Fit fit(Context& context, const Document& recurring, const std::string& asked)
{
    const Client* client = context.find(recurring.client);
    const std::string names[] = {folded(recurring.title), client == nullptr ? "" : folded(displayName(*client))};
    if (std::ranges::find(names, asked) != std::end(names)) {
        return Fit::whole;
    }
    const auto holds = [&](const std::string& name) {
        return name.find(asked) != std::string::npos;
    };
    return std::ranges::any_of(names, holds) ? Fit::part : Fit::none;
}

} // namespace

const Document& findRecurring(Context& context, std::string_view asked)
{
    const std::vector<const Document*> templates = RecurringInvoices::all(context);
    const std::optional<UUID> uuid = Lookup::idIn(asked);
    const std::string name = folded(trimmed(asked));
    std::vector<const Document*> found;
    for (const Fit wanted : {Fit::whole, Fit::part}) {
        for (const Document* recurring : templates) {
            if (uuid ? recurring->uuid == uuid : !name.empty() && fit(context, *recurring, name) == wanted) {
                found.push_back(recurring);
            }
        }
        if (!found.empty()) {
            break;
        }
    }
    if (found.empty()) {
        throw UserError(fmt::format("There's no recurring invoice “{}”. “quillary recurring” lists them.", asked));
    }
    if (found.size() > 1) {
        std::string list;
        for (const Document* recurring : std::span(found).first(std::min(found.size(), mostCandidates))) {
            list += fmt::format("{}{} [{}]",
                                list.empty() ? "" : "; ",
                                RecurringInvoices::name(context, *recurring),
                                Lookup::idText(recurring->uuid));
        }
        throw UserError(fmt::format("“{}” fits several recurring invoices. Which one? {}{}.",
                                    asked,
                                    list,
                                    found.size() > mostCandidates ? " …" : ""));
    }
    return *found.front();
}

std::string RecurringList::clientName(const Document& document) const
{
    const Client* client = m_context.find(document.client);
    return client == nullptr ? "" : displayName(*client);
}

std::string RecurringList::text(const std::vector<const Document*>& templates) const
{
    if (templates.empty()) {
        return "There are no recurring invoices.\n";
    }
    TextTable table({{.heading = "Title", .widest = widestText},
                     {.heading = "Client", .widest = widestText},
                     {.heading = "Schedule"},
                     {.heading = "State"},
                     {.heading = "Next"},
                     {.heading = "Made", .alignment = TextTable::Alignment::right}});
    for (const Document* recurring : templates) {
        const RecurringState state = RecurringTemplate::state(*recurring, m_calendar);
        const bool hasNext = state != RecurringState::ended;
        table.addRow({recurring->title,
                      clientName(*recurring),
                      RecurringTemplate::summary(*recurring, m_calendar),
                      std::string(title(state)),
                      hasNext ? dayText(recurring->nextIssueDate, m_calendar) : "",
                      std::to_string(recurring->recurrenceCount)});
    }
    return table.text();
}

JSON RecurringList::described(const Document& recurring) const
{
    return JSON::object(
        {{"id", idData(recurring.uuid)}, {"title", recurring.title}, {"client", clientName(recurring)}});
}

JSON RecurringList::entry(const Document& recurring) const
{
    JSON item = described(recurring);
    const RecurringState state = RecurringTemplate::state(recurring, m_calendar);
    item.set("schedule", RecurringTemplate::summary(recurring, m_calendar));
    item.set("state", lowerCasedASCII(title(state)));
    item.set("next_date", state == RecurringState::ended ? JSON() : dayData(recurring.nextIssueDate, m_calendar));
    item.set("made", recurring.recurrenceCount);
    item.set("creates", recurring.recurringCreatesSent ? "sent" : "draft");
    item.set("service_period", word(billingPeriod(recurring)));
    return item;
}

JSON RecurringList::data(const std::vector<const Document*>& templates) const
{
    JSON::Array list;
    for (const Document* recurring : templates) {
        list.push_back(entry(*recurring));
    }
    return JSON::object({{"recurring_invoices", std::move(list)}});
}

std::string RecurringList::text(const RecurringInvoices::Run& run, const Locale& locale) const
{
    if (run.made.empty()) {
        return run.failures.empty() ? nothingDue : "";
    }
    TextTable table({{.heading = "Number"},
                     {.heading = "Date"},
                     {.heading = "Client", .widest = widestText},
                     {.heading = "Title", .widest = widestText},
                     {.heading = "Total", .alignment = TextTable::Alignment::right},
                     {.heading = "Status"}});
    for (const Document* invoice : run.made) {
        table.addRow({invoice->number,
                      dayText(invoice->issueDate, m_calendar),
                      clientName(*invoice),
                      invoice->title,
                      Money(invoice->cachedTotalMinorUnits, invoice->currencyCode).formatted(locale),
                      status(*invoice) == DocumentStatus::draft ? "draft" : "sent"});
    }
    return table.text();
}

JSON RecurringList::data(const RecurringInvoices::Run& run) const
{
    JSON::Array made;
    for (const Document* invoice : run.made) {
        made.push_back(JSON::object(
            {{"id", idData(invoice->uuid)},
             {"number", invoice->number},
             {"date", dayData(invoice->issueDate, m_calendar)},
             {"client", clientName(*invoice)},
             {"title", invoice->title},
             {"total", JSON::Number{Money(invoice->cachedTotalMinorUnits, invoice->currencyCode).plainText()}},
             {"currency", invoice->currencyCode},
             {"template", idData(invoice->sourceDocumentID)}}));
    }
    return JSON::object(
        {{"made", std::move(made)}, {"failures", failureData(run.failures)}, {"is_complete", run.isComplete}});
}

std::string RecurringList::text(const RecurringInvoices::Preview& preview) const
{
    if (preview.due.empty()) {
        return preview.failures.empty() ? nothingDue : "";
    }
    TextTable table({{.heading = "Number"},
                     {.heading = "Date"},
                     {.heading = "Client", .widest = widestText},
                     {.heading = "Template"}});
    for (const RecurringInvoices::Expected& invoice : preview.due) {
        table.addRow({invoice.number, isoText(invoice.day), clientName(*invoice.recurring), invoice.recurring->title});
    }
    return table.text();
}

JSON RecurringList::data(const RecurringInvoices::Preview& preview) const
{
    JSON::Array due;
    for (const RecurringInvoices::Expected& invoice : preview.due) {
        due.push_back(JSON::object(
            {{"number", invoice.number}, {"date", isoText(invoice.day)}, {"template", described(*invoice.recurring)}}));
    }
    return JSON::object(
        {{"due", std::move(due)}, {"failures", failureData(preview.failures)}, {"is_complete", preview.isComplete}});
}

std::string RecurringList::text(const Document& recurring, Instant now) const
{
    const std::vector<std::string> dates = nextDates(recurring);
    std::string text = fmt::format("Schedule:       {}\nState:          {}\nInvoices:       {}\nService period: {}\n"
                                   "Next dates:     {}\n",
                                   RecurringTemplate::summary(recurring, m_calendar),
                                   title(RecurringTemplate::state(recurring, m_calendar)),
                                   recurring.recurringCreatesSent ? "marked as sent" : "drafts",
                                   title(billingPeriod(recurring)),
                                   dates.empty() ? "none" : fmt::format("{}", fmt::join(dates, ", ")));
    if (const std::size_t passed = passedDates(recurring, now); passed > 0) {
        text += passed == 1 ? "One date has come already: the next run makes its invoice.\n"
                            : fmt::format("{} dates have come already: the next run makes their invoices.\n", passed);
    }
    return text;
}

JSON RecurringList::data(const Document& recurring, Instant now) const
{
    JSON item = entry(recurring);
    JSON::Array dates;
    for (const std::string& date : nextDates(recurring)) {
        dates.emplace_back(date);
    }
    item.set("next_dates", std::move(dates));
    item.set("due_now", passedDates(recurring, now));
    return item;
}

std::string_view RecurringList::word(BillingPeriod period)
{
    switch (period) {
    case BillingPeriod::none:
        return "none";
    case BillingPeriod::current:
        return "current";
    case BillingPeriod::previous:
        return "previous";
    }
    return {};
}

std::vector<std::string> RecurringList::nextDates(const Document& recurring) const
{
    std::vector<std::string> dates;
    for (const CalendarDate day : RecurringTemplate::nextDates(recurring, shownDates, m_calendar)) {
        dates.push_back(isoText(day));
    }
    return dates;
}

/// How many of its dates have come without an invoice, as far as one run would make them.
std::size_t RecurringList::passedDates(const Document& recurring, Instant now) const
{
    const CalendarDate today = m_calendar.date(now);
    return RecurringTemplate::dueDates(recurring, today, RecurringInvoices::mostPerRun, m_calendar).size();
}

} // namespace Quillary
