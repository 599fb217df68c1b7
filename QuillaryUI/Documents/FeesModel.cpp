#include "QuillaryUI/Documents/FeesModel.h"

#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Documents/TypedNumber.h"

#include <utility>

namespace Quillary {

FeesModel::FeesModel(DraftDesk& desk, QObject* parent)
    : ChargesModel(desk,
                   tax + 1,
                   {.number = "fee",
                    .add = "add_fees",
                    .change = "change_fees",
                    .remove = "remove_fees",
                    .invitation = tr("Add a fee, such as shipping…"),
                    .addStep = tr("Add Fee"),
                    .changeStep = tr("Change Fee"),
                    .removeStep = tr("Remove Fee")},
                   parent)
{
}

std::vector<ChargesModel::Charge> FeesModel::read(const Document& draft) const
{
    const Formats& formats = library().formats();
    const std::vector<const Fee*> records = sortedFees(library().context(), draft);
    std::vector<Charge> fees;
    fees.reserve(records.size());
    for (const Fee* fee : records) {
        fees.push_back({.title = text(fee->title),
                        .shown = formats.money(fee->amountMinorUnits, draft.currencyCode),
                        .typed = formats.amount(fee->amountMinorUnits, draft.currencyCode),
                        .rate = formats.percent(fee->vatBasisPoints)});
    }
    return fees;
}

std::optional<JSON> FeesModel::argument(int column, const QString& typed) const
{
    constexpr std::pair<const char*, int> cells[] = {
        {"title", LinesModel::description}, {"amount", LinesModel::price}, {"tax_rate", LinesModel::tax}};
    const auto& [name, cell] = cells[column];
    const auto plain = TypedNumber::cell(typed, cell, currencyCode(), library().formats().locale());
    return plain ? std::optional(JSON::object({{name, *plain}})) : std::nullopt;
}

QString FeesModel::hint(const QString& typed) const
{
    return tr("“%1” is no number. Write it as 12.50.").arg(typed);
}

} // namespace Quillary
