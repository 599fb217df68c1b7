#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"

#include <QAbstractTableModel>

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace Quillary {

/// The lines of a draft as a table to type in: a row a line, sub-lines indented, and an empty row at the end that becomes
/// a line as soon as something stands in it. What a catalog item or the settings filled in is lighter until it is touched.
class LinesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { description, details, quantity, unit, price, tax, sum };
    static constexpr int columns = sum + 1;

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

    /// A new line of a catalog item, in place of the one at the end when that has just been begun.
    void takeItem(int row, const QString& itemID);
    void removeLines(std::vector<int> rows);
    /// Rows as spreadsheets copy them; `PastedLines` tells how they are read. False: nothing of the kind.
    bool paste(const QString& text);

    /// Moves a line, with its sub-lines, before another row.
    void moveLine(int from, int before);
    /// Moves it past the next one of its level, up (-1) or down (1). Returns where it stands then.
    int shiftLine(int row, int by);
    /// A line becomes a sub-line of the one above, or a line of its own again.
    void nest(int row);
    void unnest(int row);
    [[nodiscard]] bool isSubLine(int row) const;

    /// Somebody is typing into a cell. It is saved when they stop for a moment, or leave it.
    void setTyping(int row, int column, const QString& text);
    [[nodiscard]] bool isTyping() const { return m_typing.has_value(); }
    /// What is being typed, as `update_document` takes it, added to what stands there.
    void addTyping(JSON& arguments) const;
    void saveTyping();
    /// Somebody thought better of it.
    void dropTyping() { m_typing.reset(); }

Q_SIGNALS:
    void typing();
    /// Why a cell kept its value; empty when all is well.
    void refused(const QString& sentence);

private:
    struct Line
    {
        std::int64_t key = 0;
        QString title;
        QString details;
        std::int64_t quantityThousandths = 0;
        QString unit;
        std::int64_t unitPriceMinorUnits = 0;
        std::int32_t taxBasisPoints = 0;
        std::int64_t amountMinorUnits = 0;
        bool isChild = false;
        std::array<QString, columns> origins; ///< of what was filled in, in words; empty: it was typed
    };

    struct Typing
    {
        int row = 0;
        int column = 0;
        QString text;
    };

    void fillOrigins(std::vector<Line>& lines, const Document& draft) const;
    [[nodiscard]] QString origin(const Line& line, int column) const;
    [[nodiscard]] QVariant toolTip(const Line& line, int column) const;
    [[nodiscard]] QString text(const Line& line, int column) const;
    [[nodiscard]] QString editText(const Line& line, int column) const;
    [[nodiscard]] std::optional<JSON> changeOf(int row, int column, const QString& typed) const;
    [[nodiscard]] int levelEnd(int row) const;
    void arrange(const std::optional<QString>& refusal);
    [[nodiscard]] std::optional<QString> apply(const QString& name, const JSON& arguments);

    DraftDesk& m_desk;
    std::vector<Line> m_lines;
    std::set<std::pair<std::int64_t, int>> m_touched; ///< cells that somebody typed into: line and column
    std::optional<Typing> m_typing;
    std::string m_currencyCode;
};

} // namespace Quillary
