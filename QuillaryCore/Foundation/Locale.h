#pragma once

#include "QuillaryCore/Foundation/Instant.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Quillary {

/// How a language and a region write numbers, money and dates (ICU, CLDR).
///
/// A value; copies share nothing. Formatters are made once per locale and kept inside, so reuse a locale instead of
/// making one per call. Not for use by two threads at once.
class Locale
{
public:
    /// `identifier` is a locale name such as "de_AT", "de-AT", "de_AT.UTF-8" or "en_US_POSIX". Only language, script and
    /// region count. "C", "POSIX", an empty text and a language that ICU has no data for read as "en".
    explicit Locale(std::string_view identifier);
    Locale(const Locale& other);
    Locale& operator=(const Locale& other);
    Locale(Locale&&) noexcept;
    Locale& operator=(Locale&&) noexcept;
    ~Locale();

    [[nodiscard]] const std::string& identifier() const;
    [[nodiscard]] std::string languageCode() const; ///< "de", lower case
    [[nodiscard]] std::string regionCode() const;   ///< "AT", upper case; empty when the locale names none

    [[nodiscard]] const std::string& decimalSeparator() const;
    [[nodiscard]] const std::string& groupingSeparator() const;

    /// A decimal of `unscaled` × 10^-`scale`, grouped, with at least `minimumFraction` and at most `scale` fraction
    /// digits: trailing zeros beyond the minimum are dropped. `scale` is 0 to 18.
    [[nodiscard]] std::string formatDecimal(std::int64_t unscaled, int scale, int minimumFraction) const;

    /// An amount as currency text: symbol or code where the locale puts it, exactly `fractionDigits` digits, 0 to 18.
    /// A text that is no code of three letters stands in front as it is.
    [[nodiscard]] std::string
    formatCurrency(std::int64_t minorUnits, int fractionDigits, std::string_view currencyCode) const;

    /// A day in the locale's medium date form (CLDR), in the Gregorian calendar and with the whole year: "7 Mar 2025"
    /// (en_GB), "Mar 7, 2025" (en_US), "07.03.2025" (de), "7 mars 2025" (fr).
    [[nodiscard]] std::string formatDate(CalendarDate date) const;

    /// The country's name in this language ("Deutschland" for "DE"); the code itself when it is unknown.
    [[nodiscard]] std::string countryName(std::string_view countryCode) const;

    /// The currency's name in this language; the code itself when it is unknown.
    [[nodiscard]] std::string currencyName(std::string_view currencyCode) const;

private:
    struct Formats;
    std::unique_ptr<Formats> m_formats;
};

} // namespace Quillary
