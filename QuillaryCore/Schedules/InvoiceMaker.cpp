#include "QuillaryCore/Schedules/InvoiceMaker.h"

#include "QuillaryCore/Billing/StatusActions.h"
#include "QuillaryCore/Documents/DocumentCopy.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DeliveryKind.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/PrintLocale.h"
#include "QuillaryCore/Schedules/BillingPeriod.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/StoreError.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

namespace Quillary {

namespace {

using Reason = RecurringError::Reason;
using std::chrono::days;
using std::chrono::sys_days;

CalendarDate dayBefore(CalendarDate day)
{
    return sys_days(day) - days(1);
}

/// The days that an invoice of this date bills. Without a choice its texts speak of the period that begins.
ServicePeriod billedPeriod(const Document& recurring, const Recurrence& schedule, CalendarDate day)
{
    if (billingPeriod(recurring) == BillingPeriod::previous) {
        return {.start = schedule.date(-1, day), .end = dayBefore(day)};
    }
    return {.start = day, .end = dayBefore(schedule.date(1, day))};
}

} // namespace

InvoiceMaker::Occurrence InvoiceMaker::make(const Document& recurring, CalendarDate day)
{
    Context& context = m_desk.context;
    const auto refuse = [&](Reason reason, std::string_view why) -> RecurringError {
        return {reason,
                recurring.uuid,
                fmt::format("{}: the invoice of {} can't be made. {}",
                            RecurringInvoices::name(context, recurring),
                            isoText(day),
                            why)};
    };
    const std::optional<UUID> uuid =
        RecurringInvoices::occurrenceID(recurring, m_desk.calendar.storedDay(day), m_desk.calendar);
    const std::optional<UUID> source = recurring.uuid;
    if (!uuid || !source) {
        throw refuse(Reason::noIdentifier, "The template is damaged. Make a new one and delete it.");
    }
    if (!RecurringTemplate::isReadable(recurring)) {
        throw refuse(Reason::noSchedule,
                     "Its schedule was made by a newer Quillary. Choose another, or update Quillary.");
    }
    Scope scope = context.beginScope("Recurring invoice");
    const Document* invoice = context.find<Document>(*uuid);
    const bool isNew = invoice == nullptr;
    Document& edited = context.edit(recurring);
    if (isNew) {
        const Client* client = context.find(recurring.client);
        if (client == nullptr) {
            throw refuse(Reason::noClient, "Its client was deleted. Choose a client for it, or delete it.");
        }
        try {
            invoice = &create(recurring, *client, day, *uuid);
        } catch (const StoreError&) {
            throw;
        } catch (const UserError& error) {
            throw refuse(Reason::notMade, error.message());
        }
        edited.recurrenceCount += 1;
    } else {
        // It came from another device, whose count may not have come along.
        const std::int64_t made = context.count<Document>("sourceDocumentID = ?", *source);
        edited.recurrenceCount = std::max(edited.recurrenceCount, static_cast<std::int32_t>(made));
    }
    RecurringTemplate::advance(edited, day, m_desk.calendar);
    scope.commit(Scope::Undo::impossible); // the next run would make it again
    return {.invoice = *invoice, .isNew = isNew};
}

const Document&
InvoiceMaker::create(const Document& recurring, const Client& client, CalendarDate day, const UUID& uuid)
{
    Document& invoice = DocumentCopy::make(m_desk,
                                           recurring,
                                           {.kind = DocumentKind::invoice,
                                            .issueDate = m_desk.calendar.storedDay(day),
                                            .uuid = uuid,
                                            .sourceDocumentID = recurring.uuid,
                                            .language = documentLanguageFromCode(client.languageCode),
                                            .parts = CopyRequest::Parts::named});
    const Recurrence schedule = RecurringTemplate::recurrence(recurring, m_desk.calendar).value_or(Recurrence());
    const ServicePeriod period = billedPeriod(recurring, schedule, day);
    state(invoice, recurring, period);
    fillTexts(invoice, day, period);
    if (recurring.recurringCreatesSent) {
        apply(m_desk.context, invoice, StatusAction::markSent, m_desk.context.clock().now());
    }
    return invoice;
}

/// Whatever date stood on the template belonged to no one invoice: the period alone says when the work was done.
void InvoiceMaker::state(Document& invoice, const Document& recurring, const ServicePeriod& period) const
{
    if (billingPeriod(recurring) == BillingPeriod::none) {
        return;
    }
    const DeliveryKind usual = deliveryKind(recurring);
    const bool isDelivery = usual == DeliveryKind::deliveryDate || usual == DeliveryKind::deliveryPeriod;
    invoice.deliveryKindRaw =
        static_cast<std::int16_t>(isDelivery ? DeliveryKind::deliveryPeriod : DeliveryKind::servicePeriod);
    invoice.deliveryStart = m_desk.calendar.storedDay(period.start);
    invoice.deliveryEnd = m_desk.calendar.storedDay(period.end);
}

void InvoiceMaker::fillTexts(Document& invoice, CalendarDate day, const ServicePeriod& period)
{
    Context& context = m_desk.context;
    const RecurringText::Filler& words = filler(language(invoice));
    const auto isToFill = [](const std::string& text) {
        return text.find('{') != std::string::npos;
    };
    const auto fill = [&](std::string& text) {
        if (isToFill(text)) {
            text = words.fill(text, day, period);
        }
    };
    fill(invoice.title);
    fill(invoice.introText);
    fill(invoice.outroText);
    for (const LineItem* line : linesInOrder(context, invoice)) {
        if (isToFill(line->title) || isToFill(line->details)) {
            LineItem& edited = context.edit(*line);
            fill(edited.title);
            fill(edited.details);
        }
    }
    for (const Discount* discount : sortedDiscounts(context, invoice)) {
        fill(context.edit(*discount).title);
    }
    for (const Fee* fee : sortedFees(context, invoice)) {
        fill(context.edit(*fee).title);
    }
}

const RecurringText::Filler& InvoiceMaker::filler(DocumentLanguage language)
{
    std::unique_ptr<RecurringText::Filler>& filler = m_fillers[language];
    if (filler == nullptr) {
        filler = std::make_unique<RecurringText::Filler>(language, printLocale(language, m_desk.business.countryCode));
    }
    return *filler;
}

} // namespace Quillary
