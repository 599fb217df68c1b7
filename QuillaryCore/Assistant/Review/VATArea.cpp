#include "QuillaryCore/Assistant/Review/VATArea.h"

#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Countries.h"

#include <algorithm>
#include <array>

namespace Quillary {

namespace {

constexpr std::string_view northernIreland = "XI";

/// Places of a member state where its VAT does not reach (Article 6), by the beginnings of their postal codes.
struct Exclave
{
    std::string_view country;
    std::string_view postalCode;
    std::string_view name;
};

constexpr std::array exclaves = {Exclave{"DE", "27498", "Heligoland"},
                                 Exclave{"DE", "78266", "Büsingen"},
                                 Exclave{"ES", "35", "Canary Islands"},
                                 Exclave{"ES", "38", "Canary Islands"},
                                 Exclave{"ES", "51", "Ceuta"},
                                 Exclave{"ES", "52", "Melilla"},
                                 Exclave{"FI", "22", "Åland"},
                                 Exclave{"FR", "97", "French overseas territories"},
                                 Exclave{"FR", "986", "Wallis and Futuna"},
                                 Exclave{"FR", "987", "French Polynesia"},
                                 Exclave{"FR", "988", "New Caledonia"},
                                 Exclave{"GR", "63086", "Mount Athos"},
                                 Exclave{"IT", "22061", "Campione d’Italia"},
                                 Exclave{"IT", "23041", "Livigno"}};

const Exclave* exclave(std::string_view country, std::string_view postalCode)
{
    const std::string compact = replacing(trimmed(postalCode), " ", "");
    const auto* found = std::ranges::find_if(exclaves, [&](const Exclave& place) {
        return place.country == country && compact.starts_with(place.postalCode);
    });
    return found == exclaves.end() ? nullptr : found;
}

VATArea area(std::string_view country, std::string_view postalCode, std::string_view vatID, Supply supply)
{
    VATArea result{.country = std::string(country), .member = {}, .place = {}};
    if (const Exclave* outside = exclave(country, postalCode)) {
        result.place = outside->name;
    } else if (country == "MC") { // Article 7: as France
        result.member = "FR";
    } else if (Countries::isInEU(country)) {
        result.member = country;
    } else if (country == "GB" && supply == Supply::goods && memberOfVATID(vatID) == northernIreland) {
        result.member = northernIreland;
        result.place = "Northern Ireland";
    }
    return result;
}

/// Countries whose English names take the article in a sentence.
constexpr std::array withArticle = {"AE", "BS", "CF", "DO", "FK", "GB", "GM", "KM", "KY", "MH", "MP",
                                    "MV", "NL", "PH", "SB", "SC", "TC", "UM", "US", "VG", "VI"};

} // namespace

std::string_view memberOfVATID(std::string_view vatID)
{
    const std::string_view prefix = vatID.substr(0, 2);
    if (prefix == "EL") {
        return "GR";
    }
    return prefix == northernIreland || Countries::isInEU(prefix) ? prefix : "";
}

std::string VATArea::plainName(const Locale& locale) const
{
    if (!place.empty()) {
        return place;
    }
    return locale.languageCode() == "en" ? locale.countryName(country) : Locale("en").countryName(country);
}

std::string VATArea::name(const Locale& locale) const
{
    const bool hasArticle = place.empty() && std::ranges::find(withArticle, country) != withArticle.end();
    return (hasArticle ? "the " : "") + plainName(locale);
}

VATArea VATArea::of(const Business& business, Supply supply)
{
    return area(business.countryCode, business.postalCode, business.vatID, supply);
}

std::optional<VATArea> VATArea::of(const Client& client, Supply supply)
{
    std::string_view country = client.countryCode;
    if (country.empty()) {
        country = memberOfVATID(client.vatID);
        country = country == northernIreland ? "GB" : country;
    }
    if (country.empty()) {
        return std::nullopt;
    }
    return area(country, client.postalCode, client.vatID, supply);
}

} // namespace Quillary
