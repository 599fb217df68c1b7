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
    : QAbstractTableModel(parent)
    , m_desk(desk)
{
}

void FeesModel::reload()
{
    if (!m_desk.library().isOpen()) {
        return; // what is shown comes back with it
    }
    std::vector<Entry> fees;
    m_desk.look([&](const Document& draft) {
        m_currencyCode = draft.currencyCode;
        for (const Fee* fee : sortedFees(m_desk.library().context(), draft)) {
            fees.push_back({Quillary::text(fee->title), fee->amountMinorUnits, fee->vatBasisPoints});
        }
    });
    const int before = feeCount();
    const int after = int(fees.size());
    if (after > before) {
        beginInsertRows({}, before + 1, after);
        m_fees = std::move(fees);
        endInsertRows();
    } else if (after < before) {
        beginRemoveRows({}, after + 1, before);
        m_fees = std::move(fees);
        endRemoveRows();
    } else {
        m_fees = std::move(fees);
    }
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columns - 1));
}

int FeesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : feeCount() + 1;
}

int FeesModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant FeesModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (index.column() == description ? Qt::AlignLeft : Qt::AlignRight));
    }
    if (index.row() == feeCount()) {
        return role == Qt::DisplayRole && index.column() == description ? QVariant(tr("Add a fee, such as shipping…"))
                                                                        : QVariant();
    }
    return role == Qt::DisplayRole || role == Qt::EditRole
               ? QVariant(text(m_fees[std::size_t(index.row())], index.column(), role))
               : QVariant();
}

QString FeesModel::text(const Entry& fee, int column, int role) const
{
    const Formats& formats = m_desk.library().formats();
    if (column == description) {
        return fee.title;
    }
    if (column == tax) {
        return formats.percent(fee.taxBasisPoints);
    }
    return role == Qt::EditRole ? formats.amount(fee.amountMinorUnits, m_currencyCode)
                                : formats.money(fee.amountMinorUnits, m_currencyCode);
}

Qt::ItemFlags FeesModel::flags(const QModelIndex& /*index*/) const
{
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable;
}

bool FeesModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid()) {
        return false;
    }
    const QString typed = value.toString();
    const bool isNew = index.row() == feeCount();
    if ((isNew && typed.trimmed().isEmpty()) || (!isNew && typed == data(index, Qt::EditRole).toString())) {
        return false;
    }
    constexpr std::pair<const char*, int> cells[] = {
        {"title", LinesModel::description}, {"amount", LinesModel::price}, {"tax_rate", LinesModel::tax}};
    const auto& [name, column] = cells[index.column()];
    const auto plain = TypedNumber::cell(typed, column, m_currencyCode, m_desk.library().formats().locale());
    if (!plain) {
        Q_EMIT refused(tr("“%1” is no number. Write it as 12.50.").arg(typed));
        return false;
    }
    JSON fee = JSON::object({{name, *plain}});
    if (isNew) {
        return apply(tr("Add Fee"), JSON::object({{"add_fees", JSON::array({std::move(fee)})}}));
    }
    fee.set("fee", index.row() + 1);
    return apply(tr("Change Fee"), JSON::object({{"change_fees", JSON::array({std::move(fee)})}}));
}

void FeesModel::removeFee(int row)
{
    if (row >= 0 && row < feeCount()) {
        apply(tr("Remove Fee"), JSON::object({{"remove_fees", JSON::array({row + 1})}}));
    }
}

bool FeesModel::apply(const QString& name, const JSON& arguments)
{
    const std::optional<QString> refusal = m_desk.change(name, arguments);
    Q_EMIT refused(refusal.value_or(QString()));
    reload();
    return !refusal;
}

} // namespace Quillary
