#include "QuillaryCore/Billing/LateFees.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/LateFeeKind.h"

#include <algorithm>

namespace Quillary {

std::int64_t
lateFee(const Business& business, ReminderLevel level, std::int64_t amountDue, std::string_view currencyCode)
{
    if (level < lateFeeStartLevel(business) || amountDue < 1) {
        return 0;
    }
    switch (lateFeeKind(business)) {
    case LateFeeKind::none:
        return 0;
    case LateFeeKind::fixed:
        return upperCasedASCII(currencyCode) == upperCasedASCII(business.currencyCode)
                   ? std::max<std::int64_t>(0, business.lateFeeMinorUnits)
                   : 0;
    case LateFeeKind::percentage: {
        const std::int64_t basisPoints = std::max(0, business.lateFeeBasisPoints);
        return checkedAdd(checkedMultiply(amountDue, basisPoints), 5000) / 10000;
    }
    }
    return 0;
}

} // namespace Quillary
