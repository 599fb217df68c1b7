#pragma once

#include "QuillaryUI/Documents/ReminderWriting.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QAbstractTableModel>
#include <QString>

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace Quillary {

/// The next reminder of each of several invoices as the settings make it: its level, fee and the day to pay by, or why
/// there can't be one. Read once.
class RemindersModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { documentColumn, clientColumn, openColumn, levelColumn, feeColumn, payByColumn, columnTotal };

    RemindersModel(const LibraryAccess& library, std::span<const std::int64_t> documents, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Those that can be sent.
    [[nodiscard]] std::vector<PlannedReminder> sendable() const;
    [[nodiscard]] const PlannedReminder& planned(int row) const { return m_rows[std::size_t(row)].planned; }

    /// Why a row's reminder can't be sent. No value: it can.
    [[nodiscard]] const std::optional<QString>& refusal(int row) const { return m_rows[std::size_t(row)].refusal; }

private:
    struct Row
    {
        PlannedReminder planned;
        std::optional<QString> refusal;
        QString texts[columnTotal];
    };

    void add(const LibraryAccess& library, const PlannedReminder& planned);

    std::vector<Row> m_rows;
};

} // namespace Quillary
