#include "QuillaryCore/Tabular/ImportText.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UTF8.h"
#include "QuillaryCore/Model/Countries.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Tabular/ImportNames.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace Quillary::ImportText {

namespace {

/// Longer texts name no country, currency, language or kind.
constexpr std::size_t longestName = 200;

bool isASCIILetter(char character)
{
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool isLetterOrNumber(char32_t scalar)
{
    return (U_GET_GC_MASK(static_cast<UChar32>(scalar)) & (U_GC_L_MASK | U_GC_N_MASK)) != 0;
}

/// The parts of "Germany (DE)", "AT - Österreich", "Deutsch/German"; none where there is only one.
std::vector<std::string_view> parts(std::string_view text)
{
    constexpr std::string_view separators = "()[]/,;:|-_";
    std::vector<std::string_view> result;
    while (!text.empty()) {
        const std::size_t size = std::min(text.find_first_of(separators), text.size());
        if (const std::string_view part = trimmed(text.substr(0, size)); !part.empty()) {
            result.push_back(part);
        }
        text.remove_prefix(std::min(size + 1, text.size()));
    }
    if (result.size() == 1) {
        result.clear();
    }
    return result;
}

/// What `read` makes of a text, or of the first of its parts that it understands.
template <class Reader>
auto readWholeOrPart(std::string_view text, const Reader& read) -> decltype(read(text))
{
    text = trimmed(text);
    if (text.empty() || text.size() > longestName) {
        return std::nullopt;
    }
    auto result = read(text);
    for (const std::string_view part : result ? std::vector<std::string_view>() : parts(text)) {
        if (result = read(part); result) {
            break;
        }
    }
    return result;
}

std::optional<std::string> found(const CodesByName& codes, const std::string& name)
{
    const auto entry = codes.find(name);
    return entry == codes.end() ? std::nullopt : std::optional(entry->second);
}

/// Codes in use beside those of ISO 3166: "EL" and "XI" begin VAT IDs of Greece and Northern Ireland.
constexpr std::array<std::pair<std::string_view, std::string_view>, 3> otherCodes = {
    {{"UK", "GB"}, {"EL", "GR"}, {"XI", "GB"}}};

std::optional<std::string> readCountry(std::string_view text)
{
    if (text.size() == 2 && std::ranges::all_of(text, isASCIILetter)) {
        std::string code = upperCasedASCII(text);
        if (Countries::isKnown(code)) {
            return code;
        }
        for (const auto& [other, country] : otherCodes) {
            if (code == other) {
                return std::string(country);
            }
        }
    }
    const std::string name = normalized(text);
    if (name.empty()) {
        return std::nullopt;
    }
    auto country = found(ImportNames::countries(), name);
    return country ? country : found(ImportNames::countriesInOwnLanguages(), name);
}

std::optional<std::string> readCurrency(std::string_view text)
{
    if (text.size() == 3 && Currencies::isKnown(text)) {
        return upperCasedASCII(text);
    }
    auto currency = found(ImportNames::currencySigns(), std::string(text));
    return currency ? currency : found(ImportNames::currencies(), normalized(text));
}

std::optional<DocumentLanguage> readLanguage(std::string_view text)
{
    const auto& languages = ImportNames::languages();
    const auto entry = languages.find(normalized(text));
    return entry == languages.end() ? std::nullopt : std::optional(entry->second);
}

constexpr std::string_view organizationWords[] = {
    "b2b",           "business",        "company",           "corporate",
    "firm",          "institution",     "legalentity",       "legalperson",
    "organization",  "organisation",    "behorde",           "firma",
    "firmenkunde",   "geschaftlich",    "geschaftskunde",    "geschaeftskunde",
    "gewerbe",       "gewerblich",      "juristischeperson", "unternehmen",
    "verein",        "association",     "entreprise",        "personnemorale",
    "professionnel", "societe",         "asociacion",        "empresa",
    "organizacion",  "personajuridica", "sociedad",          "bedrijf",
    "organisatie",   "rechtspersoon",   "zakelijk",          "azienda",
    "ditta",         "impresa",         "organizzazione",    "personagiuridica",
    "societa",
};

constexpr std::string_view personWords[] = {
    "b2c",           "consumer",          "individual",   "naturalperson",    "person",        "private",
    "privateperson", "privateindividual", "einzelperson", "naturlicheperson", "privat",        "privatkunde",
    "privatperson",  "verbraucher",       "individu",     "particulier",      "personne",      "personnephysique",
    "prive",         "individuo",         "particular",   "persona",          "personafisica", "natuurlijkpersoon",
    "persoon",       "privepersoon",      "privato",
};

} // namespace

std::string normalized(std::string_view text)
{
    const std::string plain = folded(text); // makes "ss" of "ß"
    std::string_view rest = plain;
    std::string result;
    result.reserve(plain.size());
    while (!rest.empty()) {
        const DecodedCharacter character = decodeFirst(rest);
        if (character.scalar && isLetterOrNumber(*character.scalar)) {
            result += rest.substr(0, character.length);
        }
        rest.remove_prefix(character.length);
    }
    return result;
}

std::optional<std::string> countryCode(std::string_view text)
{
    return readWholeOrPart(text, readCountry);
}

std::optional<std::string> currencyCode(std::string_view text)
{
    return readWholeOrPart(text, readCurrency);
}

std::optional<DocumentLanguage> language(std::string_view text)
{
    return readWholeOrPart(text, readLanguage);
}

std::optional<ClientKind> kind(std::string_view text)
{
    const std::string word = text.size() > longestName ? std::string() : normalized(text);
    if (std::ranges::find(organizationWords, word) != std::end(organizationWords)) {
        return ClientKind::organization;
    }
    if (std::ranges::find(personWords, word) != std::end(personWords)) {
        return ClientKind::person;
    }
    return std::nullopt;
}

} // namespace Quillary::ImportText
