#include "QuillaryCore/Assistant/Operations/FilledIn.h"

#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"
#include "QuillaryCore/Documents/DocumentCopy.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Store/Context.h"

#include <utility>

namespace Quillary::FilledIn {

Fields fields(const AssistantEnvironment& environment, const Document& draft)
{
    const Business& business = environment.ownBusiness();
    const Client* client = environment.context.find(draft.client);
    const Calendar& calendar = environment.calendar;
    const bool isQuote = kind(draft) == DocumentKind::quote;
    const bool hasOwnTerms = client != nullptr && client->paymentTermsDays > 0;
    const bool hasOwnLanguage = client != nullptr && !client->languageCode.empty();
    const TaxTreatment usualTax = business.taxExempt ? TaxTreatment::exempt : TaxTreatment::standard;
    const std::pair<const char*, bool> facts[] = {
        {"issue_date", draft.issueDate == calendar.storedDay(calendar.date(environment.clock.now()))},
        {"payment_terms_days",
         draft.paymentTermsDays == (hasOwnTerms ? client->paymentTermsDays : business.paymentTermsDays)},
        {"valid_until",
         draft.issueDate && draft.validUntil == calendar.addingDays(*draft.issueDate, quoteValidityDays)},
        {"intro", draft.introText == (isQuote ? business.quoteIntroText : business.invoiceIntroText)},
        {"footer", draft.outroText == (isQuote ? business.quoteOutroText : business.invoiceOutroText)},
        {"language", draft.languageCode == (hasOwnLanguage ? client->languageCode : business.languageCode)},
        {"currency", draft.currencyCode == business.currencyCode},
        {"tax", taxTreatment(environment.context, draft) == usualTax},
        {"tax_exempt_note", business.taxExempt && draft.taxExemptNote == business.taxExemptNote},
    };
    Fields fields;
    for (const auto& [name, isFilledIn] : facts) {
        if (isFilledIn) {
            fields.emplace(name);
        }
    }
    return fields;
}

} // namespace Quillary::FilledIn
