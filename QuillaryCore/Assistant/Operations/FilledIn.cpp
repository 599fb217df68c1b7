#include "QuillaryCore/Assistant/Operations/FilledIn.h"

#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"
#include "QuillaryCore/Documents/DocumentCopy.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "QuillaryCore/Store/Context.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace Quillary::FilledIn {

namespace {

template <std::size_t count>
Fields those(const std::pair<const char*, bool> (&facts)[count])
{
    Fields fields;
    for (const auto& [name, isFilledIn] : facts) {
        if (isFilledIn) {
            fields.emplace(name);
        }
    }
    return fields;
}

/// What a new line gets. No value: the business has no usual rate.
std::optional<std::int32_t> usualRate(const AssistantEnvironment& environment)
{
    if (environment.ownBusiness().taxExempt) {
        return 0;
    }
    const TaxRate* rate = TaxRates::defaultRate(environment.context);
    return rate == nullptr ? std::nullopt : std::optional(rate->basisPoints);
}

/// Its name is what somebody chose, and an empty text was filled in by nobody.
Fields asItem(const LineItem& line, const CatalogItem& item, const TaxRate* itemRate, const Document& draft)
{
    const std::pair<const char*, bool> facts[] = {
        {"details", !item.details.empty() && line.details == item.details},
        {"unit", !item.unit.empty() && line.unit == item.unit},
        {"unit_price", item.currencyCode == draft.currencyCode && line.unitPriceMinorUnits == item.unitPriceMinorUnits},
        {"tax_rate", itemRate != nullptr && line.vatBasisPoints == itemRate->basisPoints},
    };
    return those(facts);
}

} // namespace

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
    return those(facts);
}

std::vector<Line> lines(const AssistantEnvironment& environment, const Document& draft)
{
    Context& context = environment.context;
    const std::optional<std::int32_t> usual = usualRate(environment);
    const std::vector<const LineItem*> stored = linesInOrder(context, draft);
    std::vector<Line> lines;
    lines.reserve(stored.size());
    for (const LineItem* line : stored) {
        const CatalogItem* item = line->catalogItemID ? context.find<CatalogItem>(*line->catalogItemID) : nullptr;
        const TaxRate* rate = item != nullptr && item->taxRateID ? context.find<TaxRate>(*item->taxRateID) : nullptr;
        Line& filled = lines.emplace_back();
        if (item != nullptr) {
            filled.item = item->name;
            filled.ofItem = asItem(*line, *item, rate, draft);
        }
        filled.hasUsualRate = rate == nullptr && line->vatBasisPoints == usual;
    }
    return lines;
}

} // namespace Quillary::FilledIn
