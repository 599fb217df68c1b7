#include "QuillaryCore/Model/BusinessDefaults.h"

#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Countries.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Money/Percent.h"
#include "tests/Model/TestLibrary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

namespace {

/// "Standard 19%, No tax 0%*": the rates in order, the default marked.
std::string ratesText(Context& context)
{
    std::string text;
    for (const TaxRate* rate : TaxRates::all(context)) {
        text += (text.empty() ? "" : ", ") + rate->name + " " + Percent::format(rate->basisPoints) +
                (rate->isDefault ? "*" : "");
    }
    return text;
}

} // namespace

TEST(BusinessDefaultsTest, followTheLocale)
{
    struct Case
    {
        std::string_view locale;
        std::string_view country;
        std::string_view currency;
        std::string_view language;
        std::string_view paper;
        TaxLabel label;
        std::string_view rates;
    };
    const Case cases[] = {
        {"de_DE", "DE", "EUR", "de", "a4", TaxLabel::vat, "Standard 19%*, Reduced 7%, No tax 0%"},
        {"en_DE", "DE", "EUR", "en", "a4", TaxLabel::vat, "Standard 19%*, Reduced 7%, No tax 0%"},
        {"pl_DE", "DE", "EUR", "de", "a4", TaxLabel::vat, "Standard 19%*, Reduced 7%, No tax 0%"},
        {"pl_PL", "PL", "PLN", "en", "a4", TaxLabel::vat, "Standard 23%*, Reduced 8%, Reduced 5%, No tax 0%"},
        {"en_US", "US", "USD", "en", "usLetter", TaxLabel::salesTax, "No tax 0%*"},
        {"fr_CA", "CA", "CAD", "fr", "usLetter", TaxLabel::gst, "GST 5%*, HST 13%, HST 14%, HST 15%, No tax 0%"},
        {"hi_IN", "IN", "INR", "en", "a4", TaxLabel::gst, "Standard 18%*, Reduced 5%, Higher 40%, No tax 0%"},
        {"fi_FI", "FI", "EUR", "en", "a4", TaxLabel::vat, "Standard 25.5%*, Reduced 13.5%, Reduced 10%, No tax 0%"},
        {"bg_BG", "BG", "EUR", "en", "a4", TaxLabel::vat, "Standard 20%*, Reduced 9%, No tax 0%"},
        {"ja_JP", "JP", "JPY", "en", "a4", TaxLabel::tax, "Standard 10%*, Reduced 8%, No tax 0%"},
        {"es_BO", "BO", "BOB", "es", "a4", TaxLabel::tax, "No tax 0%*"}, // only ICU knows its currency
        {"en", "", "EUR", "en", "a4", TaxLabel::tax, "No tax 0%*"},
    };
    for (const Case& row : cases) {
        TestLibrary library;
        EXPECT_EQ(business(library.context), nullptr);
        const Business& made = makeFirstBusiness(library.context, Locale(row.locale));
        EXPECT_EQ(business(library.context), &made);
        EXPECT_EQ(made.countryCode, row.country) << row.locale;
        EXPECT_EQ(made.currencyCode, row.currency) << row.locale;
        EXPECT_EQ(made.languageCode, row.language) << row.locale;
        EXPECT_EQ(made.paperSize, row.paper) << row.locale;
        EXPECT_EQ(taxLabel(made), row.label) << row.locale;
        EXPECT_EQ(ratesText(library.context), row.rates) << row.locale;
        EXPECT_EQ(made.invoiceNumberFormat, "INV-{yyyy}-{###,y}");
        EXPECT_EQ(made.paymentTermsDays, 14);
        EXPECT_TRUE(made.showPaymentQRCode && made.showSellerContact);
        library.context.save();
    }
}

TEST(BusinessDefaultsTest, moveWithTheCountry)
{
    TestLibrary library;
    Business& business = makeFirstBusiness(library.context, Locale("de_US"));
    moveToCountry(library.context, business, "AT");
    EXPECT_EQ(business.countryCode + business.currencyCode + business.paperSize + business.languageCode, "ATEURa4de");
    EXPECT_EQ(ratesText(library.context), "Standard 20%*, Reduced 13%, Reduced 10%, No tax 0%");
    moveToCountry(library.context, business, "US");
    EXPECT_EQ(business.currencyCode + business.paperSize, "USDusLetter");
    EXPECT_EQ(ratesText(library.context), "No tax 0%*");
}

TEST(TaxRatesTest, haveAtMostOneDefault)
{
    TestLibrary library;
    Context& context = library.context;
    EXPECT_EQ(TaxRates::defaultRate(context), nullptr);
    const TaxRate& first = TaxRates::append(context, "A", 1900);
    const TaxRate& second = TaxRates::append(context, "B", 700);
    EXPECT_EQ(TaxRates::defaultRate(context), nullptr);
    TaxRates::makeDefault(context, first);
    TaxRates::makeDefault(context, second);
    EXPECT_EQ(TaxRates::defaultRate(context), &second);
    EXPECT_EQ(ratesText(context), "A 19%, B 7%*");
    TaxRates::remove(context, first);
    TaxRates::append(context, "C", 0);
    EXPECT_EQ(ratesText(context), "B 7%*, C 0%");
}

TEST(CountriesTest, areConsistent)
{
    int inEU = 0;
    for (int index = 0; index < 26 * 26; ++index) {
        const std::string country{static_cast<char>('A' + index / 26), static_cast<char>('A' + index % 26)};
        const std::optional<Countries::Defaults> defaults = Countries::defaults(country);
        inEU += Countries::isInEU(country) ? 1 : 0;
        EXPECT_TRUE(!defaults || Countries::isKnown(country)) << country;
        EXPECT_TRUE(!Countries::isInEU(country) || (defaults && !defaults->rates.empty())) << country;
        EXPECT_TRUE(!Countries::language(country) || Countries::isKnown(country)) << country;
        EXPECT_TRUE(!defaults || Currencies::isKnown(defaults->currencyCode)) << country;
        EXPECT_TRUE(!defaults || std::ranges::all_of(defaults->rates, [](std::int32_t rate) {
            return rate > 0 && rate <= 4000;
        })) << country;
    }
    EXPECT_EQ(inEU, 27);
    for (const std::string_view broken : {"", "D", "DEU", "de", "D "}) {
        EXPECT_FALSE(Countries::isKnown(broken) || Countries::defaults(broken) || Countries::language(broken))
            << broken;
        EXPECT_EQ(Countries::currency(broken), "");
    }
}

} // namespace Quillary
