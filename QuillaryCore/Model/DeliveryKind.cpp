#include "QuillaryCore/Model/DeliveryKind.h"

#include "QuillaryCore/Model/Document.h"

namespace Quillary {

std::optional<DeliveryKind> deliveryKindFromRaw(std::int16_t raw)
{
    if (raw < 0 || raw > 4) {
        return std::nullopt;
    }
    return static_cast<DeliveryKind>(raw);
}

DeliveryKind deliveryKind(const Document& document)
{
    return deliveryKindFromRaw(document.deliveryKindRaw).value_or(DeliveryKind::none);
}

bool isPeriod(DeliveryKind kind)
{
    return kind == DeliveryKind::deliveryPeriod || kind == DeliveryKind::servicePeriod;
}

} // namespace Quillary
