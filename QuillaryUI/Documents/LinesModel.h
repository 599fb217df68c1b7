#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"

#include <QAbstractTableModel>

#include <vector>

namespace Quillary {

/// The lines of a draft as a table to type in: a row a line, sub-lines indented, and an empty row at the end that becomes
/// a line as soon as something stands in it.
class LinesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { title, details, quantity, unit, price, tax, amount };
    static constexpr int columns = amount + 1;

    explicit LinesModel(DraftDesk& desk, QObject* parent = nullptr);

    /// Reads the lines anew.
    void reload();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    /// The number of lines; the row of this number is the empty one.
    [[nodiscard]] int lineCount() const { return int(m_lines.size()); }

    /// Puts a catalog item into a row: a new line at the end, or the item's details, unit, price and tax in place.
    void takeItem(int row, const QString& itemID);
    void removeLines(std::vector<int> rows);
    /// Rows with tabs between their cells, as spreadsheets copy them: title, quantity, unit, price. False: nothing of
    /// the kind.
    bool paste(const QString& text);
    void moveLine(int from, int before);

Q_SIGNALS:
    /// Why a cell kept its value; empty when all is well.
    void refused(const QString& sentence);

private:
    struct Line
    {
        QString title;
        QString details;
        std::int64_t quantityThousandths = 0;
        QString unit;
        std::int64_t unitPriceMinorUnits = 0;
        std::int32_t taxBasisPoints = 0;
        std::int64_t amountMinorUnits = 0;
        bool isChild = false;
    };

    [[nodiscard]] QString text(const Line& line, int column) const;
    [[nodiscard]] QString editText(const Line& line, int column) const;
    [[nodiscard]] std::optional<QString> apply(const QString& name, const JSON& arguments);

    DraftDesk& m_desk;
    std::vector<Line> m_lines;
    std::string m_currencyCode;
};

} // namespace Quillary
