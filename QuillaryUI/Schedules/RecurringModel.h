#pragma once

#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

/// The recurring invoices in the order in which they are due.
class RecurringModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { titleColumn, clientColumn, rhythmColumn, nextColumn, stateColumn, columnsInAll };

    explicit RecurringModel(LibraryAccess& library, QObject* parent = nullptr);

    [[nodiscard]] std::int64_t key(int row) const { return m_rows[static_cast<std::size_t>(row)].key; }
    [[nodiscard]] std::optional<int> rowOf(std::int64_t key) const;

    void reload();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row
    {
        std::int64_t key;
        QString title;
        QString client;
        QString rhythm;
        QString next;
        RecurringState state;
        QString obstacle; ///< why what it owes can't be made; empty: nothing stands in its way
    };

    void take(const ChangeSet& changes);

    LibraryAccess& m_library;
    std::vector<Row> m_rows;
};

} // namespace Quillary
