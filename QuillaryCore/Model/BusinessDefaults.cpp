#include "QuillaryCore/Model/BusinessDefaults.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Countries.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "QuillaryCore/Store/Context.h"

#include <span>
#include <string>

namespace Quillary {

namespace {

constexpr std::int16_t paymentTermsDays = 14;
constexpr std::int16_t reminderPaymentDays = 7;
constexpr std::string_view fallbackCurrency = "EUR";

/// What a rate is called beside the country's standard rate.
std::string_view rateName(std::string_view countryCode, std::int32_t basisPoints, std::int32_t standard)
{
    if (countryCode == "CA") { // the federal tax alone, or harmonised with the province's
        return basisPoints == standard ? "GST" : "HST";
    }
    if (basisPoints == standard) {
        return "Standard";
    }
    return basisPoints < standard ? "Reduced" : "Higher";
}

void makeTaxRates(Context& context, std::string_view countryCode, std::span<const std::int32_t> rates)
{
    for (const TaxRate* rate : TaxRates::all(context)) {
        TaxRates::remove(context, *rate);
    }
    for (const std::int32_t basisPoints : rates) {
        TaxRates::append(context, rateName(countryCode, basisPoints, rates.front()), basisPoints);
    }
    TaxRates::append(context, "No tax", 0);
    TaxRates::makeDefault(context, *TaxRates::all(context).front());
}

void setPatterns(Business& business)
{
    business.invoiceNumberFormat = Business::defaultInvoiceFormat;
    business.quoteNumberFormat = Business::defaultQuoteFormat;
    business.creditNoteNumberFormat = Business::defaultCreditNoteFormat;
    business.clientNumberFormat = Business::defaultClientFormat;
    business.fileNameFormat = Business::defaultFileNameFormat;
}

void setTemplate(Business& business)
{
    business.templateID = "classic";
    business.templateFont = "system";
    business.logoPosition = "left";
    business.logoSize = "medium";
    business.showSellerContact = true;
    business.showPaymentQRCode = true;
}

} // namespace

const Business* business(Context& context)
{
    return context.first<Business>("ORDER BY id");
}

Business& makeFirstBusiness(Context& context, const Locale& locale)
{
    precondition(business(context) == nullptr, "a library has one business");
    const std::string country = locale.regionCode();
    auto language = documentLanguageFromCode(locale.languageCode());
    if (!language) {
        language = Countries::language(country);
    }
    Business& business = context.insert<Business>();
    business.currencyCode = fallbackCurrency;
    business.languageCode = code(language.value_or(DocumentLanguage::english));
    business.paymentTermsDays = paymentTermsDays;
    business.reminderPaymentDays = reminderPaymentDays;
    setPatterns(business);
    setTemplate(business);
    moveToCountry(context, business, country);
    return business;
}

void moveToCountry(Context& context, Business& business, std::string_view countryCode)
{
    business.countryCode = Countries::isKnown(countryCode) ? countryCode : "";
    business.paperSize = Countries::usesLetterPaper(countryCode) ? "usLetter" : "a4";
    if (std::string currency = Countries::currency(countryCode); !currency.empty()) {
        business.currencyCode = std::move(currency);
    }
    const std::optional<Countries::Defaults> defaults = Countries::defaults(countryCode);
    business.taxLabelRaw = static_cast<std::int16_t>(defaults ? defaults->taxLabel : TaxLabel::tax);
    makeTaxRates(context, countryCode, defaults ? defaults->rates : std::span<const std::int32_t>());
}

bool setCountry(Context& context, Business& business, const std::string& countryCode)
{
    if (countryCode == business.countryCode) {
        return false;
    }
    business.countryCode = countryCode;
    if (countryCode.empty() || context.count<Document>("") > 0) {
        return false;
    }
    moveToCountry(context, business, countryCode);
    return true;
}

} // namespace Quillary
