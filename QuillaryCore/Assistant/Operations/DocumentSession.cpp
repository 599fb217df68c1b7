#include "QuillaryCore/Assistant/Operations/DocumentSession.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Review/DocumentReviewer.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/DocumentLimits.h"
#include "QuillaryCore/Documents/DocumentCopy.h"
#include "QuillaryCore/Documents/DraftNumbers.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/ReviewAnswer.h"
#include "QuillaryCore/Model/TaxNotes.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Numbering/NumberingError.h"
#include "QuillaryCore/Schedules/TimeBilling.h"

#include <fmt/format.h>

namespace Quillary {

namespace {

/// Of a line's title in a sentence about it. Unit: characters.
constexpr std::size_t longestTitle = 60;
constexpr std::size_t longestName = 100;

} // namespace

DocumentSession::DocumentSession(const AssistantEnvironment& environment, Document& document)
    : m_environment(environment)
    , m_document(document)
{
}

const Business& DocumentSession::business() const
{
    return m_environment.ownBusiness();
}

const Client* DocumentSession::client() const
{
    return m_environment.context.find(m_document.client);
}

bool DocumentSession::asksForPayment() const
{
    return isTemplate() || kind(m_document).value_or(DocumentKind::invoice) == DocumentKind::invoice;
}

bool DocumentSession::isTemplate() const
{
    return kind(m_document) == DocumentKind::recurring;
}

DocumentSession DocumentSession::create(const AssistantEnvironment& environment, std::string_view kindWord)
{
    Document& document = environment.context.insert<Document>();
    DocumentSession session(environment, document);
    const Business& business = session.business();
    const bool quote = kindWord == "quote";
    const Calendar& calendar = environment.calendar;

    document.kindRaw = static_cast<std::int16_t>(quote ? DocumentKind::quote : DocumentKind::invoice);
    document.statusRaw = static_cast<std::int16_t>(DocumentStatus::draft);
    document.issueDate = calendar.storedDay(calendar.date(environment.clock.now()));
    document.currencyCode = business.currencyCode;
    document.languageCode = business.languageCode;
    document.paymentTermsDays = business.paymentTermsDays;
    document.introText = quote ? business.quoteIntroText : business.invoiceIntroText;
    document.outroText = quote ? business.quoteOutroText : business.invoiceOutroText;
    document.madeBy = environment.assistantName;
    if (quote) {
        document.validUntil = calendar.addingDays(*document.issueDate, quoteValidityDays);
    }
    if (business.taxExempt) {
        session.setTreatment(TaxTreatment::exempt, business.taxExemptNote);
    }
    session.m_isNew = true;
    return session;
}

DocumentSession DocumentSession::open(const AssistantEnvironment& environment, const Document& document)
{
    if (kind(document) == DocumentKind::recurring) {
        throw AssistantError(fmt::format("{} is a template, which only the user changes, in Quillary. The "
                                         "invoices made from it can be changed while they are drafts.",
                                         Lookup::reference(document)));
    }
    return openForUser(environment, document);
}

DocumentSession DocumentSession::openForUser(const AssistantEnvironment& environment, const Document& document)
{
    if (status(document).value_or(DocumentStatus::draft) != DocumentStatus::draft) {
        const bool invoice = kind(document).value_or(DocumentKind::invoice) == DocumentKind::invoice;
        throw AssistantError(fmt::format(
            "{} is no draft any more, so it can't be changed.{}",
            document.number.empty() ? "This document" : plainText(document.number),
            invoice ? " To correct an invoice that was sent, make a credit note for it and a new invoice." : ""));
    }
    return {environment, environment.context.edit(document)};
}

void DocumentSession::apply(const Arguments& arguments)
{
    const std::optional<Instant> oldIssueDate = m_document.issueDate;
    const Client* oldClient = client();
    const std::int16_t oldTerms = m_document.paymentTermsDays;
    const DocumentLanguage oldLanguage = language(m_document);

    applyClient(arguments, oldClient);
    applyTexts(arguments);
    applyCurrency(arguments, oldClient);
    applyDates(arguments);
    applyValidity(arguments);
    applyDueDate(oldIssueDate, oldTerms);
    applyServiceDate(arguments);
    applyTaxTreatment(arguments);
    tellOwnExemption();
    if (language(m_document) != oldLanguage) {
        refreshWords();
    }
    applyLines(arguments);
    applyDiscount(arguments);
    applyDiscounts(arguments);
    applyFees(arguments);
    if (client() != nullptr && client() == oldClient) {
        rememberAnswers(arguments);
    }
    applyNumber(oldIssueDate, oldClient);

    updateFigures();
}

void DocumentSession::updateFigures()
{
    if (const std::optional<std::string> sentence = checkAggregates(m_environment.context, m_document)) {
        throw AssistantError(*sentence);
    }
    updateCachedTotals(m_environment.context, m_document);
}

void DocumentSession::applyClient(const Arguments& arguments, const Client* before)
{
    const std::optional<std::string> named = arguments.line("client", Limits::lineLength);
    if (!named) {
        return;
    }
    const Client& chosen = Lookup::client(m_environment, *named);
    // Naming the client again is no wish to have their settings back in place of what was said since.
    if (&chosen == before) {
        return;
    }
    requireNoTimeOf(chosen);
    m_document.client = chosen.ref;
    takeDefaults(arguments, chosen, before);
}

/// Time that was tracked for somebody else would be billed to the wrong client, and be gone from the right one's.
void DocumentSession::requireNoTimeOf(const Client& chosen)
{
    Context& context = m_environment.context;
    std::size_t number = 0;
    for (const LineItem* line : linesInOrder(context, m_document)) {
        number += 1;
        for (const TimeEntry* entry : TimeBilling::entries(context, *line)) {
            if (entry->client == chosen.ref) {
                continue;
            }
            const Client* owner = context.find(entry->client);
            throw AssistantError(
                fmt::format("The client can't become {}: line {} (“{}”) bills tracked time of {}. Remove such lines "
                            "first, in a call of its own (remove_lines), then change the client.",
                            plainText(displayName(chosen)),
                            number,
                            plainText(line->title, longestTitle),
                            owner == nullptr ? "nobody" : plainText(displayName(*owner))));
        }
    }
}

void DocumentSession::takeDefaults(const Arguments& arguments, const Client& chosen, const Client* before)
{
    const std::string name = plainText(displayName(chosen), longestName);
    // What another client brought along leaves with that client.
    if (before != nullptr) {
        if (!before->languageCode.empty() && m_document.languageCode == before->languageCode) {
            m_document.languageCode = business().languageCode;
        }
        if (before->paymentTermsDays > 0 && m_document.paymentTermsDays == before->paymentTermsDays) {
            m_document.paymentTermsDays = business().paymentTermsDays;
        }
    }
    if (!chosen.languageCode.empty() && !arguments.has("language")) {
        m_document.languageCode = chosen.languageCode;
        m_filledIn.push_back(fmt::format("language {} (from {})", chosen.languageCode, name));
    }
    if (chosen.paymentTermsDays > 0 && !arguments.has("payment_terms_days")) {
        // A quote keeps them for the invoice that may be made from it, and shows nothing of them.
        m_document.paymentTermsDays = chosen.paymentTermsDays;
        if (asksForPayment()) {
            m_filledIn.push_back(fmt::format("payment terms {} days (from {})", chosen.paymentTermsDays, name));
        }
    }
}

void DocumentSession::applyTexts(const Arguments& arguments)
{
    if (auto title = arguments.line("title", Limits::lineLength)) {
        m_document.title = std::move(*title);
    }
    if (auto intro = arguments.paragraphs("intro", Limits::textLength)) {
        m_document.introText = std::move(*intro);
    }
    if (auto footer = arguments.paragraphs("footer", Limits::textLength)) {
        m_document.outroText = std::move(*footer);
    }
    if (auto language = arguments.line("language", Limits::lineLength)) {
        m_document.languageCode = std::move(*language);
    }
}

/// Answers that leave the document as it is. They count once the client is known: before that nothing was asked.
void DocumentSession::rememberAnswers(const Arguments& arguments)
{
    Context& context = m_environment.context;
    if (arguments.has("currency")) {
        ReviewAnswers::remember(
            context, m_document, ReviewTopic::currency, currencyAnswer(*client(), m_document.currencyCode));
    }
    const bool isDeclined = arguments.flag("reverse_charge") == false || arguments.flag("outside_eu") == false;
    if (isDeclined && !m_document.taxExempt) {
        ReviewAnswers::remember(context, m_document, ReviewTopic::taxTreatment, taxTreatmentAnswer(*client()));
    }
}

void DocumentSession::refreshWords()
{
    const UnitLibrary library(m_environment.context, business());
    for (const LineItem* line : linesInOrder(m_environment.context, m_document)) {
        if (!line->unit.empty()) {
            Quillary::setUnit(m_environment.context.edit(*line), line->unit, library, language(m_document));
        }
    }
    const TaxTreatment treatment = taxTreatment(m_environment.context, m_document);
    if (isTaxNote(m_document.taxExemptNote, treatment)) {
        m_document.taxExemptNote = taxNote(treatment, language(m_document));
    }
}

void DocumentSession::applyNumber(const std::optional<Instant>& oldIssueDate, const Client* oldClient)
{
    if (isTemplate()) {
        return;
    }
    const Desk desk{m_environment.context, business(), m_environment.calendar};
    const Instant date = m_document.issueDate.value_or(m_environment.clock.now());
    if (!m_document.number.empty()) {
        if (oldIssueDate == m_document.issueDate && oldClient == client()) {
            return;
        }
        // A draft's number moves with its date and client only while it is the newest: any other would leave a gap.
        if (!DraftNumbers::giveBack(desk, m_document, oldIssueDate.value_or(date), oldClient)) {
            return;
        }
        m_document.number.clear();
    }
    try {
        m_document.number = DraftNumbers::take(desk, kind(m_document).value_or(DocumentKind::invoice), date, client());
    } catch (const NumberingError& error) {
        throw AssistantError(error.message());
    }
}

} // namespace Quillary
