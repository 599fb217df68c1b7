#include "QuillaryUI/Clients/ClientListModel.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Quillary {

namespace {

using ListColumn = ClientList::Column;

constexpr std::array columns = {ListColumn::name, ListColumn::number, ListColumn::city, ListColumn::open};

} // namespace

ClientListModel::ClientListModel(LibraryAccess& library, QObject* parent)
    : QAbstractTableModel(parent)
    , m_library(library)
{
    connect(&library, &LibraryAccess::opened, this, &ClientListModel::reload);
    connect(&library, &LibraryAccess::changed, this, &ClientListModel::take);
    reload();
}

int ClientListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_keys.size());
}

int ClientListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(columns.size());
}

QVariant ClientListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const ListColumn column = columns[static_cast<std::size_t>(index.column())];
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (column == ListColumn::open ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role == keyRole) {
        return qlonglong(key(index.row()));
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != sortRole) {
        return {};
    }
    const std::optional<std::uint32_t> place = m_clients.place(key(index.row()));
    if (!place) {
        return {};
    }
    const ClientList::Row& row = m_clients.row(*place);
    switch (column) {
    case ListColumn::name:
        return row.name.empty() ? tr("No name") : text(row.name);
    case ListColumn::number:
        return text(row.number);
    case ListColumn::city:
        return text(row.city);
    case ListColumn::open:
        return role == sortRole && row.open.size() == 1 ? QVariant(qlonglong(row.open.begin()->second))
                                                        : QVariant(m_library.formats().sums(row.open));
    }
    return {};
}

QVariant ClientListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    const ListColumn column = columns[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (column == ListColumn::open ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (column) {
    case ListColumn::name:
        return tr("Name");
    case ListColumn::number:
        return tr("Number");
    case ListColumn::city:
        return tr("City");
    case ListColumn::open:
        return tr("Open");
    }
    return {};
}

void ClientListModel::sort(int column, Qt::SortOrder order)
{
    if (column >= 0 && column < columnCount()) {
        m_column = columns[static_cast<std::size_t>(column)];
        m_order = order == Qt::AscendingOrder ? ClientList::Order::ascending : ClientList::Order::descending;
        arrange();
    }
}

void ClientListModel::setFilter(const QString& text)
{
    if (text != m_filter) {
        m_filter = text;
        arrange();
    }
}

ClientList::Key ClientListModel::key(int row) const
{
    return m_keys[static_cast<std::size_t>(row)];
}

std::optional<int> ClientListModel::rowOf(ClientList::Key key) const
{
    const auto found = std::ranges::find(m_keys, key);
    return found == m_keys.end() ? std::nullopt : std::optional(int(found - m_keys.begin()));
}

void ClientListModel::reload()
{
    if (m_library.isOpen()) {
        m_clients.load(m_library.context());
        arrange();
    }
}

void ClientListModel::take(const ChangeSet& changes)
{
    if (m_library.isOpen() && m_clients.update(m_library.context(), changes)) {
        arrange();
    }
}

/// Rows that stay keep what is chosen of them. When their number changes everything is told anew, and whoever shows the
/// list finds its row by the key.
void ClientListModel::arrange()
{
    std::vector<ClientList::Key> keys;
    for (const std::uint32_t place : m_clients.arranged(utf8(m_filter), m_column, m_order)) {
        keys.push_back(m_clients.row(place).key);
    }
    if (keys.size() != m_keys.size()) {
        beginResetModel();
        m_keys = std::move(keys);
        endResetModel();
        Q_EMIT arranged();
        return;
    }
    Q_EMIT layoutAboutToBeChanged();
    const std::vector<ClientList::Key> earlier = std::exchange(m_keys, std::move(keys));
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& index : before) {
        const std::optional<int> row = rowOf(earlier[static_cast<std::size_t>(index.row())]);
        after.push_back(row ? this->index(*row, index.column()) : QModelIndex());
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
    Q_EMIT arranged();
}

} // namespace Quillary
