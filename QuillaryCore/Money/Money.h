#pragma once

#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Money/Decimal.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// An exact amount in one currency.
///
/// Unit: `minorUnits` counts the currency's smallest unit: cents for EUR, whole yen for JPY. May be negative.
/// Invariant: `currencyCode` is upper-case (ISO 4217).
/// Mixing currencies, or a sum outside 64 bits, stops the program: group by currency before adding.
class Money
{
public:
    Money(std::int64_t minorUnits, std::string_view currencyCode);
    [[nodiscard]] static Money zero(std::string_view currencyCode) { return {0, currencyCode}; }

    /// Minor digits of a currency as the currency format of "en_US_POSIX" gives them; 2 for an unknown code.
    [[nodiscard]] static int fractionDigits(std::string_view currencyCode);

    /// Reads a machine-written decimal such as "-12.345", rounded half away from zero to the minor digits. Blanks and
    /// tabs at the ends are trimmed; grouping, "+", exponents and a point without digits on both sides are refused.
    /// No value: any other text, or an amount outside 64 bits.
    [[nodiscard]] static std::optional<Money> fromDecimalString(std::string_view text, std::string_view currencyCode);

    /// Reads what a person typed (`DecimalInput::parse`). No value: no number, or an amount outside 64 bits.
    [[nodiscard]] static std::optional<Money>
    typed(std::string_view text, std::string_view currencyCode, const Locale& locale);

    [[nodiscard]] std::int64_t minorUnits() const { return m_minorUnits; }
    [[nodiscard]] const std::string& currencyCode() const { return m_currencyCode; }

    /// `minorUnits` × 10^-fractionDigits, exactly.
    [[nodiscard]] Decimal decimalValue() const;

    /// A plain machine number with the currency's minor digits and a point: "-12.34"; `fromDecimalString` reads it.
    [[nodiscard]] std::string plainText() const;

    /// Currency text as the locale writes it, with exactly the currency's minor digits.
    [[nodiscard]] std::string formatted(const Locale& locale) const;

    /// The number alone, for an edit field: the locale's separators, exactly the currency's minor digits.
    [[nodiscard]] std::string editingText(const Locale& locale) const;

    /// {"minorUnits": 1234, "currencyCode": "EUR"}
    [[nodiscard]] JSON json() const;

    /// Reads what `json` writes. No value: a key is missing or of another type, or an amount outside 64 bits.
    [[nodiscard]] static std::optional<Money> fromJSON(const JSON& json);

    friend Money operator+(const Money& left, const Money& right);
    friend Money operator-(const Money& left, const Money& right);
    friend Money operator-(const Money& amount);
    friend bool operator==(const Money&, const Money&) = default;

private:
    std::int64_t m_minorUnits;
    std::string m_currencyCode;
};

} // namespace Quillary

template <>
struct std::hash<Quillary::Money>
{
    std::size_t operator()(const Quillary::Money& money) const noexcept;
};
