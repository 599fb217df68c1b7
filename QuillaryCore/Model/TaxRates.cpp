#include "QuillaryCore/Model/TaxRates.h"

#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Store/Context.h"

namespace Quillary::TaxRates {

std::vector<const TaxRate*> all(Context& context)
{
    return context.fetch<TaxRate>("ORDER BY sortIndex, id");
}

const TaxRate* defaultRate(Context& context)
{
    return context.first<TaxRate>("isDefault ORDER BY sortIndex, id");
}

void makeDefault(Context& context, const TaxRate& rate)
{
    const Ref<TaxRate> chosen = rate.ref;
    for (const TaxRate* other : all(context)) {
        context.edit(*other).isDefault = other->ref == chosen;
    }
}

TaxRate& append(Context& context, std::string_view name, std::int32_t basisPoints)
{
    const TaxRate* last = context.first<TaxRate>("ORDER BY sortIndex DESC LIMIT 1");
    const std::int32_t sortIndex = last == nullptr ? 0 : last->sortIndex + 1;
    TaxRate& rate = context.insert<TaxRate>();
    rate.name = name;
    rate.basisPoints = basisPoints;
    rate.sortIndex = sortIndex;
    return rate;
}

void remove(Context& context, const TaxRate& rate)
{
    context.erase(rate);
}

} // namespace Quillary::TaxRates
