#include "QuillaryUI/Documents/TypedNumber.h"

#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryCore/Money/Quantity.h"
#include "QuillaryCore/Money/TypedSum.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Look/Formats.h"

namespace Quillary::TypedNumber {

namespace {

constexpr int quantityDigits = 3;
constexpr int basisPointDigits = 2;

/// An amount without its currency.
std::optional<std::string> plainAmount(const std::string& typed, std::string_view currencyCode, const Locale& locale)
{
    const auto minorUnits = TypedSum::scaled(typed, locale, Money::fractionDigits(currencyCode));
    return minorUnits ? std::optional(Money(*minorUnits, currencyCode).plainText()) : std::nullopt;
}

} // namespace

std::optional<std::string> cell(const QString& typed, int column, std::string_view currencyCode, const Locale& locale)
{
    const std::string text = utf8(typed.trimmed());
    switch (column) {
    case LinesModel::quantity: {
        const auto thousandths = TypedSum::scaled(text, locale, quantityDigits);
        return thousandths ? std::optional(Quantity::plainText(*thousandths)) : std::nullopt;
    }
    case LinesModel::price:
        return plainAmount(text, currencyCode, locale);
    case LinesModel::tax: {
        const auto rate = Percent::basisPoints(text);
        return rate ? std::optional(Decimal::fromInteger(*rate, basisPointDigits).text()) : std::nullopt;
    }
    default:
        return utf8(typed);
    }
}

std::optional<std::int64_t> amount(const QString& typed, std::string_view currencyCode, const Locale& locale)
{
    return TypedSum::scaled(utf8(typed), locale, Money::fractionDigits(currencyCode));
}

} // namespace Quillary::TypedNumber
