#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QString>

#include <cstdint>
#include <vector>

namespace Quillary {

/// The invoices, quotes and credit notes of one client for a table, the newest first.
class ClientDocumentsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { number, date, status, total, open, columns };

    explicit ClientDocumentsModel(LibraryAccess& library, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// 0: of nobody.
    void setClient(std::int64_t key);
    void reload();

    [[nodiscard]] std::int64_t key(int row) const { return m_rows[static_cast<std::size_t>(row)].key; }

private:
    struct Row
    {
        std::int64_t key;
        QString texts[columns];
        QColor statusColor;
    };

    void take(const ChangeSet& changes);

    LibraryAccess& m_library;
    std::int64_t m_client = 0;
    std::vector<Row> m_rows;
};

} // namespace Quillary
