#include "QuillaryCore/Model/LateFeeKind.h"

#include "QuillaryCore/Model/Business.h"

namespace Quillary {

LateFeeKind lateFeeKindFromRaw(std::int16_t raw)
{
    switch (raw) {
    case 1:
        return LateFeeKind::fixed;
    case 2:
        return LateFeeKind::percentage;
    default:
        return LateFeeKind::none;
    }
}

LateFeeKind lateFeeKind(const Business& business)
{
    return lateFeeKindFromRaw(business.lateFeeKindRaw);
}

} // namespace Quillary
