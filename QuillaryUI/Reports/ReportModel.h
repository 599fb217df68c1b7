#pragma once

#include "QuillaryCore/Reports/ReportCSV.h"
#include "QuillaryUI/Look/Formats.h"

#include <QAbstractTableModel>

#include <cstddef>
#include <vector>

namespace Quillary {

/// A report as a table of the screen: amounts, rates and dates as the desktop writes them, the total in bold.
class ReportModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// The value that sorts: numbers in their smallest unit, days as text that sorts like them.
    static constexpr int sortRole = Qt::UserRole;

    explicit ReportModel(Formats formats, QObject* parent = nullptr);

    void show(ReportTable table, bool hasTotal);

    [[nodiscard]] const ReportTable& table() const { return m_table; }
    [[nodiscard]] bool isNumeric(int column) const { return m_numeric[static_cast<std::size_t>(column)]; }
    [[nodiscard]] bool isOfTheReport(const QModelIndex& cell) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    Formats m_formats;
    ReportTable m_table;
    std::vector<bool> m_numeric; ///< by column: it holds a number in any row
    bool m_hasTotal = false;
};

} // namespace Quillary
