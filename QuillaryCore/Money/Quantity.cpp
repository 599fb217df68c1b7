#include "QuillaryCore/Money/Quantity.h"

#include "QuillaryCore/Money/DecimalInput.h"

namespace Quillary::Quantity {

namespace {

constexpr int fractionDigits = 3;

} // namespace

std::optional<std::int64_t> parse(std::string_view text, const Locale& locale)
{
    const auto decimal = DecimalInput::parse(text, locale);
    return decimal ? decimal->scaled(fractionDigits) : std::nullopt;
}

std::string format(std::int64_t thousandths, const Locale& locale)
{
    return locale.formatDecimal(thousandths, fractionDigits, 0);
}

std::string plainText(std::int64_t thousandths)
{
    std::string text = Decimal::fromInteger(thousandths, fractionDigits).text();
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

} // namespace Quillary::Quantity
