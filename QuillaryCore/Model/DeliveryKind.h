#pragma once

#include <cstdint>
#include <optional>

namespace Quillary {

struct Document;

/// What the delivery dates of a document mean, as stored in `Document::deliveryKindRaw`. The dates use `deliveryStart`,
/// the periods `deliveryStart` and `deliveryEnd`.
enum class DeliveryKind : std::int16_t {
    none = 0,
    deliveryDate = 1,
    serviceDate = 2,
    deliveryPeriod = 3,
    servicePeriod = 4,
};

/// No value: a stored number that no kind has.
[[nodiscard]] std::optional<DeliveryKind> deliveryKindFromRaw(std::int16_t raw);

/// An unreadable kind is none.
[[nodiscard]] DeliveryKind deliveryKind(const Document& document);

[[nodiscard]] bool isPeriod(DeliveryKind kind);

} // namespace Quillary
