#pragma once

#include <QObject>

#include <vector>

class QTableView;

namespace Quillary {

/// Keeps room for the column of a list that says what a row is about: where there isn't enough, less important columns
/// hide one after the other, and come back when there is. The one that the list is sorted by stays.
class YieldingColumns : public QObject
{
    Q_OBJECT

public:
    /// `stretched` takes what room is left, and never less than `leastWidth` pixels while one of `yielding` is shown, the
    /// first of which hides first. The model is set and keeps its columns. The table owns this.
    YieldingColumns(QTableView& table, int stretched, int leastWidth, const std::vector<int>& yielding);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Column
    {
        int place;
        int width; ///< the last before it hid
    };

    void fit(int room);

    QTableView& m_table;
    int m_stretched;
    int m_leastWidth;
    std::vector<Column> m_yielding;
};

} // namespace Quillary
