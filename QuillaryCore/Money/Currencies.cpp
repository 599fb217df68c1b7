#include "QuillaryCore/Money/Currencies.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"

#include <unicode/coll.h>
#include <unicode/ucurr.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>

namespace Quillary::Currencies {

namespace {

constexpr std::size_t letters = 26;
constexpr int usualFractionDigits = 2;

std::set<std::string, std::less<>> codes(std::uint32_t kinds)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UEnumeration, decltype(&uenum_close)> list(ucurr_openISOCurrencies(kinds, &status),
                                                                     &uenum_close);
    std::set<std::string, std::less<>> result;
    std::int32_t length = 0;
    while (const char* code = uenum_next(list.get(), &length, &status)) {
        result.emplace(code, static_cast<std::size_t>(length));
    }
    precondition(U_SUCCESS(status) != 0, "ICU's data is installed");
    return result;
}

const std::set<std::string, std::less<>>& commonCodes()
{
    static const auto common = codes(static_cast<std::uint32_t>(UCURR_COMMON) | UCURR_NON_DEPRECATED);
    return common;
}

/// The place of a code of three letters among all of them; no value for any other text.
std::optional<std::size_t> codeIndex(std::string_view code)
{
    if (code.size() != 3) {
        return std::nullopt;
    }
    std::size_t index = 0;
    for (const char byte : code) {
        const char letter = byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
        if (letter < 'A' || letter > 'Z') {
            return std::nullopt;
        }
        index = index * letters + static_cast<std::size_t>(letter - 'A');
    }
    return index;
}

using DigitsTable = std::array<std::int8_t, letters * letters * letters>;

/// One byte for every code of three letters: a lookup costs less than asking a map, and nothing is ever added later.
DigitsTable digitsTable()
{
    DigitsTable table{};
    table.fill(usualFractionDigits);
    for (const std::string& code : codes(UCURR_ALL)) {
        const auto index = codeIndex(code);
        icu::UnicodeString name = icu::UnicodeString::fromUTF8(code);
        UErrorCode status = U_ZERO_ERROR;
        const std::int32_t digits = ucurr_getDefaultFractionDigits(name.getTerminatedBuffer(), &status);
        if (index && U_SUCCESS(status) != 0) {
            table[*index] = static_cast<std::int8_t>(digits);
        }
    }
    return table;
}

} // namespace

bool isKnown(std::string_view code)
{
    return commonCodes().contains(upperCasedASCII(code));
}

int fractionDigits(std::string_view code)
{
    static const DigitsTable table = digitsTable();
    const auto index = codeIndex(code);
    return index ? table[*index] : usualFractionDigits;
}

std::vector<Currency> all(const Locale& locale)
{
    std::vector<Currency> result;
    for (const std::string& code : commonCodes()) {
        result.push_back({code, locale.currencyName(code)});
    }
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icu::Locale(locale.identifier().c_str()), status));
    precondition(U_SUCCESS(status) != 0, "ICU's data is installed");
    std::ranges::sort(result, [&](const Currency& left, const Currency& right) {
        UErrorCode ignored = U_ZERO_ERROR;
        const int order = collator->compareUTF8(left.name, right.name, ignored);
        return order != 0 ? order < 0 : left.code < right.code;
    });
    return result;
}

} // namespace Quillary::Currencies
