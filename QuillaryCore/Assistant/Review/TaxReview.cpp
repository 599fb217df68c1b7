#include "QuillaryCore/Assistant/Review/DocumentReviewer.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientKind.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/ReviewAnswer.h"
#include "QuillaryCore/Model/TaxNotes.h"

#include <fmt/format.h>

namespace Quillary {

namespace {

constexpr std::string_view chargeAsUsual = "No, charge {} as usual";
constexpr std::string_view setWithUpdateClient = "Ask for it and set it with update_client.";

bool isPerson(const Client& client)
{
    return kind(client) == ClientKind::person;
}

} // namespace

void DocumentReviewer::checkTax()
{
    const TaxTreatment treatment = taxTreatment(m_context, m_document);
    if (treatment != TaxTreatment::standard) {
        checkUntaxed(treatment);
        return;
    }
    // Where nobody charges EU VAT, there is none to leave out.
    if (m_client == nullptr || !m_away || !m_home.isInEU() || m_business.taxExempt) {
        return;
    }
    const auto confirmed = ReviewAnswers::of(m_context, m_document, ReviewTopic::taxTreatment);
    if (confirmed.contains(taxTreatmentAnswer(*m_client))) {
        return;
    }
    if (!m_away->isInEU()) {
        askForOutsideEU(*m_away);
    } else if (isAbroadInEU()) {
        const std::string_view member = memberOfVATID(m_client->vatID);
        if (member.empty()) {
            askForVATID(*m_away);
        } else if (member != m_home.member) { // who is registered here as well is billed as at home
            askForReverseCharge(*m_away);
        }
    }
}

bool DocumentReviewer::isAbroadInEU() const
{
    return m_away && m_away->isInEU() && m_away->member != m_home.member;
}

void DocumentReviewer::checkUntaxed(TaxTreatment treatment)
{
    if (isQuote() || !m_home.isInEU()) {
        return;
    }
    if (trimmed(m_document.taxExemptNote).empty()) {
        tell(fmt::format("The {} is tax-exempt but doesn't say why.", noun()),
             "Set tax_exempt_note to the reason, as your tax rules word it.",
             "tax_exempt_note");
    }
    if (treatment == TaxTreatment::reverseCharge) {
        checkReverseCharge();
    } else if (treatment == TaxTreatment::outsideEU) {
        checkOutsideEU();
    }
}

void DocumentReviewer::checkReverseCharge()
{
    // Reverse charge at home has many national reasons; whoever words one is believed.
    const bool isOurNote = isTaxNote(m_document.taxExemptNote, TaxTreatment::reverseCharge);
    if (m_client == nullptr || (!isAbroadInEU() && !isOurNote)) {
        return;
    }
    if (m_away && !isAbroadInEU()) {
        tell(fmt::format("Reverse charge needs a client in another EU country; {} is in {}.",
                         clientName(),
                         m_away->name(m_locale)),
             "Set reverse_charge to false with update_document, or correct the country with update_client.",
             "tax_exempt");
        return;
    }
    const std::string_view member = memberOfVATID(m_client->vatID);
    if (member.empty()) {
        tell(fmt::format("Reverse charge needs {}'s VAT ID.", clientName()),
             setWithUpdateClient,
             "update_client vat_id");
    } else if (member == m_home.member) {
        tell(fmt::format("Reverse charge needs {}'s VAT ID of another EU country.", clientName()),
             setWithUpdateClient,
             "update_client vat_id");
    }
    if (m_business.vatID.empty()) {
        tell("Reverse charge needs your VAT ID.",
             "Set it once with update_business_profile, or in Quillary › Settings › Business.",
             "update_business_profile");
    }
}

void DocumentReviewer::checkOutsideEU()
{
    const bool isOurNote = isTaxNote(m_document.taxExemptNote, TaxTreatment::outsideEU);
    if (m_client != nullptr && m_away && m_away->isInEU() && isOurNote) {
        tell(fmt::format(
                 "The note says that the client is outside the EU; {} is in {}.", clientName(), m_away->name(m_locale)),
             "Set outside_eu to false with update_document, or correct the country with update_client.",
             "tax_exempt");
    }
}

void DocumentReviewer::askForReverseCharge(const VATArea& away)
{
    ask({.text = fmt::format("{} is a business in {} with a VAT ID. Use reverse charge (no VAT, with the note)?",
                             clientName(),
                             away.name(m_locale)),
         .field = "reverse_charge",
         .isRequired = false,
         .why = "Services to EU businesses abroad are usually invoiced without VAT under reverse charge.",
         .options = {{.value = true, .label = "Yes, reverse charge"},
                     {.value = false, .label = fmt::format(fmt::runtime(chargeAsUsual), taxWord())}}});
}

void DocumentReviewer::askForVATID(const VATArea& away)
{
    // A quote's client can give it later; a private person has none.
    if (isQuote() || isPerson(*m_client) || ReviewAnswers::hasNoVATID(m_context, *m_client)) {
        return;
    }
    ask({.text = fmt::format("{} is in {}. If they're a VAT-registered business, what's their VAT ID? (Then reverse "
                             "charge usually applies.)",
                             clientName(),
                             away.name(m_locale)),
         .field = "update_client vat_id",
         .isRequired = false,
         .why = "Invoices to EU businesses abroad usually use reverse charge, which needs the client's VAT ID.",
         .options = {{.value = "none", .label = "They have none: charge VAT as usual"}}});
}

void DocumentReviewer::askForOutsideEU(const VATArea& away)
{
    // Private persons pay the tax of the seller's country for most services.
    if (isPerson(*m_client)) {
        return;
    }
    ask({.text = fmt::format("{} is a business outside the EU ({}). Invoice without {}, with the note?",
                             clientName(),
                             away.plainName(m_locale),
                             taxWord()),
         .field = "outside_eu",
         .isRequired = false,
         .why = "Services to businesses abroad are usually taxed where the client is, not here.",
         .options = {{.value = true, .label = fmt::format("Yes, without {}", taxWord())},
                     {.value = false, .label = fmt::format(fmt::runtime(chargeAsUsual), taxWord())}}});
}

} // namespace Quillary
