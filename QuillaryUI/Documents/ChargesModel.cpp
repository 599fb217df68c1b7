#include "QuillaryUI/Documents/ChargesModel.h"

#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Document.h"

#include <utility>

namespace Quillary {

ChargesModel::ChargesModel(DraftDesk& desk, int columns, Names names, QObject* parent)
    : QAbstractTableModel(parent)
    , m_desk(desk)
    , m_columns(columns)
    , m_names(std::move(names))
{
}

void ChargesModel::reload()
{
    if (!m_desk.library().isOpen()) {
        return; // what is shown comes back with it
    }
    std::vector<Charge> charges;
    m_desk.look([&](const Document& draft) {
        m_currencyCode = draft.currencyCode;
        charges = read(draft);
    });
    const int before = chargeCount();
    const int after = int(charges.size());
    if (after > before) {
        beginInsertRows({}, before + 1, after);
        m_charges = std::move(charges);
        endInsertRows();
    } else if (after < before) {
        beginRemoveRows({}, after + 1, before);
        m_charges = std::move(charges);
        endRemoveRows();
    } else {
        m_charges = std::move(charges);
    }
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, m_columns - 1));
}

int ChargesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : chargeCount() + 1;
}

int ChargesModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_columns;
}

QVariant ChargesModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (index.column() == description ? Qt::AlignLeft : Qt::AlignRight));
    }
    if (role != Qt::DisplayRole && role != Qt::EditRole) {
        return {};
    }
    if (index.row() == chargeCount()) {
        return role == Qt::DisplayRole && index.column() == description ? QVariant(m_names.invitation) : QVariant();
    }
    const Charge& one = m_charges[std::size_t(index.row())];
    return index.column() == description ? one.title
           : index.column() == tax       ? one.rate
           : role == Qt::EditRole        ? one.typed
                                         : one.shown;
}

Qt::ItemFlags ChargesModel::flags(const QModelIndex& /*index*/) const
{
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable;
}

bool ChargesModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid()) {
        return false;
    }
    const QString typed = value.toString();
    const bool isNew = index.row() == chargeCount();
    if ((isNew && typed.trimmed().isEmpty()) || (!isNew && typed == data(index, Qt::EditRole).toString())) {
        return false;
    }
    std::optional<JSON> one = argument(index.column(), typed);
    if (!one) {
        Q_EMIT refused(hint(typed));
        return false;
    }
    if (isNew) {
        return apply(m_names.addStep, m_names.add, JSON::array({*std::move(one)}));
    }
    one->set(m_names.number, index.row() + 1);
    return apply(m_names.changeStep, m_names.change, JSON::array({*std::move(one)}));
}

void ChargesModel::removeCharge(int row)
{
    if (row >= 0 && row < chargeCount()) {
        apply(m_names.removeStep, m_names.remove, JSON::array({row + 1}));
    }
}

int ChargesModel::shiftCharge(int row, int by)
{
    const int place = row + by;
    if (row < 0 || row >= chargeCount() || place < 0 || place >= chargeCount()) {
        return row;
    }
    JSON one = JSON::object({{m_names.number, row + 1}, {"place", place + 1}});
    return apply(m_names.changeStep, m_names.change, JSON::array({std::move(one)})) ? place : row;
}

bool ChargesModel::apply(const QString& step, const char* what, JSON value)
{
    const std::optional<QString> refusal = m_desk.change(step, what, std::move(value));
    Q_EMIT refused(refusal.value_or(QString()));
    reload();
    return !refusal;
}

} // namespace Quillary
