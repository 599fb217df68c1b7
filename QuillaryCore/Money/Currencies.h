#pragma once

#include "QuillaryCore/Foundation/Locale.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// One row of the currency picker; its identity is the code.
struct Currency
{
    std::string code; ///< ISO 4217
    std::string name; ///< in the language of the locale it was listed for

    [[nodiscard]] const std::string& id() const { return code; }
    friend bool operator==(const Currency&, const Currency&) = default;
};

/// The currencies that can be picked: ICU's common (current) ISO 4217 codes.
namespace Currencies {

/// Offered first, in this order.
inline constexpr std::array<std::string_view, 8> popularCodes = {
    "USD", "EUR", "GBP", "INR", "CAD", "AUD", "CHF", "JPY"};

[[nodiscard]] bool isKnown(std::string_view code);

/// Minor digits of a currency as the currency format of "en_US_POSIX" has them (CLDR, ISO 4217); 2 for an unknown code.
[[nodiscard]] int fractionDigits(std::string_view code);

/// Every common currency, named by the locale and sorted by name in its collation order.
[[nodiscard]] std::vector<Currency> all(const Locale& locale);

} // namespace Currencies

} // namespace Quillary
