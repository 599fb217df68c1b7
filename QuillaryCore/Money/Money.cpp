#include "QuillaryCore/Money/Money.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Money/DecimalInput.h"

namespace Quillary {

namespace {

void requireOneCurrency(const Money& left, const Money& right)
{
    precondition(left.currencyCode() == right.currencyCode(), "amounts of one currency are added");
}

std::optional<Money> fromDecimal(const std::optional<Decimal>& decimal, std::string_view currencyCode)
{
    const auto minorUnits = decimal ? decimal->scaled(Money::fractionDigits(currencyCode)) : std::nullopt;
    if (!minorUnits) {
        return std::nullopt;
    }
    return Money(*minorUnits, currencyCode);
}

} // namespace

Money::Money(std::int64_t minorUnits, std::string_view currencyCode)
    : m_minorUnits(minorUnits)
    , m_currencyCode(upperCasedASCII(currencyCode))
{
}

int Money::fractionDigits(std::string_view currencyCode)
{
    return Currencies::fractionDigits(currencyCode);
}

std::optional<Money> Money::fromDecimalString(std::string_view text, std::string_view currencyCode)
{
    if (text.find_first_of("\n\v\f\r") != std::string_view::npos) {
        return std::nullopt; // blanks around a number are trimmed, but it is one line
    }
    return fromDecimal(Decimal::parse(trimmed(text)), currencyCode);
}

std::optional<Money> Money::typed(std::string_view text, std::string_view currencyCode, const Locale& locale)
{
    return fromDecimal(DecimalInput::parse(text, locale), currencyCode);
}

Decimal Money::decimalValue() const
{
    return Decimal::fromInteger(m_minorUnits, fractionDigits(m_currencyCode));
}

std::string Money::plainText() const
{
    return decimalValue().text();
}

std::string Money::formatted(const Locale& locale) const
{
    return locale.formatCurrency(m_minorUnits, fractionDigits(m_currencyCode), m_currencyCode);
}

std::string Money::editingText(const Locale& locale) const
{
    const int digits = fractionDigits(m_currencyCode);
    return locale.formatDecimal(m_minorUnits, digits, digits);
}

JSON Money::json() const
{
    return JSON::object({{"minorUnits", m_minorUnits}, {"currencyCode", m_currencyCode}});
}

std::optional<Money> Money::fromJSON(const JSON& json)
{
    const JSON* minorUnits = json.find("minorUnits");
    const JSON* currencyCode = json.find("currencyCode");
    const auto amount = minorUnits == nullptr ? std::nullopt : minorUnits->integer();
    if (!amount || currencyCode == nullptr || currencyCode->string() == nullptr) {
        return std::nullopt;
    }
    return Money(*amount, *currencyCode->string());
}

Money operator+(const Money& left, const Money& right)
{
    requireOneCurrency(left, right);
    return {checkedAdd(left.m_minorUnits, right.m_minorUnits), left.m_currencyCode};
}

Money operator-(const Money& left, const Money& right)
{
    requireOneCurrency(left, right);
    return {checkedSubtract(left.m_minorUnits, right.m_minorUnits), left.m_currencyCode};
}

Money operator-(const Money& amount)
{
    return {checkedSubtract(0, amount.m_minorUnits), amount.m_currencyCode};
}

} // namespace Quillary

std::size_t std::hash<Quillary::Money>::operator()(const Quillary::Money& money) const noexcept
{
    const std::size_t code = std::hash<std::string>()(money.currencyCode());
    return code ^ (std::hash<std::int64_t>()(money.minorUnits()) * 0x9E3779B97F4A7C15U);
}
