#pragma once

#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"
#include "QuillaryCore/Store/Ref.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

struct Client;
struct Discount;
struct Document;
struct Fee;
struct LineItem;
struct Project;
struct TimeEntry;

/// Fills one draft from a call's arguments, and everything else from the client's and the business's settings.
///
/// Works inside the caller's scope: when an argument is refused the scope takes back all of it. Throws:
/// `AssistantError`.
class DocumentSession
{
public:
    /// A new draft of "invoice" or "quote" with the business's defaults, not yet numbered.
    [[nodiscard]] static DocumentSession create(const AssistantEnvironment& environment, std::string_view kindWord);

    /// An existing draft. Throws when the document is no draft any more: what was issued is not changed; nor
    /// is a recurring template, which counts no number and is sent to nobody.
    [[nodiscard]] static DocumentSession open(const AssistantEnvironment& environment, const Document& document);

    /// The same for the user, who also changes what a recurring template holds. Its date is that of its schedule, it has
    /// no due date and gets no number.
    [[nodiscard]] static DocumentSession openForUser(const AssistantEnvironment& environment, const Document& document);

    /// Applies all arguments, numbers the document and brings its figures up to date. Beside those that are offered to
    /// assistants, the window uses "valid_until" (a quote's last day) and "add_fees", "change_fees" and "remove_fees",
    /// made like those of lines: "fee" is its number, "title", "amount" and "tax_rate" say what it is, "place" where it
    /// is to stand. The same with "discounts": "discount" is the number, and one is a "discount_percent" or a
    /// "discount_amount".
    void apply(const Arguments& arguments);

    /// Which tracked time of the client goes on the document, and how.
    struct Time
    {
        std::optional<Ref<Project>> project; ///< no value: of all; empty: of none
        std::optional<Instant> from;         ///< entries that start then or later
        std::optional<Instant> until;        ///< and before this
        TimeInvoicing::Grouping grouping = TimeInvoicing::Grouping::byProject;
        std::optional<std::int64_t> roundingMinutes; ///< no value: the business's
    };

    /// Adds lines for the client's unbilled time and brings the figures up to date. Returns how many entries they bill.
    std::size_t addTime(const Time& time);

    [[nodiscard]] const Document& document() const { return m_document; }

    /// What the settings filled in, in short texts for the answer.
    [[nodiscard]] const std::vector<std::string>& filledIn() const { return m_filledIn; }

private:
    DocumentSession(const AssistantEnvironment& environment, Document& document);

    void applyClient(const Arguments& arguments, const Client* before);
    void takeDefaults(const Arguments& arguments, const Client& chosen, const Client* before);
    void requireNoTimeOf(const Client& chosen);
    void applyTexts(const Arguments& arguments);
    void applyCurrency(const Arguments& arguments, const Client* before);
    [[nodiscard]] std::string wantedCurrency(const Arguments& arguments, const Client* before);
    void changeCurrency(const std::string& wanted, const Arguments& arguments);
    void requireOwnPrice(const LineItem& line, std::size_t number, const std::string& wanted);
    void applyDates(const Arguments& arguments);
    void applyDueDate(std::optional<Instant> oldIssueDate, std::int16_t oldTerms);
    void applyServiceDate(const Arguments& arguments);
    void applyTaxTreatment(const Arguments& arguments);
    void takeBackTreatment(const Arguments& arguments);
    void setPrintedTreatment(TaxTreatment treatment);
    void tellOwnExemption();
    void rememberAnswers(const Arguments& arguments);
    void applyLines(const Arguments& arguments);
    /// What a discount is to be; at most one of them.
    struct DiscountWish
    {
        std::optional<std::int32_t> basisPoints;
        std::optional<std::int64_t> amountMinorUnits;
    };
    [[nodiscard]] DiscountWish discountWish(const Arguments& arguments) const;
    void applyDiscount(const Arguments& arguments);
    void applyDiscounts(const Arguments& arguments);
    void fillDiscount(Discount& discount, const Arguments& arguments) const;
    void applyValidity(const Arguments& arguments);
    void applyFees(const Arguments& arguments);
    void fillFee(Fee& fee, const Arguments& arguments) const;
    void applyNumber(const std::optional<Instant>& oldIssueDate, const Client* oldClient);

    void changeLine(const Arguments& change, const std::vector<const LineItem*>& lines);
    void addLine(const Arguments& arguments, std::int32_t sortIndex);
    void copyLastInvoice();
    [[nodiscard]] const Document& lastInvoice();
    void rememberLineAnswers(const LineItem& line, const Arguments& change);
    void addUnbilledTime();
    std::size_t addTimeLines(const Time& time);
    void requireTimeCurrency(std::int64_t hourlyRate) const;
    void updateFigures();
    void fillLine(LineItem& line, const Arguments& arguments);
    void setUnit(LineItem& line, const Arguments& arguments);
    void setTreatment(TaxTreatment treatment, const std::string& note);
    void refreshWords();

    [[nodiscard]] const Business& business() const;
    [[nodiscard]] const Client* client() const;
    /// Only invoices ask for money, and so have terms and a due date; a template has the terms of its invoices. A kind
    /// that can't be read counts as an invoice.
    [[nodiscard]] bool asksForPayment() const;
    [[nodiscard]] bool isTemplate() const;
    [[nodiscard]] std::int32_t defaultRate() const;
    [[nodiscard]] std::int32_t nextSortIndex() const;
    [[nodiscard]] std::string ownReason() const;

    const AssistantEnvironment& m_environment;
    Document& m_document;
    std::vector<std::string> m_filledIn;
    bool m_isNew = false;
};

} // namespace Quillary
