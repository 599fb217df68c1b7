#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Operations/ServiceDate.h"
#include "QuillaryCore/Model/DeliveryKind.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/Limits.h"

#include <fmt/format.h>

namespace Quillary {

namespace {

bool isQuote(const Document& document)
{
    return kind(document) == DocumentKind::quote;
}

} // namespace

void DocumentSession::applyDates(const Arguments& arguments)
{
    const Calendar& calendar = m_environment.calendar;
    const std::optional<CalendarDate> issueDate = arguments.date("issue_date");
    if (issueDate && isTemplate()) {
        arguments.refuse("issue_date", "follows from the schedule of a recurring invoice.");
    }
    if (issueDate) {
        if (isQuote(m_document) && m_document.validUntil && m_document.issueDate) {
            const int validity = calendar.daysBetween(*m_document.issueDate, *m_document.validUntil);
            m_document.validUntil = calendar.addingDays(calendar.storedDay(*issueDate), validity);
        }
        const bool isSameDay = m_document.issueDate && calendar.date(*m_document.issueDate) == *issueDate;
        m_document.issueDate = isSameDay ? m_document.issueDate : calendar.storedDay(*issueDate);
    }
    if (const auto terms = arguments.wholeNumber("payment_terms_days", 0, Limits::paymentTermsDays)) {
        if (!asksForPayment()) {
            arguments.refuse("payment_terms_days",
                             fmt::format("belongs to invoices: a {} asks for no payment.",
                                         isQuote(m_document) ? "quote" : "credit note"));
        }
        m_document.paymentTermsDays = static_cast<std::int16_t>(*terms);
    }
}

void DocumentSession::applyValidity(const Arguments& arguments)
{
    const std::optional<CalendarDate> until = arguments.date("valid_until");
    if (!until) {
        return;
    }
    if (!isQuote(m_document)) {
        arguments.refuse("valid_until", "belongs to quotes.");
    }
    const Instant day = m_environment.calendar.storedDay(*until);
    if (m_document.issueDate && day < *m_document.issueDate) {
        arguments.refuse("valid_until", "is before the quote's own date.");
    }
    m_document.validUntil = day;
}

void DocumentSession::applyDueDate(std::optional<Instant> oldIssueDate, std::int16_t oldTerms)
{
    if (!asksForPayment() || isTemplate() || !m_document.issueDate) {
        return;
    }
    // A due date that the user picked stays until the dates that it hangs on change.
    const bool hangsOnChange = m_document.issueDate != oldIssueDate || m_document.paymentTermsDays != oldTerms;
    if (!m_document.dueDate || hangsOnChange) {
        m_document.dueDate = m_environment.calendar.addingDays(*m_document.issueDate, m_document.paymentTermsDays);
    }
}

void DocumentSession::applyServiceDate(const Arguments& arguments)
{
    const std::optional<std::string> text = arguments.line("service_date", Limits::lineLength);
    if (!text) {
        return;
    }
    if (text->empty()) {
        m_document.deliveryKindRaw = static_cast<std::int16_t>(DeliveryKind::none);
        m_document.deliveryStart.reset();
        m_document.deliveryEnd.reset();
        return;
    }
    const Calendar& calendar = m_environment.calendar;
    const CalendarDate today = calendar.date(m_environment.clock.now());
    const CalendarDate invoiceDate = m_document.issueDate ? calendar.date(*m_document.issueDate) : today;
    const std::optional<ServiceDate> service = ServiceDate::parse(*text, today, invoiceDate);
    if (!service) {
        arguments.refuse("service_date",
                         "must be a date such as 2026-03-31, a period such as 2026-03-01..2026-03-31, or today, "
                         "yesterday, invoice_date, this_week, last_week, this_month or last_month.");
    }
    const DeliveryKind delivery = service->end ? DeliveryKind::servicePeriod : DeliveryKind::serviceDate;
    m_document.deliveryKindRaw = static_cast<std::int16_t>(delivery);
    m_document.deliveryStart = calendar.storedDay(service->start);
    m_document.deliveryEnd = service->end ? std::optional(calendar.storedDay(*service->end)) : std::nullopt;
}

} // namespace Quillary
