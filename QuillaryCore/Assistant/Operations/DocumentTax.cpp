#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/TaxLabel.h"
#include "QuillaryCore/Model/TaxNotes.h"

#include <fmt/format.h>

namespace Quillary {

namespace {

/// What is shown of a longer reason for charging no tax. Unit: characters.
constexpr std::size_t longestReason = 80;

} // namespace

void DocumentSession::applyTaxTreatment(const Arguments& arguments)
{
    const std::optional<bool> reverseCharge = arguments.flag("reverse_charge");
    const std::optional<bool> outsideEU = arguments.flag("outside_eu");
    const std::optional<bool> exempt = arguments.flag("tax_exempt");
    const int chosen = int{reverseCharge == true} + int{outsideEU == true} + int{exempt == true};
    if (chosen > 1) {
        throw AssistantError("Choose one of “reverse_charge”, “outside_eu” and “tax_exempt”.");
    }
    const std::optional<std::string> note = arguments.paragraphs("tax_exempt_note", Limits::textLength);
    if (reverseCharge == true) {
        setPrintedTreatment(TaxTreatment::reverseCharge);
    } else if (outsideEU == true) {
        setPrintedTreatment(TaxTreatment::outsideEU);
    } else if (exempt == true) {
        setTreatment(TaxTreatment::exempt, business().taxExempt ? business().taxExemptNote : ownReason());
    } else {
        takeBackTreatment(arguments);
    }
    if (note) {
        if (!m_document.taxExempt && !note->empty()) {
            arguments.refuse("tax_exempt_note", "needs a document without tax: set tax_exempt as well.");
        }
        m_document.taxExemptNote = *note;
    }
}

void DocumentSession::takeBackTreatment(const Arguments& arguments)
{
    const TaxTreatment current = taxTreatment(m_environment.context, m_document);
    if (arguments.flag("tax_exempt") == false) {
        // The lines have kept their rates all the while, so that the tax is back as it was.
        setTreatment(TaxTreatment::standard, "");
        return;
    }
    const bool takenBack = (current == TaxTreatment::reverseCharge && arguments.flag("reverse_charge") == false) ||
                           (current == TaxTreatment::outsideEU && arguments.flag("outside_eu") == false);
    if (takenBack && business().taxExempt) {
        setTreatment(TaxTreatment::exempt, business().taxExemptNote);
    } else if (takenBack) {
        setTreatment(TaxTreatment::standard, "");
    }
}

/// A treatment with the reason that we print for it, unless it holds already with one in the user's own words.
void DocumentSession::setPrintedTreatment(TaxTreatment treatment)
{
    const bool holdsAlready = taxTreatment(m_environment.context, m_document) == treatment;
    const std::string own = holdsAlready ? ownReason() : "";
    setTreatment(treatment, own.empty() ? std::string(taxNote(treatment, language(m_document))) : own);
}

/// A new document of a business that charges no tax says so, if it still holds after the call's own wishes.
void DocumentSession::tellOwnExemption()
{
    if (!m_isNew || !business().taxExempt || taxTreatment(m_environment.context, m_document) != TaxTreatment::exempt) {
        return;
    }
    const std::string reason = plainText(m_document.taxExemptNote, longestReason);
    m_filledIn.push_back(
        fmt::format("no {}: {}", taxLabelText(business()), reason.empty() ? "(no reason given)" : reason));
}

/// The note, unless it is one that we print: those go with their treatment, whatever the language was when they came.
std::string DocumentSession::ownReason() const
{
    const std::string& note = m_document.taxExemptNote;
    const bool isOurs = isTaxNote(note, TaxTreatment::reverseCharge) || isTaxNote(note, TaxTreatment::outsideEU);
    return isOurs ? "" : note;
}

void DocumentSession::setTreatment(TaxTreatment treatment, const std::string& note)
{
    m_document.taxExempt = treatment != TaxTreatment::standard;
    m_document.taxExemptNote = note;
    setTaxTreatment(m_environment.context, m_document, treatment);
}

} // namespace Quillary
