#pragma once

#include "QuillaryUI/Catalog/RecordDesk.h"
#include "QuillaryUI/Catalog/RecordTexts.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <optional>
#include <vector>

namespace Quillary {

/// The records of one kind for a table.
class RecordListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    RecordListModel(const RecordDesk& desk, const RecordTexts& texts, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Reads anew. Only while the library is open.
    void reload();
    void setFilter(const QString& text);

    [[nodiscard]] const RecordDesk::Row& row(int place) const
    {
        return m_rows[m_places[static_cast<std::size_t>(place)]];
    }
    [[nodiscard]] std::optional<int> rowOf(std::int64_t key) const;
    [[nodiscard]] bool isEmpty() const { return m_rows.empty(); } ///< without regard to the filter

private:
    void arrange();

    const RecordDesk& m_desk;
    const RecordTexts& m_texts;
    QString m_filter;
    std::vector<RecordDesk::Row> m_rows;
    std::vector<std::size_t> m_places; ///< of the rows shown
};

} // namespace Quillary
