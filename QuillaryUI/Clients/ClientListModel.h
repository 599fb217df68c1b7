#pragma once

#include "QuillaryCore/Documents/ClientList.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <optional>
#include <vector>

namespace Quillary {

/// All clients for a table: narrowed, sorted, and kept up to date.
class ClientListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Role {
        keyRole = Qt::UserRole, ///< the client's key
        sortRole,               ///< the value below the text
    };

    explicit ClientListModel(LibraryAccess& library, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

    void setFilter(const QString& text);

    [[nodiscard]] const ClientList& clients() const { return m_clients; }
    [[nodiscard]] ClientList::Key key(int row) const;
    [[nodiscard]] std::optional<int> rowOf(ClientList::Key key) const;

Q_SIGNALS:
    /// After every change of the rows: the library's, the filter's or the order's.
    void arranged();

private:
    void reload();
    void take(const ChangeSet& changes);
    void arrange();

    LibraryAccess& m_library;
    ClientList m_clients;
    QString m_filter;
    ClientList::Column m_column = ClientList::Column::name;
    ClientList::Order m_order = ClientList::Order::ascending;
    std::vector<ClientList::Key> m_keys; ///< of the rows shown
};

} // namespace Quillary
