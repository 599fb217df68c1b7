#include "QuillaryCore/Schedules/RecurringInvoices.h"

#include "QuillaryCore/Foundation/NameBasedUUID.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Schedules/InvoiceMaker.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <chrono>
#include <functional>
#include <utility>

namespace Quillary {

namespace {

Desk deskOf(Context& context, const Calendar& calendar)
{
    const Business* own = business(context);
    precondition(own != nullptr, "a library with documents has its business");
    return {.context = context, .business = *own, .calendar = calendar};
}

/// The keys of the templates that may be due: the index leads to their dates, so that a library in which nothing is due
/// reads none of them.
std::vector<Ref<Document>> dueTemplates(Context& context, CalendarDate today, const Calendar& calendar)
{
    const CalendarDate tomorrow(std::chrono::sys_days(today) + std::chrono::days(1));
    std::vector<Ref<Document>> keys;
    context.query(
        "SELECT id FROM Document WHERE kindRaw = 3 AND nextIssueDate < ? AND NOT isPaused "
        "AND NOT (recurrenceEndRaw = 1 AND recurrenceCount >= recurrenceEndCount) ORDER BY nextIssueDate, id",
        [&](const Statement& row) { keys.emplace_back(row.integer(0)); },
        calendar.startOfDay(tomorrow));
    return keys;
}

/// The day of the first invoice that a template owes. No value: none.
std::optional<CalendarDate> dueDay(const Document& recurring, CalendarDate today, const Calendar& calendar)
{
    if (!recurring.nextIssueDate || recurring.isPaused || RecurringTemplate::hasEnded(recurring, calendar)) {
        return std::nullopt;
    }
    const CalendarDate next = calendar.date(*recurring.nextIssueDate);
    return next > today ? std::nullopt : std::optional(next);
}

/// The catch-up of all templates. `onFailure` decides about a template that stands still: it returns, or throws.
class CatchUp
{
public:
    CatchUp(Context& context, Instant today, std::size_t limit, const Calendar& calendar)
        : m_context(context)
        , m_calendar(calendar)
        , m_today(calendar.date(today))
        , m_limit(limit)
        , m_maker(deskOf(context, calendar))
    {
    }

    RecurringInvoices::Run run(const std::function<void(const RecurringError&)>& onFailure)
    {
        for (const Ref<Document> key : dueTemplates(m_context, m_today, m_calendar)) {
            const Document* recurring = m_context.find(key);
            if (recurring == nullptr || RecurringTemplate::hasEnded(*recurring, m_calendar)) {
                continue;
            }
            try {
                makeAll(*recurring);
            } catch (const RecurringError& error) {
                onFailure(error);
                m_run.failures.push_back(error);
            }
            if (!m_run.isComplete) {
                break;
            }
        }
        return std::move(m_run);
    }

private:
    void makeAll(const Document& recurring)
    {
        while (const std::optional<CalendarDate> due = dueDay(recurring, m_today, m_calendar)) {
            if (m_count == m_limit) {
                m_run.isComplete = false;
                return;
            }
            const InvoiceMaker::Occurrence occurrence = m_maker.make(recurring, *due);
            m_count += 1;
            if (occurrence.isNew) {
                m_run.made.push_back(&occurrence.invoice);
            }
        }
    }

    Context& m_context;
    const Calendar& m_calendar;
    CalendarDate m_today;
    std::size_t m_limit;
    std::size_t m_count = 0; ///< of the occurrences that were gone through, new or not
    InvoiceMaker m_maker;
    RecurringInvoices::Run m_run;
};

} // namespace

std::vector<const Document*> RecurringInvoices::all(Context& context)
{
    return context.fetch<Document>("kindRaw = 3 ORDER BY nextIssueDate IS NULL, nextIssueDate, id");
}

std::string RecurringInvoices::name(Context& context, const Document& recurring)
{
    if (const std::string_view title = trimmed(recurring.title); !title.empty()) {
        return fmt::format("“{}”", title);
    }
    const Client* client = context.find(recurring.client);
    return client == nullptr ? "A recurring invoice without title and client"
                             : fmt::format("The recurring invoice for {}", displayName(*client));
}

std::vector<const Document*>
RecurringInvoices::makeDue(Context& context, Instant today, std::size_t limit, const Calendar& calendar)
{
    return CatchUp(context, today, limit, calendar).run([](const RecurringError& error) { throw error; }).made;
}

RecurringInvoices::Run
RecurringInvoices::catchUp(Context& context, Instant today, std::size_t limit, const Calendar& calendar)
{
    return CatchUp(context, today, limit, calendar).run([](const RecurringError&) {});
}

RecurringInvoices::Preview
RecurringInvoices::preview(Context& context, Instant today, std::size_t limit, const Calendar& calendar)
{
    auto scope = context.beginScope("Look ahead"); // the scopes inside it save nothing
    Run run = catchUp(context, today, limit, calendar);
    Preview preview{.due = {}, .failures = std::move(run.failures), .isComplete = run.isComplete};
    for (const Document* invoice : run.made) {
        const std::optional<UUID> source = invoice->sourceDocumentID;
        const std::optional<Instant> day = invoice->issueDate;
        if (source && day) { // the run gave it both
            preview.due.push_back(
                {.recurring = context.find<Document>(*source), .day = calendar.date(*day), .number = invoice->number});
        }
    }
    scope.rollback();
    return preview;
}

std::optional<RecurringError>
RecurringInvoices::obstacle(Context& context, const Document& recurring, Instant today, const Calendar& calendar)
{
    const std::optional<CalendarDate> due = dueDay(recurring, calendar.date(today), calendar);
    if (!due) {
        return std::nullopt;
    }
    const auto scope = context.beginScope("Look ahead"); // ends with the function and keeps nothing
    try {
        InvoiceMaker(deskOf(context, calendar)).make(recurring, *due);
        return std::nullopt;
    } catch (const RecurringError& error) {
        return error;
    }
}

std::optional<UUID>
RecurringInvoices::occurrenceID(const Document& recurring, Instant scheduled, const Calendar& calendar)
{
    if (!recurring.uuid) {
        return std::nullopt;
    }
    return nameBasedUUID(*recurring.uuid, "invoice " + isoText(calendar.date(scheduled)));
}

const Document&
RecurringInvoices::makeInvoice(Context& context, const Document& recurring, Instant issueDate, const Calendar& calendar)
{
    return InvoiceMaker(deskOf(context, calendar)).make(recurring, calendar.date(issueDate)).invoice;
}

} // namespace Quillary
