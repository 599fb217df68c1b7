#include "QuillaryCore/Documents/DocumentActions.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/DocumentLimits.h"
#include "QuillaryCore/Documents/DocumentCopy.h"
#include "QuillaryCore/Documents/DocumentError.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Documents/DraftNumbers.h"
#include "QuillaryCore/Foundation/PlainText.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace Quillary {

namespace {

using Reason = DocumentError::Reason;

bool isDraft(const Document& document)
{
    return status(document).value_or(DocumentStatus::draft) == DocumentStatus::draft;
}

void requireNoInvoiceYet(const Desk& desk, const Document& quote)
{
    const std::string invoices = derivedNumbers(desk.context, quote, DocumentKind::invoice);
    if (!invoices.empty()) {
        throw DocumentError(Reason::alreadyDone,
                            fmt::format("An invoice was made from {} already: {}. Duplicate that one to make another.",
                                        documentName(quote),
                                        invoices));
    }
}

/// A new schedule like the source's, which starts when the user says so.
void copySchedule(Document& copy, const Document& source)
{
    copy.recurrenceUnitRaw = source.recurrenceUnitRaw;
    copy.recurrenceInterval = source.recurrenceInterval;
    copy.recurrenceAnchorDay = source.recurrenceAnchorDay;
    copy.recurrenceEndRaw = source.recurrenceEndRaw;
    copy.recurrenceEndCount = source.recurrenceEndCount;
    copy.recurrenceEndDate = source.recurrenceEndDate;
    copy.recurringCreatesSent = source.recurringCreatesSent;
    copy.billingPeriodRaw = source.billingPeriodRaw;
    copy.nextIssueDate = copy.issueDate;
    copy.isPaused = true;
}

/// "Mark as Paid, Back to Draft"
std::string listed(const std::vector<StatusAction>& actions, const Document& document)
{
    std::string list;
    for (const StatusAction action : actions) {
        list += fmt::format("{}“{}”", list.empty() ? "" : ", ", title(action, kind(document)));
    }
    return list;
}

void requireOpen(const Document& document, StatusAction action)
{
    const std::vector<StatusAction> open = statusActions(document);
    if (open.empty()) {
        throw DocumentError(Reason::wrongKind,
                            "A recurring template has no status: the invoices that are made from it have.");
    }
    if (std::ranges::find(open, action) == open.end()) {
        throw DocumentError(Reason::wrongStatus,
                            fmt::format("“{}” can't be done to {} now, only {}.",
                                        title(action, kind(document)),
                                        documentName(document),
                                        listed(open, document)));
    }
}

bool issues(const Document& document, StatusAction action)
{
    return isDraft(document) && (action == StatusAction::markSent || action == StatusAction::markPaid);
}

/// What goes out has a number and figures that can be stood by.
void requireIssuable(const Desk& desk, const Document& document)
{
    if (document.number.empty()) {
        throw DocumentError(
            Reason::isNeeded,
            fmt::format("{} can't be sent; it gets its number with its client.", documentName(document)));
    }
    if (linesInOrder(desk.context, document).empty()) {
        throw DocumentError(Reason::isNeeded,
                            fmt::format("{} has no lines yet, so it can't be sent.", documentName(document)));
    }
    if (const std::optional<std::string> sentence = checkAggregates(desk.context, document)) {
        throw DocumentError(Reason::outsideLimits, *sentence);
    }
}

/// Marking as paid records a payment of what is due.
void requirePayable(const Desk& desk, const Document& document)
{
    const std::int64_t due = amountDueMinorUnits(desk.context, document);
    if (!acceptsPayments(document) || due == 0) {
        return;
    }
    if (const std::optional<std::string> sentence = checkPayment(desk.context, document, due)) {
        throw DocumentError(Reason::badAmount, *sentence);
    }
}

void requireNoCreditNotes(const Desk& desk, const Document& document)
{
    const std::string creditNotes = derivedNumbers(desk.context, document, DocumentKind::creditNote);
    if (!creditNotes.empty()) {
        throw DocumentError(Reason::isNeeded,
                            fmt::format("{} was credited ({}), so it can't become a draft again.",
                                        documentName(document),
                                        creditNotes));
    }
}

} // namespace

const Document&
DocumentActions::invoiceFromQuote(const Desk& desk, const Document& quote, Instant issueDate, const std::string& madeBy)
{
    if (kind(quote) != DocumentKind::quote) {
        throw DocumentError(Reason::wrongKind,
                            fmt::format("{} is no quote, so no invoice is made from it.", documentName(quote)));
    }
    if (status(quote) == DocumentStatus::declined) {
        throw DocumentError(
            Reason::wrongStatus,
            fmt::format("{} was declined. Reopen it first if the client has changed their mind.", documentName(quote)));
    }
    requireNoInvoiceYet(desk, quote);
    auto scope = desk.context.beginScope("Invoice from Quote");
    const Document& invoice = DocumentCopy::make(desk,
                                                 quote,
                                                 {.kind = DocumentKind::invoice,
                                                  .issueDate = issueDate,
                                                  .sourceDocumentID = quote.uuid,
                                                  .texts = CopyRequest::Texts::usual,
                                                  .delivery = CopyRequest::Delivery::kept,
                                                  .madeBy = madeBy});
    if (status(quote) == DocumentStatus::sent) {
        apply(desk.context, quote, StatusAction::markAccepted, desk.context.clock().now());
    }
    scope.commit();
    return invoice;
}

const Document&
DocumentActions::duplicate(const Desk& desk, const Document& source, Instant issueDate, const std::string& madeBy)
{
    const DocumentKind copiedKind = kind(source).value_or(DocumentKind::invoice);
    if (copiedKind == DocumentKind::creditNote && source.sourceDocumentID) {
        throw DocumentError(
            Reason::wrongKind,
            fmt::format("{} takes back an invoice and can't be made twice. To credit what is left, make "
                        "a credit note from the invoice.",
                        documentName(source)));
    }
    auto scope = desk.context.beginScope("Duplicate");
    Document& copy = DocumentCopy::make(desk, source, {.kind = copiedKind, .issueDate = issueDate, .madeBy = madeBy});
    if (copiedKind == DocumentKind::recurring) {
        copySchedule(copy, source);
    }
    scope.commit();
    return copy;
}

void DocumentActions::applyStatus(const Desk& desk, const Document& document, StatusAction action, Instant now)
{
    requireOpen(document, action);
    const bool isIssued = issues(document, action);
    if (isIssued) {
        requireIssuable(desk, document);
    }
    if (action == StatusAction::markPaid) {
        requirePayable(desk, document);
    }
    if (action == StatusAction::markDraft) {
        requireNoCreditNotes(desk, document);
    }
    auto scope = desk.context.beginScope(std::string(title(action, kind(document))));
    apply(desk.context, document, action, now);
    scope.commit(isIssued ? Scope::Undo::impossible : Scope::Undo::possible);
}

const Payment&
DocumentActions::pay(const Desk& desk, const Document& document, const PaymentDetails& details, Instant now)
{
    if (!acceptsPayments(document)) {
        throw DocumentError(Reason::wrongKind,
                            fmt::format("{} takes no payments: only invoices do.", documentName(document)));
    }
    if (const std::optional<std::string> sentence = checkPayment(desk.context, document, details.amountMinorUnits)) {
        throw DocumentError(Reason::badAmount, *sentence);
    }
    if (desk.calendar.daysBetween(now, details.date) > 0) {
        throw DocumentError(Reason::badAmount, "That day is in the future: record a payment when it has come in.");
    }
    if (graphemeCount(details.note) > Limits::lineLength) {
        throw DocumentError(Reason::outsideLimits,
                            fmt::format("The note can have at most {} characters.", Limits::lineLength));
    }
    auto scope = desk.context.beginScope("Payment");
    const Payment& payment = recordPayment(desk.context, document, details);
    scope.commit();
    return payment;
}

void DocumentActions::takeBackPayment(const Desk& desk, const Payment& payment)
{
    auto scope = desk.context.beginScope("Delete Payment");
    deletePayment(desk.context, payment);
    scope.commit();
}

void DocumentActions::setTags(const Desk& desk, const Document& document, std::span<const std::string> tags)
{
    auto scope = desk.context.beginScope("Tags");
    Document& edited = desk.context.edit(document);
    setTagList(edited, tags);
    if (graphemeCount(edited.tags) > Limits::lineLength) {
        throw DocumentError(Reason::outsideLimits,
                            fmt::format("The tags can have at most {} characters together.", Limits::lineLength));
    }
    scope.commit();
}

void DocumentActions::setProject(const Desk& desk, const Document& document, const Project* project)
{
    if (project != nullptr && project->isArchived) {
        throw DocumentError(Reason::wrongStatus, fmt::format("The project {} is archived.", inQuotes(project->name)));
    }
    auto scope = desk.context.beginScope("Project");
    desk.context.edit(document).project = project == nullptr ? Ref<Project>() : project->ref;
    scope.commit();
}

bool DocumentActions::deleteDraft(const Desk& desk, const Document& document)
{
    const bool isInvoice = kind(document).value_or(DocumentKind::invoice) == DocumentKind::invoice;
    if (!isDraft(document)) {
        throw DocumentError(Reason::wrongStatus,
                            fmt::format("{} is no draft any more, so it stays.{}",
                                        documentName(document),
                                        isInvoice ? " To take it back, make a credit note." : ""));
    }
    if (!desk.context.related<&Payment::document>(document).empty()) {
        throw DocumentError(Reason::isNeeded,
                            fmt::format("Money was recorded for {}, so it stays.", documentName(document)));
    }
    auto scope = desk.context.beginScope("Delete Draft");
    const bool isNumberFree = !document.number.empty() && DraftNumbers::giveBack(desk, document);
    desk.context.erase(document);
    scope.commit();
    return isNumberFree;
}

} // namespace Quillary
