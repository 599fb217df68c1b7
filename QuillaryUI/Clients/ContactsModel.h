#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QAbstractTableModel>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace Quillary {

/// The contact persons of one client for a table, in the user's order.
class ContactsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { nameColumn, roleColumn, emailColumn, phoneColumn, columns };

    explicit ContactsModel(LibraryAccess& library, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// 0: of nobody.
    void setClient(std::int64_t key);

    [[nodiscard]] std::int64_t key(int row) const { return m_rows[static_cast<std::size_t>(row)].key; }
    [[nodiscard]] std::optional<int> rowOf(std::int64_t key) const;

private:
    struct Row
    {
        std::int64_t key;
        QString texts[columns];
    };

    void reload();

    LibraryAccess& m_library;
    std::int64_t m_client = 0;
    std::vector<Row> m_rows;
};

} // namespace Quillary
