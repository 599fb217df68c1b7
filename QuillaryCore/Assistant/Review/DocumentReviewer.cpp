#include "QuillaryCore/Assistant/Review/DocumentReviewer.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/DeliveryKind.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/ReviewAnswer.h"
#include "QuillaryCore/Model/TaxLabel.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <source_location>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t longestName = 80;
constexpr std::int64_t offeredClients = 5;
constexpr std::int64_t recentDocuments = 30;

/// Unit: cents. Up to this much an invoice in euro needs no client's address (Article 220a of Directive 2006/112/EC, and
/// where a member state goes higher its own rule).
std::int64_t smallInvoiceLimit(std::string_view member)
{
    if (member == "DE") { // § 33 UStDV
        return 25'000;
    }
    // § 11 (6) UStG 1994, art. 4 RD 1619/2012, § 209 f AVL, DM 10.5.2019
    const bool isHigher = member == "AT" || member == "ES" || member == "FI" || member == "IT";
    return isHigher ? 40'000 : 10'000;
}

/// Countries whose invoices always give the date or period of the service, also when it is the invoice's own date.
bool alwaysGivesServiceDate(std::string_view country)
{
    constexpr std::array countries = {"AT", "DE", "GB", "IM", "NO"};
    return std::ranges::find(countries, country) != countries.end();
}

bool mayGiveServiceDate(const VATArea& area)
{
    return area.isInEU() || area.country == "CH" || area.country == "LI";
}

Supply supply(const Document& document)
{
    const DeliveryKind delivery = deliveryKind(document);
    const bool isGoods = delivery == DeliveryKind::deliveryDate || delivery == DeliveryKind::deliveryPeriod;
    return isGoods ? Supply::goods : Supply::services;
}

std::optional<VATArea> areaOf(const Client* client, Supply supply)
{
    return client == nullptr ? std::nullopt : VATArea::of(*client, supply);
}

/// Whom the newest documents bill; in a library without documents, the newest clients.
std::vector<const Client*> recentClients(Context& context)
{
    std::vector<const Client*> found;
    const auto add = [&](const Client* client) {
        const bool isNew = client != nullptr && std::ranges::find(found, client) == found.end();
        if (isNew && std::cmp_less(found.size(), offeredClients)) {
            found.push_back(client);
        }
    };
    for (const Document* document :
         context.fetch<Document>("client IS NOT NULL ORDER BY issueDate DESC LIMIT ?", recentDocuments)) {
        add(context.find(document->client));
    }
    if (found.empty()) {
        for (const Client* client : context.fetch<Client>("1 ORDER BY id DESC LIMIT ?", offeredClients)) {
            add(client);
        }
    }
    return found;
}

} // namespace

std::string taxTreatmentAnswer(const Client& client)
{
    return fmt::format("{} {}", Lookup::idText(client.uuid), client.countryCode);
}

std::string currencyAnswer(const Client& client, std::string_view currencyCode)
{
    return fmt::format("{} {}", Lookup::idText(client.uuid), currencyCode);
}

DocumentReviewer::DocumentReviewer(
    Context& context, const Document& document, const Business& business, Instant today, const Locale& locale)
    : m_context(context)
    , m_document(document)
    , m_business(business)
    , m_today(today)
    , m_locale(locale)
    , m_kind(kind(document).value_or(DocumentKind::invoice))
    , m_client(context.find(document.client))
    , m_home(VATArea::of(business, supply(document)))
    , m_away(areaOf(m_client, supply(document)))
    , m_lines(linesInOrder(context, document))
    , m_freeLines(ReviewAnswers::of(context, document, ReviewTopic::freeLine))
    , m_untaxedLines(ReviewAnswers::of(context, document, ReviewTopic::untaxedLine))
{
    if (m_client != nullptr) {
        const std::string name = plainText(displayName(*m_client), longestName);
        m_clientName = name.empty() ? "The client" : name;
    }
}

DocumentReview DocumentReviewer::review()
{
    checkBusiness();
    checkDocument();
    checkClient();
    checkLines();
    checkServiceDate();
    checkTax();
    checkCurrency();
    return std::move(m_result);
}

void DocumentReviewer::tell(std::string problem, std::string_view fix, std::string_view field)
{
    m_result.problems.push_back({.problem = std::move(problem), .fix = std::string(fix), .field = std::string(field)});
}

bool DocumentReviewer::isInvoice() const
{
    return m_kind == DocumentKind::invoice || m_kind == DocumentKind::recurring;
}

std::string_view DocumentReviewer::noun() const
{
    switch (m_kind) {
    case DocumentKind::invoice:
        return "invoice";
    case DocumentKind::quote:
        return "quote";
    case DocumentKind::creditNote:
        return "credit note";
    case DocumentKind::recurring:
        return "recurring invoice";
    }
    stopProgram("a document kind is one of the four", std::source_location::current());
}

std::string DocumentReviewer::taxWord() const
{
    return plainText(taxLabelText(m_business), longestName);
}

/// Nothing that has no price yet is small: what it will cost isn't known.
bool DocumentReviewer::isSmall()
{
    const std::int64_t total = m_document.cachedTotalMinorUnits;
    return m_document.currencyCode == "EUR" && total > 0 && total <= smallInvoiceLimit(m_home.member) &&
           taxTreatment(m_context, m_document) != TaxTreatment::reverseCharge &&
           std::ranges::none_of(m_lines, [this](const LineItem* line) { return hasOpenPrice(*line); });
}

void DocumentReviewer::checkBusiness()
{
    m_result.problems =
        DocumentReview::businessProblems(m_business, m_home.country, m_home.isInEU(), m_document.taxExempt);
}

void DocumentReviewer::checkDocument()
{
    if (!m_document.issueDate) {
        tell(fmt::format("The {} has no date.", noun()), "Set issue_date with update_document.", "issue_date");
    }
    if (m_document.number.empty() && m_client != nullptr && m_kind != DocumentKind::recurring) {
        tell(fmt::format("The {} has no number.", noun()),
             "Give it one in Quillary, or change it with update_document.",
             "client");
    }
    if (isQuote() && m_document.validUntil && *m_document.validUntil < m_today) {
        tell("The quote's last day of validity has passed.",
             "Set issue_date to today with update_document.",
             "valid_until");
    }
    if (isInvoice() && m_document.cachedTotalMinorUnits < 0) {
        tell(fmt::format("The {}'s total is negative.", noun()),
             "Change its lines or its discount: money that goes back is a credit note.",
             "change_lines");
    }
    const bool namesInvoice = m_document.sourceDocumentID || !m_document.introText.empty();
    if (m_kind == DocumentKind::creditNote && m_home.isInEU() && !namesInvoice) {
        ask({.text = "Which invoice does the credit note correct?",
             .field = "intro",
             .isRequired = true,
             .why = "A credit note must name the invoice that it changes.",
             .options = {}});
    }
}

void DocumentReviewer::checkClient()
{
    if (m_client == nullptr) {
        askForClient();
        return;
    }
    if (trimmed(m_client->name).empty() && trimmed(m_client->firstName + m_client->lastName).empty()) {
        tell("The client has no name.", "Give the client a name in Quillary › Clients.", "update_client name");
    }
    const bool hasAddress = !m_client->addressLine.empty() && !m_client->city.empty();
    if (isInvoice() && m_home.isInEU() && !hasAddress && !isSmall()) {
        tell(fmt::format("{}'s address is missing; invoices must show it.", clientName()),
             "Ask for it and set it with update_client, or add it in Quillary › Clients.",
             "update_client address_line");
    }
}

void DocumentReviewer::askForClient()
{
    ReviewQuestion question{.text = fmt::format("Who is it for? The {} needs a client.", noun()),
                            .field = "client",
                            .isRequired = true,
                            .why = "It's made out to somebody; their language, terms and currency are used.",
                            .options = {}};
    for (const Client* client : recentClients(m_context)) {
        question.options.push_back(
            {.value = Lookup::idText(client->uuid), .label = plainText(displayName(*client), longestName)});
    }
    question.options.push_back({.value = "create_client", .label = "Someone new (create_client)"});
    ask(std::move(question));
}

void DocumentReviewer::checkServiceDate()
{
    const bool isGiven = deliveryKind(m_document) != DeliveryKind::none && m_document.deliveryStart;
    if (m_kind != DocumentKind::invoice || isGiven) {
        return;
    }
    const bool isRequired = alwaysGivesServiceDate(m_home.country);
    if ((!isRequired && !mayGiveServiceDate(m_home)) || (m_home.country == "DE" && isSmall())) {
        return;
    }
    const std::string country = m_home.name(m_locale);
    ask({.text = "When was the work done (or delivered)?",
         .field = "service_date",
         .isRequired = isRequired,
         .why = isRequired
                    ? fmt::format("Invoices in {} must give the date or period of the service.", country)
                    : fmt::format("Invoices in {} give the date of the service when it isn't the invoice's.", country),
         .options = {{.value = "invoice_date", .label = "The same day as the invoice"},
                     {.value = "this_month", .label = "This month"},
                     {.value = "last_month", .label = "Last month"}}});
}

void DocumentReviewer::checkCurrency()
{
    if (m_client == nullptr || m_client->currencyCode.empty() || m_client->currencyCode == m_document.currencyCode) {
        return;
    }
    const auto confirmed = ReviewAnswers::of(m_context, m_document, ReviewTopic::currency);
    if (confirmed.contains(currencyAnswer(*m_client, m_document.currencyCode))) {
        return;
    }
    const std::string usual = plainText(m_client->currencyCode, longestName);
    const std::string current = plainText(m_document.currencyCode, longestName);
    ask({.text = fmt::format("{} is usually billed in {}, and this {} is in {}. Which should it be?",
                             clientName(),
                             usual,
                             noun(),
                             current),
         .field = "currency",
         .isRequired = false,
         .why = "The currency differs from the client's.",
         .options = {{.value = usual, .label = fmt::format("{}, as usual", usual)},
                     {.value = current, .label = fmt::format("{}, as it is", current)}}});
}

} // namespace Quillary
