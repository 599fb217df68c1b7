#include "QuillaryCore/Billing/DisplayStatus.h"

#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"

#include <algorithm>

namespace Quillary {

namespace {

DisplayStatus sentStatus(const Document& document, Instant today, const Calendar& calendar)
{
    const Instant startOfToday = calendar.startOfDay(today);
    if (acceptsPayments(document)) {
        if (document.dueDate && *document.dueDate < startOfToday) {
            return DisplayStatus::overdue;
        }
        return isPartlyPaid(document) ? DisplayStatus::partlyPaid : DisplayStatus::sent;
    }
    if (kind(document) == DocumentKind::quote && document.validUntil &&
        calendar.startOfDay(*document.validUntil) < startOfToday) {
        return DisplayStatus::expired;
    }
    return DisplayStatus::sent;
}

} // namespace

std::string_view rawText(DisplayStatus status)
{
    switch (status) {
    case DisplayStatus::draft:
        return "draft";
    case DisplayStatus::sent:
        return "sent";
    case DisplayStatus::partlyPaid:
        return "partlyPaid";
    case DisplayStatus::overdue:
        return "overdue";
    case DisplayStatus::paid:
        return "paid";
    case DisplayStatus::accepted:
        return "accepted";
    case DisplayStatus::declined:
        return "declined";
    case DisplayStatus::expired:
        return "expired";
    }
    return {};
}

std::optional<DisplayStatus> displayStatusFromRaw(std::string_view text)
{
    for (const DisplayStatus status : allDisplayStatuses) {
        if (rawText(status) == text) {
            return status;
        }
    }
    return std::nullopt;
}

std::string_view title(DisplayStatus status, std::optional<DocumentKind> kind)
{
    switch (status) {
    case DisplayStatus::draft:
        return "Draft";
    case DisplayStatus::sent:
        return "Sent";
    case DisplayStatus::partlyPaid:
        return "Partly Paid";
    case DisplayStatus::overdue:
        return "Overdue";
    case DisplayStatus::paid:
        return kind == DocumentKind::creditNote ? "Refunded" : "Paid";
    case DisplayStatus::accepted:
        return "Accepted";
    case DisplayStatus::declined:
        return "Declined";
    case DisplayStatus::expired:
        return "Expired";
    }
    return {};
}

DisplayStatus displayStatus(const Document& document, Instant today, const Calendar& calendar)
{
    switch (status(document).value_or(DocumentStatus::draft)) {
    case DocumentStatus::draft:
        return DisplayStatus::draft;
    case DocumentStatus::sent:
        return sentStatus(document, today, calendar);
    case DocumentStatus::paid:
        return DisplayStatus::paid;
    case DocumentStatus::accepted:
        return DisplayStatus::accepted;
    case DocumentStatus::declined:
        return DisplayStatus::declined;
    }
    return DisplayStatus::draft;
}

int daysOverdue(const Document& document, Instant today, const Calendar& calendar)
{
    return document.dueDate ? std::max(0, calendar.daysBetween(*document.dueDate, today)) : 0;
}

} // namespace Quillary
