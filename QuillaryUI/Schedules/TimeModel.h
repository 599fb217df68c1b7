#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <optional>
#include <vector>

namespace Quillary {

struct TimeEntry;

/// The days with their working time, the latest first: a row for each day with its sum, and under it its entries. What
/// runs is shown by the timer and stands in no day.
class TimeModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { timeColumn, clientColumn, projectColumn, noteColumn, hoursColumn, billedColumn, columnsInAll };

    explicit TimeModel(LibraryAccess& library, QObject* parent = nullptr);

    /// Only days from this one on; no value: all.
    void setStart(std::optional<Instant> start);

    /// Only what was done for one client; no value: for all.
    void setClient(std::optional<std::int64_t> key);

    /// 0: it is a day.
    [[nodiscard]] std::int64_t key(int row) const { return m_rows[static_cast<std::size_t>(row)].key; }
    [[nodiscard]] std::optional<int> rowOf(std::int64_t key) const;

    void reload();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Row
    {
        std::int64_t key = 0;
        CalendarDate day;
        Instant start;
        Instant end;
        std::int64_t seconds = 0; ///< of a day: of all its entries
        QString client;
        QString project;
        QString note;
        QString billed;
    };

    void take(const ChangeSet& changes);
    [[nodiscard]] std::vector<const TimeEntry*> entries() const;
    void add(const Row& entry, std::size_t& day);
    [[nodiscard]] QString dayText(CalendarDate day) const;
    [[nodiscard]] QString text(const Row& row, int column) const;

    LibraryAccess& m_library;
    std::optional<Instant> m_start;
    std::optional<std::int64_t> m_client;
    std::vector<Row> m_rows;
};

} // namespace Quillary
