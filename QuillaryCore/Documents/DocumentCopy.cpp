#include "QuillaryCore/Documents/DocumentCopy.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/DocumentLimits.h"
#include "QuillaryCore/Documents/DocumentError.h"
#include "QuillaryCore/Documents/DraftNumbers.h"
#include "QuillaryCore/Foundation/NameBasedUUID.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/ReviewAnswer.h"
#include "QuillaryCore/Model/TaxNotes.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>

namespace Quillary {

namespace {

/// A new record with the source's contents, in its own row and under its own identifier.
template <class Record>
Record& inserted(Context& context,
                 const Record& source,
                 const Document& target,
                 CopyRequest::Parts parts = CopyRequest::Parts::fresh)
{
    Record& copy = context.insert<Record>();
    const Ref<Record> ref = copy.ref;
    std::optional<UUID> uuid = copy.uuid;
    if (parts == CopyRequest::Parts::named && target.uuid && source.uuid) {
        uuid = nameBasedUUID(*target.uuid, source.uuid->text());
    }
    copy = source;
    copy.ref = ref;
    copy.uuid = uuid;
    copy.document = target.ref;
    return copy;
}

void setTexts(Document& copy, const Document& source, const CopyRequest& request, const Business& business)
{
    if (request.texts == CopyRequest::Texts::kept) {
        copy.introText = source.introText;
        copy.outroText = source.outroText;
        return;
    }
    switch (request.kind) {
    case DocumentKind::invoice:
    case DocumentKind::recurring:
        copy.introText = business.invoiceIntroText;
        copy.outroText = business.invoiceOutroText;
        return;
    case DocumentKind::quote:
        copy.introText = business.quoteIntroText;
        copy.outroText = business.quoteOutroText;
        return;
    case DocumentKind::creditNote:
        return; // the page says itself which invoice it credits
    }
}

/// A quote is valid as long as its source was.
int validityDays(const Document& source, const Calendar& calendar)
{
    if (!source.issueDate || !source.validUntil) {
        return quoteValidityDays;
    }
    return std::max(calendar.daysBetween(*source.issueDate, *source.validUntil), 0);
}

void setDates(Document& copy, const Document& source, const CopyRequest& request, const Calendar& calendar)
{
    copy.issueDate = request.issueDate;
    if (request.kind != DocumentKind::creditNote) {
        copy.paymentTermsDays = request.paymentTermsDays.value_or(source.paymentTermsDays);
    }
    if (request.kind == DocumentKind::invoice) {
        copy.dueDate = calendar.addingDays(request.issueDate, copy.paymentTermsDays);
    } else if (request.kind == DocumentKind::quote) {
        copy.validUntil = calendar.addingDays(request.issueDate, validityDays(source, calendar));
    }
    if (request.delivery == CopyRequest::Delivery::kept) {
        copy.deliveryKindRaw = source.deliveryKindRaw;
        copy.deliveryStart = source.deliveryStart;
        copy.deliveryEnd = source.deliveryEnd;
    }
}

void setTax(Context& context, Document& copy, const Document& source)
{
    copy.taxExempt = source.taxExempt;
    copy.taxExemptNote = source.taxExemptNote;
    if (!source.taxExempt) {
        return;
    }
    const TaxTreatment treatment = taxTreatment(context, source);
    if (language(copy) != language(source) && isTaxNote(source.taxExemptNote, treatment)) {
        copy.taxExemptNote = taxNote(treatment, language(copy));
    }
    setTaxTreatment(context, copy, treatment);
}

/// What was confirmed holds as long as the facts it was asked of, which its text names.
void copyAnswers(Context& context, const Document& source, const Document& copy)
{
    for (const ReviewTopic topic : {ReviewTopic::currency, ReviewTopic::taxTreatment}) {
        for (const std::string& answer : ReviewAnswers::of(context, source, topic)) {
            ReviewAnswers::remember(context, copy, topic, answer);
        }
    }
}

/// What an issued document, or a template, bills at 0 or without tax was meant like that.
void keepLineAnswers(Context& context, const LineItem& line, const Document& target)
{
    if (!line.uuid) {
        return;
    }
    if (line.unitPriceMinorUnits == 0) {
        ReviewAnswers::remember(context, target, ReviewTopic::freeLine, line.uuid->text());
    }
    if (line.vatBasisPoints == 0) {
        ReviewAnswers::remember(context, target, ReviewTopic::untaxedLine, line.uuid->text());
    }
}

bool isSettled(const Document& document)
{
    return kind(document) == DocumentKind::recurring ||
           status(document).value_or(DocumentStatus::draft) != DocumentStatus::draft;
}

LineItem& copiedLine(const Desk& desk,
                     const UnitLibrary& units,
                     const LineItem& source,
                     const Document& target,
                     CopyRequest::Parts parts)
{
    LineItem& copy = inserted(desk.context, source, target, parts);
    copy.parent = {};
    if (!copy.unit.empty()) {
        setUnit(copy, copy.unit, units, language(target));
    }
    return copy;
}

void copyLines(
    const Desk& desk, const Document& source, const Document& target, std::int32_t firstIndex, CopyRequest::Parts parts)
{
    Context& context = desk.context;
    const UnitLibrary units(context, desk.business);
    const bool settled = isSettled(source);
    Ref<LineItem> parent;
    std::int32_t index = firstIndex;
    for (const LineItem* line : linesInOrder(context, source)) {
        LineItem& copy = copiedLine(desk, units, *line, target, parts);
        if (line->parent) {
            copy.parent = parent;
        } else {
            copy.sortIndex = index++;
            parent = copy.ref;
        }
        if (settled) {
            keepLineAnswers(context, copy, target);
        }
    }
}

} // namespace

Document& DocumentCopy::make(const Desk& desk, const Document& source, const CopyRequest& request)
{
    Document& copy = begin(desk, source, request);
    copyLines(desk, source, copy, 0, request.parts);
    for (const Discount* discount : sortedDiscounts(desk.context, source)) {
        inserted(desk.context, *discount, copy, request.parts);
    }
    for (const Fee* fee : sortedFees(desk.context, source)) {
        inserted(desk.context, *fee, copy, request.parts);
    }
    finish(desk, copy);
    return copy;
}

Document& DocumentCopy::begin(const Desk& desk, const Document& source, const CopyRequest& request)
{
    const Client* client = desk.context.find(source.client);
    // Taken first: its look-ups would write a record that isn't finished yet, and then write it again.
    std::string number = DraftNumbers::take(desk, request.kind, request.issueDate, client);
    Document& copy = desk.context.insert<Document>();
    if (request.uuid) {
        copy.uuid = request.uuid;
    }
    copy.kindRaw = static_cast<std::int16_t>(request.kind);
    copy.statusRaw = static_cast<std::int16_t>(DocumentStatus::draft);
    copy.number = std::move(number);
    copy.client = source.client;
    copy.project = source.project;
    copy.currencyCode = source.currencyCode;
    copy.languageCode = request.language ? std::string(code(*request.language)) : source.languageCode;
    copy.title = source.title;
    copy.tags = source.tags;
    copy.madeBy = request.madeBy;
    copy.sourceDocumentID = request.sourceDocumentID;
    setTexts(copy, source, request, desk.business);
    setDates(copy, source, request, desk.calendar);
    setTax(desk.context, copy, source);
    copyAnswers(desk.context, source, copy);
    return copy;
}

LineItem&
DocumentCopy::addLine(const Desk& desk, const UnitLibrary& units, const LineItem& source, const Document& target)
{
    return copiedLine(desk, units, source, target, CopyRequest::Parts::fresh);
}

Discount& DocumentCopy::addDiscount(const Desk& desk, const Discount& source, const Document& target)
{
    return inserted(desk.context, source, target);
}

Fee& DocumentCopy::addFee(const Desk& desk, const Fee& source, const Document& target)
{
    return inserted(desk.context, source, target);
}

void DocumentCopy::addLines(const Desk& desk, const Document& source, const Document& target, std::int32_t firstIndex)
{
    copyLines(desk, source, target, firstIndex, CopyRequest::Parts::fresh);
}

void DocumentCopy::finish(const Desk& desk, const Document& draft)
{
    if (const std::optional<std::string> sentence = checkAggregates(desk.context, draft)) {
        throw DocumentError(DocumentError::Reason::outsideLimits, *sentence);
    }
    updateCachedTotals(desk.context, draft);
}

} // namespace Quillary
