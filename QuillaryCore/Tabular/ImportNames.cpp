#include "QuillaryCore/Tabular/ImportNames.h"

#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Tabular/ImportText.h"

#include <unicode/locdspnm.h>
#include <unicode/locid.h>
#include <unicode/ucurr.h>
#include <unicode/udisplaycontext.h>
#include <unicode/uloc.h>
#include <unicode/unistr.h>

#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace Quillary::ImportNames {

namespace {

std::string utf8(const icu::UnicodeString& text)
{
    std::string result;
    text.toUTF8String(result);
    return result;
}

/// The first code that a name is given for keeps it.
void add(CodesByName& codes, std::string_view name, std::string_view code)
{
    if (std::string key = ImportText::normalized(name); !key.empty()) {
        codes.emplace(std::move(key), code);
    }
}

/// Asks for names of regions in one language, the long ones or the short ones ("UK").
std::unique_ptr<icu::LocaleDisplayNames> regionNames(const icu::Locale& language, UDisplayContext length)
{
    std::array<UDisplayContext, 2> contexts = {length, UDISPCTX_NO_SUBSTITUTE}; // a missing name is no name
    return std::unique_ptr<icu::LocaleDisplayNames>(
        icu::LocaleDisplayNames::createInstance(language, contexts.data(), contexts.size()));
}

void addRegion(CodesByName& codes, const icu::LocaleDisplayNames& names, const char* country)
{
    icu::UnicodeString name;
    names.regionDisplayName(country, name);
    if (!name.isBogus()) {
        add(codes, utf8(name), country);
    }
}

template <class Visitor>
void forEachCountry(const Visitor& visit)
{
    for (const char* const* country = uloc_getISOCountries(); *country != nullptr; ++country) {
        visit(*country);
    }
}

/// Names in use that CLDR has in none of the six languages.
constexpr std::pair<std::string_view, std::string_view> moreCountries[] = {
    {"Great Britain", "GB"},
    {"Britain", "GB"},
    {"England", "GB"},
    {"Scotland", "GB"},
    {"Wales", "GB"},
    {"Northern Ireland", "GB"},
    {"Großbritannien", "GB"},
    {"Schottland", "GB"},
    {"Nordirland", "GB"},
    {"Grande-Bretagne", "GB"},
    {"Angleterre", "GB"},
    {"Gran Bretaña", "GB"},
    {"Inglaterra", "GB"},
    {"Groot-Brittannië", "GB"},
    {"Engeland", "GB"},
    {"Gran Bretagna", "GB"},
    {"Inghilterra", "GB"},
    {"United States of America", "US"},
    {"America", "US"},
    {"Amerika", "US"},
    {"Vereinigte Staaten von Amerika", "US"},
    {"États-Unis d’Amérique", "US"},
    {"EUA", "US"},
    {"EEUU", "US"},
    {"EE.UU.", "US"},
    {"Estados Unidos de América", "US"},
    {"Verenigde Staten van Amerika", "US"},
    {"VS", "US"},
    {"Stati Uniti d’America", "US"},
    {"Holland", "NL"},
    {"Hollande", "NL"},
    {"Holanda", "NL"},
    {"Olanda", "NL"},
    {"The Netherlands", "NL"},
    {"Federal Republic of Germany", "DE"},
    {"Bundesrepublik Deutschland", "DE"},
    {"BRD", "DE"},
    {"Republic of Ireland", "IE"},
    {"Republik Irland", "IE"},
    {"Czech Republic", "CZ"},
    {"Tschechische Republik", "CZ"},
    {"République tchèque", "CZ"},
    {"República Checa", "CZ"},
    {"Tsjechische Republiek", "CZ"},
    {"Repubblica Ceca", "CZ"},
    {"Slovak Republic", "SK"},
    {"Slowakische Republik", "SK"},
    {"Russian Federation", "RU"},
    {"Russische Föderation", "RU"},
    {"Korea", "KR"},
    {"Republic of Korea", "KR"},
    {"Macedonia", "MK"},
    {"Mazedonien", "MK"},
    {"Ivory Coast", "CI"},
    {"Cape Verde", "CV"},
    {"Swaziland", "SZ"},
    {"Burma", "MM"},
    {"Türkei", "TR"},
    {"Turkey", "TR"},
    {"Turquie", "TR"},
    {"Turquía", "TR"},
    {"Turkije", "TR"},
    {"Turchia", "TR"},
    {"Vatican", "VA"},
    {"Vatikan", "VA"},
    {"Weißrussland", "BY"},
    {"Moldawien", "MD"},
    {"UAE", "AE"},
    {"VAE", "AE"},
    {"PRC", "CN"},
    {"VR China", "CN"},
    {"People’s Republic of China", "CN"},
    // Signs on cars, which stood before postal codes for long.
    {"A", "AT"},
    {"B", "BE"},
    {"D", "DE"},
    {"E", "ES"},
    {"F", "FR"},
    {"FL", "LI"},
    {"H", "HU"},
    {"I", "IT"},
    {"IRL", "IE"},
    {"L", "LU"},
    {"N", "NO"},
    {"P", "PT"},
    {"S", "SE"},
    {"SLO", "SI"},
};

/// Names in use that CLDR has in none of the six languages; "dollar" alone is that of the United States, and so on.
constexpr std::pair<std::string_view, std::string_view> moreCurrencies[] = {
    {"dollar", "USD"},
    {"dollars", "USD"},
    {"dólar", "USD"},
    {"dólares", "USD"},
    {"dollaro", "USD"},
    {"dollari", "USD"},
    {"US Dollar", "USD"},
    {"Pfund", "GBP"},
    {"Pfund Sterling", "GBP"},
    {"pound", "GBP"},
    {"pounds", "GBP"},
    {"pound sterling", "GBP"},
    {"pounds sterling", "GBP"},
    {"sterling", "GBP"},
    {"livre sterling", "GBP"},
    {"livres sterling", "GBP"},
    {"libra", "GBP"},
    {"libra esterlina", "GBP"},
    {"libras esterlinas", "GBP"},
    {"pond", "GBP"},
    {"sterlina", "GBP"},
    {"Franken", "CHF"},
    {"SFr", "CHF"},
    {"Fr", "CHF"},
    {"franc suisse", "CHF"},
    {"franchi", "CHF"},
    {"yen", "JPY"},
    {"rupee", "INR"},
    {"rupees", "INR"},
    {"rupie", "INR"},
    {"zloty", "PLN"},
    {"RMB", "CNY"},
    {"Renminbi", "CNY"},
};

std::vector<std::string> currencyCodes()
{
    std::vector<std::string> codes;
    // The popular ones first: a name or sign of several is theirs.
    codes.assign(Currencies::popularCodes.begin(), Currencies::popularCodes.end());
    for (const Currency& currency : Currencies::all(Locale("en"))) {
        codes.push_back(currency.code);
    }
    return codes;
}

/// A currency's name or sign in a language; empty where it has none but its code.
std::string currencyText(const std::string& code, const std::string& language, UCurrNameStyle style)
{
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    icu::UnicodeString units = icu::UnicodeString::fromUTF8(code);
    const char16_t* text =
        ucurr_getName(units.getTerminatedBuffer(), language.c_str(), style, nullptr, &length, &status);
    std::string result = U_SUCCESS(status) != 0 ? utf8(icu::UnicodeString(text, length)) : std::string();
    return result == code ? std::string() : result;
}

std::string currencyPlural(const std::string& code, const std::string& language, const char* count)
{
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    icu::UnicodeString units = icu::UnicodeString::fromUTF8(code);
    const char16_t* text =
        ucurr_getPluralName(units.getTerminatedBuffer(), language.c_str(), nullptr, count, &length, &status);
    return U_SUCCESS(status) != 0 ? utf8(icu::UnicodeString(text, length)) : std::string();
}

CodesByName makeCountries()
{
    CodesByName result;
    for (const DocumentLanguage language : allDocumentLanguages) {
        const icu::Locale locale(std::string(code(language)).c_str());
        for (const UDisplayContext length : {UDISPCTX_LENGTH_FULL, UDISPCTX_LENGTH_SHORT}) {
            const auto names = regionNames(locale, length);
            forEachCountry([&](const char* country) { addRegion(result, *names, country); });
        }
    }
    forEachCountry([&](const char* country) {
        const std::string locale = std::string("und_") + country;
        add(result, uloc_getISO3Country(locale.c_str()), country);
    });
    for (const auto& [name, country] : moreCountries) {
        add(result, name, country);
    }
    return result;
}

CodesByName makeCountriesInOwnLanguages()
{
    CodesByName result;
    forEachCountry([&](const char* country) {
        std::array<char, ULOC_FULLNAME_CAPACITY> likely{};
        UErrorCode status = U_ZERO_ERROR;
        const std::string locale = std::string("und_") + country;
        uloc_addLikelySubtags(locale.c_str(), likely.data(), likely.size(), &status);
        if (U_SUCCESS(status) != 0) {
            addRegion(result, *regionNames(icu::Locale(likely.data()), UDISPCTX_LENGTH_FULL), country);
        }
    });
    return result;
}

CodesByName makeCurrencies()
{
    CodesByName result;
    const std::vector<std::string> codes = currencyCodes();
    for (const DocumentLanguage documentLanguage : allDocumentLanguages) {
        const std::string language(code(documentLanguage));
        for (const std::string& currency : codes) {
            add(result, currencyText(currency, language, UCURR_LONG_NAME), currency);
            add(result, currencyPlural(currency, language, "one"), currency);
            add(result, currencyPlural(currency, language, "other"), currency);
        }
    }
    for (const auto& [name, currency] : moreCurrencies) {
        add(result, name, currency);
    }
    return result;
}

CodesByName makeCurrencySigns()
{
    CodesByName result;
    const std::vector<std::string> codes = currencyCodes();
    for (const DocumentLanguage documentLanguage : allDocumentLanguages) { // English is the first
        for (const std::string& currency : codes) {
            if (std::string sign = currencyText(currency, std::string(code(documentLanguage)), UCURR_SYMBOL_NAME);
                !sign.empty()) {
                result.emplace(std::move(sign), currency);
            }
        }
    }
    // What a currency's own country writes, unless others write it too.
    std::unordered_map<std::string, std::vector<std::string>> shared;
    for (const std::string& currency : codes) {
        auto& sharing = shared[currencyText(currency, "en", UCURR_NARROW_SYMBOL_NAME)];
        if (sharing.empty() || sharing.back() != currency) {
            sharing.push_back(currency);
        }
    }
    for (auto& [sign, currencies] : shared) {
        if (!sign.empty() && currencies.size() == 1) {
            result.emplace(sign, std::move(currencies.front()));
        }
    }
    return result;
}

std::unordered_map<std::string, DocumentLanguage> makeLanguages()
{
    std::unordered_map<std::string, DocumentLanguage> result = {
        // Older codes of three letters (ISO 639-2/B), and names of the same languages elsewhere.
        {"ger", DocumentLanguage::german},
        {"fre", DocumentLanguage::french},
        {"dut", DocumentLanguage::dutch},
        {"castellano", DocumentLanguage::spanish},
        {"castilian", DocumentLanguage::spanish},
        {"flamisch", DocumentLanguage::dutch},
        {"flamand", DocumentLanguage::dutch},
        {"flemish", DocumentLanguage::dutch},
        {"vlaams", DocumentLanguage::dutch},
    };
    for (const DocumentLanguage language : allDocumentLanguages) {
        const icu::Locale locale(std::string(code(language)).c_str());
        result.emplace(code(language), language);
        result.emplace(locale.getISO3Language(), language);
        for (const DocumentLanguage shownIn : allDocumentLanguages) {
            icu::UnicodeString name;
            locale.getDisplayLanguage(icu::Locale(std::string(code(shownIn)).c_str()), name);
            result.emplace(ImportText::normalized(utf8(name)), language);
        }
    }
    return result;
}

} // namespace

const CodesByName& countries()
{
    static const CodesByName codes = makeCountries();
    return codes;
}

const CodesByName& countriesInOwnLanguages()
{
    static const CodesByName codes = makeCountriesInOwnLanguages();
    return codes;
}

const CodesByName& currencies()
{
    static const CodesByName codes = makeCurrencies();
    return codes;
}

const CodesByName& currencySigns()
{
    static const CodesByName codes = makeCurrencySigns();
    return codes;
}

const std::unordered_map<std::string, DocumentLanguage>& languages()
{
    static const auto codes = makeLanguages();
    return codes;
}

} // namespace Quillary::ImportNames
