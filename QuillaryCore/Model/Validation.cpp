#include "QuillaryCore/Model/Validation.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UTF8.h"
#include "QuillaryCore/Model/Countries.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace Quillary::Validation {

namespace {

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool isUpper(char character)
{
    return character >= 'A' && character <= 'Z';
}

bool isUpperOrDigit(char character)
{
    return isUpper(character) || isDigit(character);
}

bool isLetterOrDigit(char character)
{
    return isUpperOrDigit(character) || (character >= 'a' && character <= 'z');
}

bool isVisibleASCII(char character)
{
    return character > ' ' && character < '\x7F';
}

bool isWhiteSpace(const DecodedCharacter& character)
{
    return character.scalar && u_isUWhiteSpace(static_cast<UChar32>(*character.scalar)) != 0;
}

/// Longer texts are no code of any kind; this keeps megabytes out of the checks.
constexpr std::size_t longestCode = 1000;

std::string withoutWhiteSpace(std::string_view text)
{
    if (std::ranges::all_of(text, isVisibleASCII)) {
        return std::string(text);
    }
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const DecodedCharacter character = decodeFirst(text);
        if (!isWhiteSpace(character)) {
            result.append(text.substr(0, character.length));
        }
        text.remove_prefix(character.length);
    }
    return result;
}

/// Source: SWIFT's IBAN registry, ISO 13616-1.
struct IBANLength
{
    std::string_view country;
    std::size_t length;
};

constexpr IBANLength ibanLengths[] = {
    {"AD", 24}, {"AE", 23}, {"AL", 28}, {"AT", 20}, {"AZ", 28}, {"BA", 20}, {"BE", 16}, {"BG", 22}, {"BH", 22},
    {"BI", 27}, {"BR", 29}, {"BY", 28}, {"CH", 21}, {"CR", 22}, {"CY", 28}, {"CZ", 24}, {"DE", 22}, {"DJ", 27},
    {"DK", 18}, {"DO", 28}, {"EE", 20}, {"EG", 29}, {"ES", 24}, {"FI", 18}, {"FK", 18}, {"FO", 18}, {"FR", 27},
    {"GB", 22}, {"GE", 22}, {"GI", 23}, {"GL", 18}, {"GR", 27}, {"GT", 28}, {"HN", 28}, {"HR", 21}, {"HU", 28},
    {"IE", 22}, {"IL", 23}, {"IQ", 23}, {"IS", 26}, {"IT", 27}, {"JO", 30}, {"KW", 30}, {"KZ", 20}, {"LB", 28},
    {"LC", 32}, {"LI", 21}, {"LT", 20}, {"LU", 20}, {"LV", 21}, {"LY", 25}, {"MC", 27}, {"MD", 24}, {"ME", 22},
    {"MK", 19}, {"MN", 20}, {"MR", 27}, {"MT", 31}, {"MU", 30}, {"NI", 28}, {"NL", 18}, {"NO", 15}, {"OM", 23},
    {"PK", 24}, {"PL", 28}, {"PS", 29}, {"PT", 25}, {"QA", 29}, {"RO", 24}, {"RS", 22}, {"RU", 33}, {"SA", 24},
    {"SC", 31}, {"SD", 18}, {"SE", 24}, {"SI", 19}, {"SK", 24}, {"SM", 27}, {"SO", 23}, {"ST", 25}, {"SV", 28},
    {"TL", 23}, {"TN", 24}, {"TR", 26}, {"UA", 29}, {"VA", 22}, {"VG", 24}, {"XK", 20}, {"YE", 30},
};

static_assert(std::ranges::is_sorted(ibanLengths, {}, &IBANLength::country));

std::size_t ibanLength(std::string_view country)
{
    const auto* row = std::ranges::lower_bound(ibanLengths, country, {}, &IBANLength::country);
    return row != std::end(ibanLengths) && row->country == country ? row->length : 0;
}

/// The number that letters and digits make, letters counting from 10, modulo 97.
int remainderBy97(std::string_view text, int remainder)
{
    for (const char character : text) {
        remainder = isDigit(character) ? remainder * 10 + (character - '0') : remainder * 100 + (character - 'A' + 10);
        remainder %= 97;
    }
    return remainder;
}

/// In `form`, "9" stands for a digit, "@" for a letter, "*" for either, anything else for itself. Source: the European
/// Commission's VAT information exchange system; for CH and NO their registers of enterprises.
struct VATForm
{
    std::string_view prefix;
    std::string_view form;
};

constexpr VATForm vatForms[] = {
    {"AT", "U99999999"},     {"BE", "9999999999"},    {"BG", "999999999"},
    {"BG", "9999999999"},    {"CH", "E999999999"},    {"CH", "E999999999MWST"},
    {"CH", "E999999999TVA"}, {"CH", "E999999999IVA"}, {"CH", "E999999999VAT"},
    {"CY", "99999999@"},     {"CZ", "99999999"},      {"CZ", "999999999"},
    {"CZ", "9999999999"},    {"DE", "999999999"},     {"DK", "99999999"},
    {"EE", "999999999"},     {"EL", "999999999"},     {"ES", "@9999999*"},
    {"ES", "99999999@"},     {"FI", "99999999"},      {"FR", "**999999999"},
    {"GB", "999999999"},     {"GB", "999999999999"},  {"GB", "GD999"},
    {"GB", "HA999"},         {"GR", "999999999"},     {"HR", "99999999999"},
    {"HU", "99999999"},      {"IE", "9999999@"},      {"IE", "9999999@@"},
    {"IE", "9@99999@"},      {"IE", "9+99999@"},      {"IE", "9*99999@"},
    {"IT", "99999999999"},   {"LT", "999999999"},     {"LT", "999999999999"},
    {"LU", "99999999"},      {"LV", "99999999999"},   {"MT", "99999999"},
    {"NL", "999999999B99"},  {"NO", "999999999"},     {"NO", "999999999MVA"},
    {"PL", "9999999999"},    {"PT", "999999999"},     {"RO", "99"},
    {"RO", "999"},           {"RO", "9999"},          {"RO", "99999"},
    {"RO", "999999"},        {"RO", "9999999"},       {"RO", "99999999"},
    {"RO", "999999999"},     {"RO", "9999999999"},    {"SE", "999999999999"},
    {"SI", "99999999"},      {"SK", "9999999999"},    {"XI", "999999999"},
    {"XI", "999999999999"},  {"XI", "GD999"},         {"XI", "HA999"},
};

bool matches(std::string_view text, std::string_view form)
{
    return std::ranges::equal(text, form, [](char character, char place) {
        switch (place) {
        case '9':
            return isDigit(character);
        case '@':
            return isUpper(character);
        case '*':
            return isUpperOrDigit(character);
        default:
            return character == place;
        }
    });
}

} // namespace

std::string compactIBAN(std::string_view text)
{
    std::string compact = withoutWhiteSpace(text);
    const bool hasLowerCase = std::ranges::any_of(compact, [](char byte) { return byte >= 'a' && byte <= 'z'; });
    return hasLowerCase ? upperCasedASCII(compact) : compact;
}

bool isValidIBAN(std::string_view text)
{
    if (text.size() > longestCode) {
        return false;
    }
    const std::string iban = compactIBAN(text);
    if (iban.size() < 5 || iban.size() != ibanLength(iban.substr(0, 2)) || !isDigit(iban[2]) || !isDigit(iban[3]) ||
        !std::ranges::all_of(iban, isUpperOrDigit)) {
        return false;
    }
    // "00", "01" and "99" would pass the division too, but are never handed out.
    const std::string_view checkDigits = std::string_view(iban).substr(2, 2);
    const std::string_view account = std::string_view(iban).substr(4);
    return checkDigits >= "02" && checkDigits <= "98" &&
           remainderBy97(std::string_view(iban).substr(0, 4), remainderBy97(account, 0)) == 1;
}

bool isValidBIC(std::string_view text)
{
    if (text.size() > longestCode) {
        return false;
    }
    const std::string bic = upperCasedASCII(withoutWhiteSpace(text));
    if ((bic.size() != 8 && bic.size() != 11) || !std::ranges::all_of(bic, isUpperOrDigit)) {
        return false;
    }
    const std::string_view country = std::string_view(bic).substr(4, 2);
    return Countries::isKnown(country) || country == "XK"; // Kosovo, which ISO 3166-1 leaves out
}

bool isValidUPI(std::string_view text)
{
    const std::string_view id = trimmed(text);
    const std::size_t sign = id.find('@');
    if (sign == std::string_view::npos || sign < 2 || sign > 255) {
        return false;
    }
    const std::string_view bank = id.substr(sign + 1);
    const auto isNamePart = [](char character) {
        return isLetterOrDigit(character) || character == '.' || character == '-' || character == '_';
    };
    return std::ranges::all_of(id.substr(0, sign), isNamePart) && bank.size() >= 2 && bank.size() <= 64 &&
           !isDigit(bank.front()) && std::ranges::all_of(bank, isLetterOrDigit);
}

std::string compactVATID(std::string_view text)
{
    if (std::ranges::all_of(text, isUpperOrDigit)) {
        return std::string(text);
    }
    std::string compact = upperCasedASCII(withoutWhiteSpace(text));
    std::erase_if(compact, [](char character) { return character == '.' || character == '-' || character == '/'; });
    return compact;
}

bool isValidVATID(std::string_view text)
{
    if (text.size() > longestCode) {
        return false;
    }
    const std::string id = compactVATID(text);
    if (id.size() < 3 || id.size() > 20) {
        return false;
    }
    const std::string_view prefix = std::string_view(id).substr(0, 2);
    const std::string_view number = std::string_view(id).substr(2);
    bool isKnownPrefix = false;
    for (const VATForm& form : vatForms) {
        if (form.prefix == prefix) {
            isKnownPrefix = true;
            if (matches(number, form.form)) {
                return true;
            }
        }
    }
    return !isKnownPrefix && std::ranges::all_of(id, isUpperOrDigit);
}

bool isValidEmail(std::string_view text)
{
    const std::size_t sign = text.find('@');
    if (sign == 0 || sign == std::string_view::npos || text.size() > longestCode ||
        (!std::ranges::all_of(text, isVisibleASCII) && withoutWhiteSpace(text) != text)) {
        return false;
    }
    const std::string_view domain = text.substr(sign + 1);
    const std::size_t dot = domain.rfind('.');
    return domain.find('@') == std::string_view::npos && dot != std::string_view::npos && dot > 0 &&
           graphemeCount(domain.substr(dot + 1)) >= 2;
}

bool isValidHexColor(std::string_view text)
{
    const auto isHexDigit = [](char character) {
        return isDigit(character) || (character >= 'a' && character <= 'f') || (character >= 'A' && character <= 'F');
    };
    return text.size() == 7 && text.front() == '#' && std::ranges::all_of(text.substr(1), isHexDigit);
}

} // namespace Quillary::Validation
