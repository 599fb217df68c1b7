#pragma once

#include "QuillaryCore/Assistant/Review/DocumentReview.h"
#include "QuillaryCore/Assistant/Review/VATArea.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

struct Client;
struct LineItem;

/// The checks behind `DocumentReview::review`, in their order. One use each.
class DocumentReviewer
{
public:
    DocumentReviewer(
        Context& context, const Document& document, const Business& business, Instant today, const Locale& locale);

    [[nodiscard]] DocumentReview review();

private:
    void checkBusiness();
    void checkDocument();
    void checkClient();
    void checkClientAddress();
    void checkLines();
    void checkServiceDate();
    void checkTax();
    void checkCurrency();

    void askForClient();
    bool checkLine(const LineItem& line, std::size_t number);
    void askForDescription(const LineItem& line, std::size_t number);
    void askForPrice(const LineItem& line, std::size_t number);
    void checkTaxRates();
    [[nodiscard]] std::string bearing(const std::vector<std::size_t>& numbers) const;
    void askForTaxRate(std::int32_t usualRate, const std::vector<std::size_t>& numbers);
    [[nodiscard]] bool hasOpenPrice(const LineItem& line);
    [[nodiscard]] bool isUntaxedByMistake(const LineItem& line);

    void checkUntaxed(TaxTreatment treatment);
    void checkReverseCharge();
    void checkOutsideEU();
    void askForReverseCharge(const VATArea& away);
    void askForVATID(const VATArea& away);
    void askForOutsideEU(const VATArea& away);

    void ask(ReviewQuestion question) { m_result.questions.push_back(std::move(question)); }
    void tell(std::string problem, std::string_view fix, std::string_view field);

    /// Invoices and the templates they are made from; a kind that can't be read counts as one.
    [[nodiscard]] bool isInvoice() const;
    [[nodiscard]] bool isQuote() const { return m_kind == DocumentKind::quote; }
    [[nodiscard]] bool isSmall();
    [[nodiscard]] bool isAbroadInEU() const;
    [[nodiscard]] std::string_view noun() const; ///< "invoice"
    [[nodiscard]] const std::string& clientName() const { return m_clientName; }
    [[nodiscard]] std::string taxWord() const;

    Context& m_context;
    const Document& m_document;
    const Business& m_business;
    Instant m_today;
    const Locale& m_locale;
    DocumentKind m_kind;
    const Client* m_client;
    std::string m_clientName;
    VATArea m_home;                       ///< the business's
    std::optional<VATArea> m_away;        ///< the client's; absent when nothing tells
    std::vector<const LineItem*> m_lines; ///< in print order
    std::set<std::string, std::less<>> m_freeLines;
    std::set<std::string, std::less<>> m_untaxedLines;
    DocumentReview m_result;
};

/// How an answer about a document's client is kept: it holds for that client in that country.
[[nodiscard]] std::string taxTreatmentAnswer(const Client& client);

/// The same for the currency: it holds for that client.
[[nodiscard]] std::string currencyAnswer(const Client& client, std::string_view currencyCode);

} // namespace Quillary
