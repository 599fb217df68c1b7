#include "QuillaryCore/Schedules/BillingPeriod.h"

#include "QuillaryCore/Model/Document.h"

namespace Quillary {

BillingPeriod billingPeriod(const Document& recurring)
{
    for (const BillingPeriod period : allBillingPeriods) {
        if (id(period) == recurring.billingPeriodRaw) {
            return period;
        }
    }
    return BillingPeriod::none;
}

std::string_view title(BillingPeriod period)
{
    switch (period) {
    case BillingPeriod::none:
        return "No service period";
    case BillingPeriod::current:
        return "The period starting on the invoice date";
    case BillingPeriod::previous:
        return "The period before the invoice date";
    }
    return {};
}

} // namespace Quillary
