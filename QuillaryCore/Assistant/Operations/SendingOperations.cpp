#include "QuillaryCore/Assistant/Description/DocumentListing.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/DocumentLimits.h"
#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Billing/StatusActions.h"
#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/PaymentMethod.h"
#include "QuillaryCore/Money/Money.h"

#include <fmt/format.h>

#include <string>
#include <utility>

namespace Quillary {

namespace {

bool isDraft(const Document& document)
{
    return status(document).value_or(DocumentStatus::draft) == DocumentStatus::draft;
}

/// What happened to a document, and how it stands now.
ToolResult changed(const AssistantEnvironment& environment, const Document& document, const std::string& what)
{
    const DocumentListing listing(environment);
    ToolResult result{.text = fmt::format("{}\n{}", what, listing.text(document))};
    result.data = listing.data(document);
    result.documentID = document.uuid;
    result.summary = what;
    return result;
}

/// Throws: what the review still lacks.
void requireReady(const AssistantEnvironment& environment, const Document& document)
{
    const std::string refused =
        fmt::format("{} isn't ready, so it wasn't marked as sent.", Lookup::reference(document));
    const DocumentReview review = DocumentOperations::reviewed(environment, document);
    if (!review.canBeSent()) {
        throw AssistantError(fmt::format("{}\n\n{}", refused, review.text()));
    }
    if (document.number.empty()) {
        throw AssistantError(fmt::format("{} It has no number; it gets one with its client.", refused));
    }
}

/// Why a document takes no payment, and what to do instead.
void requireOpenInvoice(const AssistantEnvironment& environment, const Document& document)
{
    const std::string name = Lookup::reference(document);
    switch (kind(document).value_or(DocumentKind::invoice)) {
    case DocumentKind::quote:
        throw AssistantError(
            fmt::format("{} asks for no payment. Make an invoice for it first, and record the payment there.", name));
    case DocumentKind::creditNote:
        throw AssistantError(fmt::format("{} pays money back, so no payment is recorded for it. Record what came in "
                                         "on the invoice.",
                                         name));
    case DocumentKind::recurring:
        throw AssistantError(fmt::format("{} is a template. Record the payment on the invoice made from it.", name));
    case DocumentKind::invoice:
        break;
    }
    if (isDraft(document)) {
        throw AssistantError(fmt::format(
            "{} is still a draft. Mark it as sent first (mark_document_sent), then record the payment.", name));
    }
    if (amountDueMinorUnits(environment.context, document) == 0) {
        throw AssistantError(fmt::format("Nothing is due on {}: it is paid in full.", name));
    }
}

/// The amount received, which never goes beyond what is due: what is too much is most often a mistake, and only the user
/// knows what else it may be.
std::int64_t
receivedAmount(const AssistantEnvironment& environment, const Document& document, const Arguments& arguments)
{
    const std::int64_t due = amountDueMinorUnits(environment.context, document);
    const std::int64_t amount =
        arguments.amount("amount", "payment", document.currencyCode, Sign::any, Limits::paymentMinorUnits)
            .value_or(due);
    if (const auto sentence = checkPayment(environment.context, document, amount)) {
        throw AssistantError(*sentence);
    }
    const Money dueMoney(due, document.currencyCode);
    if (due < 0 && (amount > 0 || amount < due)) {
        throw AssistantError(fmt::format("{} has been overpaid: {} {} is due back to the client. Record at most that, "
                                         "as a negative amount.",
                                         Lookup::reference(document),
                                         Money(-due, document.currencyCode).plainText(),
                                         plainText(document.currencyCode)));
    }
    if (due > 0 && amount < 0) {
        arguments.refuse("amount", "can't be negative: nothing was overpaid.");
    }
    if (due > 0 && amount > due) {
        throw AssistantError(fmt::format("{0} {3} is {1} {3} more than is due on {2}. Ask the user what the rest is "
                                         "for, and record at most {4} here.",
                                         Money(amount, document.currencyCode).plainText(),
                                         Money(amount - due, document.currencyCode).plainText(),
                                         Lookup::reference(document),
                                         plainText(document.currencyCode),
                                         dueMoney.plainText()));
    }
    return amount;
}

Instant receivedOn(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const Calendar& calendar = environment.calendar;
    const CalendarDate today = calendar.date(environment.clock.now());
    const CalendarDate date = arguments.date("date").value_or(today);
    if (date > today) {
        arguments.refuse("date", "is in the future: record a payment when it has come in.");
    }
    return calendar.storedDay(date);
}

} // namespace

ToolResult SendingOperations::markSent(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const Document& document = Lookup::document(environment, arguments);
    if (kind(document) == DocumentKind::recurring) {
        throw AssistantError("A recurring template isn't sent; the invoices made from it are.");
    }
    if (!isDraft(document)) {
        const auto shown = displayStatus(document, environment.clock.now(), environment.calendar);
        const std::string when =
            document.sentAt ? ", sent on " + isoText(environment.calendar.date(*document.sentAt)) : "";
        return changed(environment,
                       document,
                       fmt::format("Nothing to do: {} is no draft any more ({}{}).",
                                   Lookup::reference(document),
                                   title(shown, kind(document)),
                                   when));
    }
    requireReady(environment, document);
    Quillary::apply(environment.context, document, StatusAction::markSent, environment.clock.now());
    return changed(environment, document, fmt::format("Marked {} as sent.", Lookup::reference(document)));
}

ToolResult SendingOperations::recordPayment(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const Document& document = Lookup::document(environment, arguments);
    requireOpenInvoice(environment, document);
    const std::int64_t amount = receivedAmount(environment, document, arguments);
    const PaymentMethod method = paymentMethodFromRaw(arguments.line("method", Limits::lineLength).value_or(""))
                                     .value_or(PaymentMethod::bankTransfer);
    const Instant date = receivedOn(environment, arguments);
    Quillary::recordPayment(
        environment.context, document, {.amountMinorUnits = amount, .date = date, .method = method, .note = {}});
    ToolResult result = changed(environment,
                                document,
                                fmt::format("Recorded {} {} for {}, received {}, {}.",
                                            Money(amount, document.currencyCode).plainText(),
                                            plainText(document.currencyCode),
                                            Lookup::reference(document),
                                            isoText(environment.calendar.date(date)),
                                            title(method)));
    JSON data = DocumentListing(environment).data(document);
    data.set("payment",
             JSON::object({{"amount", JSON::Number{Money(amount, document.currencyCode).plainText()}},
                           {"date", isoText(environment.calendar.date(date))},
                           {"method", rawText(method)}}));
    result.data = std::move(data);
    return result;
}

ToolResult SendingOperations::discard(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const Document& document = Lookup::document(environment, arguments);
    const std::string name = Lookup::reference(document);
    if (!isDraft(document)) {
        throw AssistantError(fmt::format(
            "{} is no draft any more, so it stays. To take back an invoice that was sent, make a credit note.", name));
    }
    if (document.madeBy.empty()) {
        throw AssistantError(
            fmt::format("{} was made by the user, not by an assistant. Only they can delete it, in Quillary.", name));
    }
    if (!environment.context.related<&Payment::document>(document).empty()) {
        throw AssistantError(fmt::format("Money was recorded for {}, so it stays. Ask the user what to do.", name));
    }
    const std::optional<UUID> uuid = document.uuid;
    const std::string number = document.number;
    const bool isNumberFree =
        DocumentActions::deleteDraft({environment.context, environment.ownBusiness(), environment.calendar}, document);
    ToolResult result{
        .text = fmt::format("Deleted the draft {}.{}", name, isNumberFree ? " Its number is free again." : "")};
    result.data = JSON::object({{"id", Lookup::idText(uuid)}, {"number", number}, {"number_is_free", isNumberFree}});
    result.documentID = uuid;
    result.summary = result.text;
    return result;
}

} // namespace Quillary
