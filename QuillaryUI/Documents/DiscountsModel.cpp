#include "QuillaryUI/Documents/DiscountsModel.h"

#include "QuillaryCore/Billing/Totals.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryUI/Documents/TypedNumber.h"

namespace Quillary {

DiscountsModel::DiscountsModel(DraftDesk& desk, QObject* parent)
    : ChargesModel(desk,
                   charge + 1,
                   {.number = "discount",
                    .add = "add_discounts",
                    .change = "change_discounts",
                    .remove = "remove_discounts",
                    .invitation = tr("Add a discount…"),
                    .addStep = tr("Add Discount"),
                    .changeStep = tr("Change Discount"),
                    .removeStep = tr("Remove Discount")},
                   parent)
{
}

std::vector<ChargesModel::Charge> DiscountsModel::read(const Document& draft) const
{
    const Formats& formats = library().formats();
    const std::vector<const Discount*> records = sortedDiscounts(library().context(), draft);
    std::vector<Charge> discounts;
    discounts.reserve(records.size());
    for (const Discount* discount : records) {
        const bool isRate = Totals::discountKindFromRaw(discount->kindRaw) == Totals::DiscountKind::percentage;
        const QString rate = formats.percent(discount->basisPoints);
        discounts.push_back({.title = text(discount->title),
                             .shown = isRate ? rate : formats.money(discount->amountMinorUnits, draft.currencyCode),
                             .typed = isRate ? rate : formats.amount(discount->amountMinorUnits, draft.currencyCode),
                             .rate = {}});
    }
    return discounts;
}

/// "10%" is a percentage, "50" an amount.
std::optional<JSON> DiscountsModel::argument(int column, const QString& typed) const
{
    if (column == description) {
        return JSON::object({{"title", utf8(typed)}});
    }
    const QString trimmed = typed.trimmed();
    if (trimmed.endsWith(QChar(u'%'))) {
        const auto rate = Percent::basisPoints(utf8(trimmed));
        return rate ? std::optional(JSON::object({{"discount_percent", Decimal::fromInteger(*rate, 2).text()}}))
                    : std::nullopt;
    }
    const auto amount = TypedNumber::amount(trimmed, currencyCode(), library().formats().locale());
    return amount ? std::optional(JSON::object({{"discount_amount", Money(*amount, currencyCode()).plainText()}}))
                  : std::nullopt;
}

QString DiscountsModel::hint(const QString& /*typed*/) const
{
    return tr("Write a discount as a percentage from 0% to 100%, or as an amount such as 50.00.");
}

} // namespace Quillary
