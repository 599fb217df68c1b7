#pragma once

#include "QuillaryCore/Foundation/Instant.h"

namespace Quillary {

/// A stretch of time that ends before its end: start ≤ instant < end.
struct DateRange
{
    Instant start;
    Instant end;

    [[nodiscard]] constexpr bool contains(Instant instant) const { return start <= instant && instant < end; }

    friend bool operator==(const DateRange&, const DateRange&) = default;
};

} // namespace Quillary
