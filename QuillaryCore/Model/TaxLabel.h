#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

struct Business;

/// The word printed for tax, as stored in `Business::taxLabelRaw`.
enum class TaxLabel : std::int16_t {
    vat = 0,
    gst = 1,
    salesTax = 2,
    tax = 3,
    custom = 4, ///< the text of `Business::customTaxLabel`
};

/// No value: a stored number that no label has.
[[nodiscard]] std::optional<TaxLabel> taxLabelFromRaw(std::int16_t raw);

/// An unreadable label is VAT.
[[nodiscard]] TaxLabel taxLabel(const Business& business);

/// "VAT", "Sales Tax": the English word.
[[nodiscard]] std::string_view title(TaxLabel label);

/// The business's own English word for tax: the title of its label, or its custom text ("Tax" while that is empty).
[[nodiscard]] std::string taxLabelText(const Business& business);

} // namespace Quillary
