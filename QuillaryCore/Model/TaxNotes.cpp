#include "QuillaryCore/Model/TaxNotes.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <algorithm>
#include <source_location>

namespace Quillary {

namespace {

std::string_view reverseChargeNote(DocumentLanguage language)
{
    switch (language) {
    case DocumentLanguage::english:
        return "Reverse charge: VAT is payable by the recipient (Article 196 of Directive 2006/112/EC).";
    case DocumentLanguage::german:
        return "Steuerschuldnerschaft des Leistungsempfängers (Artikel 196 der Richtlinie 2006/112/EG).";
    case DocumentLanguage::french:
        return "Autoliquidation : TVA due par le preneur (article 196 de la directive 2006/112/CE).";
    case DocumentLanguage::spanish:
        return "Inversión del sujeto pasivo (artículo 196 de la Directiva 2006/112/CE).";
    case DocumentLanguage::dutch:
        return "Btw verlegd (artikel 196 van Richtlijn 2006/112/EG).";
    case DocumentLanguage::italian:
        return "Inversione contabile: IVA a carico del committente (articolo 196 della direttiva 2006/112/CE).";
    }
    stopProgram("a document language is one of the six", std::source_location::current());
}

std::string_view outsideEUNote(DocumentLanguage language)
{
    switch (language) {
    case DocumentLanguage::english:
        return "Not subject to EU VAT: the place of supply is outside the EU (Article 44 of Directive 2006/112/EC).";
    case DocumentLanguage::german:
        return "Nicht steuerbare Leistung: Leistungsort außerhalb der EU (Artikel 44 der Richtlinie 2006/112/EG).";
    case DocumentLanguage::french:
        return "TVA non applicable : lieu de prestation hors de l’UE (article 44 de la directive 2006/112/CE).";
    case DocumentLanguage::spanish:
        return "Operación no sujeta a IVA: lugar de prestación fuera de la UE (artículo 44 de la Directiva "
               "2006/112/CE).";
    case DocumentLanguage::dutch:
        return "Geen btw: plaats van dienst buiten de EU (artikel 44 van Richtlijn 2006/112/EG).";
    case DocumentLanguage::italian:
        return "Operazione non soggetta a IVA: luogo della prestazione fuori dall’UE (articolo 44 della direttiva "
               "2006/112/CE).";
    }
    stopProgram("a document language is one of the six", std::source_location::current());
}

} // namespace

std::string_view taxNote(TaxTreatment treatment, DocumentLanguage language)
{
    switch (treatment) {
    case TaxTreatment::reverseCharge:
        return reverseChargeNote(language);
    case TaxTreatment::outsideEU:
        return outsideEUNote(language);
    case TaxTreatment::standard:
    case TaxTreatment::exempt:
        return {};
    }
    stopProgram("a tax treatment is one of the four", std::source_location::current());
}

bool isTaxNote(std::string_view note, TaxTreatment treatment)
{
    return !note.empty() && std::ranges::any_of(allDocumentLanguages, [&](DocumentLanguage language) {
        return note == taxNote(treatment, language);
    });
}

} // namespace Quillary
