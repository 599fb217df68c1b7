#pragma once

#include "QuillaryCore/Model/ReminderLevel.h"

#include <cstdint>
#include <string_view>

namespace Quillary {

struct Business;

/// The fee to charge with a reminder of this level on a document with that amount due: none below the business's first
/// level with a fee, none when nothing is due. A percentage is rounded half up; one outside 64 bits stops the program.
/// A fixed fee is held in the business currency and charged in no other.
/// Unit: minor units of `currencyCode`, the document's currency.
[[nodiscard]] std::int64_t
lateFee(const Business& business, ReminderLevel level, std::int64_t amountDue, std::string_view currencyCode);

} // namespace Quillary
