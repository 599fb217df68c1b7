#include "QuillaryCore/Money/SameFigure.h"

#include "QuillaryCore/Money/Decimal.h"
#include "QuillaryCore/Money/Money.h"

namespace Quillary {

std::optional<std::int64_t> sameFigure(std::int64_t minorUnits, std::string_view from, std::string_view to)
{
    const Decimal figure = Money(minorUnits, from).decimalValue();
    const int digits = Money::fractionDigits(to);
    const std::optional<std::int64_t> scaled = figure.scaled(digits);
    if (!scaled || Decimal::fromInteger(*scaled, digits) != figure) {
        return std::nullopt;
    }
    return scaled;
}

} // namespace Quillary
