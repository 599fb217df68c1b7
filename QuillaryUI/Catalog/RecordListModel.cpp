#include "QuillaryUI/Catalog/RecordListModel.h"

#include "QuillaryCore/Foundation/Text.h"

#include <algorithm>

namespace Quillary {

namespace {

/// Figures stand at the right.
bool isFigure(const FieldForm::Field& field)
{
    return field.name == QLatin1String("price") || field.name == QLatin1String("rate");
}

} // namespace

RecordListModel::RecordListModel(const RecordDesk& desk, const RecordTexts& texts, QObject* parent)
    : QAbstractTableModel(parent)
    , m_desk(desk)
    , m_texts(texts)
{
}

int RecordListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_places.size());
}

int RecordListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_texts.shown.size());
}

QVariant RecordListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const int place = m_texts.shown[index.column()];
    const FieldForm::Field& field = m_texts.fields[place];
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (isFigure(field) ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    const QString& text = row(index.row()).shown[place];
    if (field.kind == FieldForm::Kind::flag) {
        return text.isEmpty() ? QString() : tr("Yes");
    }
    const auto choice = std::ranges::find(field.choices, text, &FieldForm::Choice::value);
    return choice == field.choices.end() ? text : choice->label;
}

QVariant RecordListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    const FieldForm::Field& field = m_texts.fields[m_texts.shown[section]];
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (isFigure(field) ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    return field.kind == FieldForm::Kind::flag ? tr("Usual") : field.label;
}

void RecordListModel::reload()
{
    beginResetModel();
    m_rows = m_desk.rows();
    arrange();
    endResetModel();
}

void RecordListModel::setFilter(const QString& text)
{
    beginResetModel();
    m_filter = text;
    arrange();
    endResetModel();
}

void RecordListModel::arrange()
{
    const std::string wanted = folded(utf8(m_filter.trimmed()));
    m_places.clear();
    for (std::size_t place = 0; place < m_rows.size(); ++place) {
        if (folded(utf8(m_rows[place].texts.join(QChar(u'\n')))).find(wanted) != std::string::npos) {
            m_places.push_back(place);
        }
    }
}

std::optional<int> RecordListModel::rowOf(std::int64_t key) const
{
    for (int place = 0; place < rowCount(); ++place) {
        if (row(place).key == key) {
            return place;
        }
    }
    return std::nullopt;
}

} // namespace Quillary
