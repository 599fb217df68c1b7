#include "QuillaryCore/Model/TaxLabel.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"

namespace Quillary {

std::optional<TaxLabel> taxLabelFromRaw(std::int16_t raw)
{
    if (raw < 0 || raw > 4) {
        return std::nullopt;
    }
    return static_cast<TaxLabel>(raw);
}

TaxLabel taxLabel(const Business& business)
{
    return taxLabelFromRaw(business.taxLabelRaw).value_or(TaxLabel::vat);
}

std::string_view title(TaxLabel label)
{
    switch (label) {
    case TaxLabel::vat:
        return "VAT";
    case TaxLabel::gst:
        return "GST";
    case TaxLabel::salesTax:
        return "Sales Tax";
    case TaxLabel::tax:
        return "Tax";
    case TaxLabel::custom:
        return "Custom";
    }
    return {};
}

std::string taxLabelText(const Business& business)
{
    const TaxLabel label = taxLabel(business);
    if (label != TaxLabel::custom) {
        return std::string(title(label));
    }
    const std::string_view text = trimmed(business.customTaxLabel);
    return std::string(text.empty() ? title(TaxLabel::tax) : text);
}

} // namespace Quillary
