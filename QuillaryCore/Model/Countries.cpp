#include "QuillaryCore/Model/Countries.h"

#include <unicode/ucurr.h>
#include <unicode/uloc.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <set>

namespace Quillary::Countries {

namespace {

struct Row
{
    std::string_view country;
    std::string_view currency;
    TaxLabel label;
    std::size_t rateCount;
    std::array<std::int32_t, 4> rates{}; ///< basis points; those after the count mean nothing

    constexpr Row(std::string_view countryCode,
                  std::string_view currencyCode,
                  TaxLabel taxLabel,
                  std::initializer_list<std::int32_t> taxRates)
        : country(countryCode)
        , currency(currencyCode)
        , label(taxLabel)
        , rateCount(taxRates.size())
    {
        std::ranges::copy(taxRates, rates.begin());
    }
};

using enum TaxLabel;

/// In force in January 2026, the standard rate first. Canada's are those of the federal tax and of the provinces that
/// add theirs to it; the United States have none for the whole country.
constexpr Row rows[] = {
    {"AE", "AED", vat, {500}},
    {"AR", "ARS", vat, {2100, 1050, 2700}},
    {"AT", "EUR", vat, {2000, 1300, 1000}},
    {"AU", "AUD", gst, {1000}},
    {"BE", "EUR", vat, {2100, 1200, 600}},
    {"BG", "EUR", vat, {2000, 900}},
    {"CA", "CAD", gst, {500, 1300, 1400, 1500}},
    {"CH", "CHF", vat, {810, 380, 260}},
    {"CL", "CLP", vat, {1900}},
    {"CO", "COP", vat, {1900, 500}},
    {"CY", "EUR", vat, {1900, 900, 500, 300}},
    {"CZ", "CZK", vat, {2100, 1200}},
    {"DE", "EUR", vat, {1900, 700}},
    {"DK", "DKK", vat, {2500}},
    {"EE", "EUR", vat, {2400, 1300, 900}},
    {"ES", "EUR", vat, {2100, 1000, 400}},
    {"FI", "EUR", vat, {2550, 1350, 1000}},
    {"FR", "EUR", vat, {2000, 1000, 550, 210}},
    {"GB", "GBP", vat, {2000, 500}},
    {"GR", "EUR", vat, {2400, 1300, 600}},
    {"HK", "HKD", tax, {}},
    {"HR", "EUR", vat, {2500, 1300, 500}},
    {"HU", "HUF", vat, {2700, 1800, 500}},
    {"IE", "EUR", vat, {2300, 1350, 900, 480}},
    {"IL", "ILS", vat, {1800}},
    {"IM", "GBP", vat, {2000, 500}},
    {"IN", "INR", gst, {1800, 500, 4000}},
    {"IS", "ISK", vat, {2400, 1100}},
    {"IT", "EUR", vat, {2200, 1000, 500, 400}},
    {"JP", "JPY", tax, {1000, 800}},
    {"KR", "KRW", vat, {1000}},
    {"LI", "CHF", vat, {810, 380, 260}},
    {"LT", "EUR", vat, {2100, 1200, 500}},
    {"LU", "EUR", vat, {1700, 1400, 800, 300}},
    {"LV", "EUR", vat, {2100, 1200, 500}},
    {"MC", "EUR", vat, {2000, 1000, 550, 210}},
    {"MT", "EUR", vat, {1800, 1200, 700, 500}},
    {"MX", "MXN", vat, {1600, 800}},
    {"NL", "EUR", vat, {2100, 900}},
    {"NO", "NOK", vat, {2500, 1500, 1200}},
    {"NZ", "NZD", gst, {1500}},
    {"PE", "PEN", vat, {1800}},
    {"PH", "PHP", vat, {1200}},
    {"PL", "PLN", vat, {2300, 800, 500}},
    {"PT", "EUR", vat, {2300, 1300, 600}},
    {"RO", "RON", vat, {2100, 1100}},
    {"SA", "SAR", vat, {1500}},
    {"SE", "SEK", vat, {2500, 1200, 600}},
    {"SG", "SGD", gst, {900}},
    {"SI", "EUR", vat, {2200, 950, 500}},
    {"SK", "EUR", vat, {2300, 1900, 500}},
    {"TH", "THB", vat, {700}},
    {"TR", "TRY", vat, {2000, 1000, 100}},
    {"UA", "UAH", vat, {2000, 1400, 700}},
    {"US", "USD", salesTax, {}},
    {"ZA", "ZAR", vat, {1500}},
};

static_assert(std::ranges::is_sorted(rows, {}, &Row::country));

constexpr std::string_view members[] = {"AT", "BE", "BG", "CY", "CZ", "DE", "DK", "EE", "ES",
                                        "FI", "FR", "GR", "HR", "HU", "IE", "IT", "LT", "LU",
                                        "LV", "MT", "NL", "PL", "PT", "RO", "SE", "SI", "SK"};

constexpr std::string_view letterPaper[] = {
    "BZ", "CA", "CL", "CO", "CR", "GT", "MX", "NI", "PA", "PH", "PR", "SV", "US", "VE"};

struct LanguageRow
{
    DocumentLanguage language;
    std::string_view countries; ///< separated by spaces
};

constexpr LanguageRow languages[] = {
    {DocumentLanguage::english, "AU GB IE IM NZ US"},
    {DocumentLanguage::german, "AT DE LI"},
    {DocumentLanguage::french, "FR MC"},
    {DocumentLanguage::spanish, "AR BO CL CO CR CU DO EC ES GT HN MX NI PA PE PR PY SV UY VE"},
    {DocumentLanguage::dutch, "NL SR"},
    {DocumentLanguage::italian, "IT SM VA"},
};

bool isCountryCode(std::string_view text)
{
    return text.size() == 2 && std::ranges::all_of(text, [](char letter) { return letter >= 'A' && letter <= 'Z'; });
}

} // namespace

std::optional<Defaults> defaults(std::string_view countryCode)
{
    const auto* row = std::ranges::lower_bound(rows, countryCode, {}, &Row::country);
    if (row == std::end(rows) || row->country != countryCode) {
        return std::nullopt;
    }
    return Defaults{row->country, row->currency, row->label, std::span(row->rates).first(row->rateCount)};
}

std::optional<DocumentLanguage> language(std::string_view countryCode)
{
    for (const LanguageRow& row : languages) {
        if (isCountryCode(countryCode) && row.countries.find(countryCode) != std::string_view::npos) {
            return row.language;
        }
    }
    return std::nullopt;
}

bool usesLetterPaper(std::string_view countryCode)
{
    return std::ranges::binary_search(letterPaper, countryCode);
}

bool isInEU(std::string_view countryCode)
{
    return std::ranges::binary_search(members, countryCode);
}

bool isKnown(std::string_view countryCode)
{
    static const std::set<std::string, std::less<>> codes = [] {
        std::set<std::string, std::less<>> result;
        for (const char* const* code = uloc_getISOCountries(); *code != nullptr; ++code) {
            result.emplace(*code);
        }
        return result;
    }();
    return codes.contains(countryCode);
}

std::string currency(std::string_view countryCode)
{
    // The table comes first: ICU's data is older than the latest member of the euro.
    if (const std::optional<Defaults> known = defaults(countryCode)) {
        return std::string(known->currencyCode);
    }
    if (!isKnown(countryCode)) {
        return {};
    }
    const std::string locale = "und_" + std::string(countryCode);
    std::array<char16_t, 4> code{};
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t length = ucurr_forLocale(locale.c_str(), code.data(), code.size(), &status);
    if (U_FAILURE(status) != 0 || length != 3) {
        return {};
    }
    std::string result;
    std::ranges::transform(code.begin(), code.begin() + 3, std::back_inserter(result), [](char16_t unit) {
        return static_cast<char>(unit);
    });
    return result;
}

} // namespace Quillary::Countries
