#include "QuillaryUI/Look/YieldingColumns.h"

#include <QEvent>
#include <QHeaderView>
#include <QResizeEvent>
#include <QTableView>

namespace Quillary {

YieldingColumns::YieldingColumns(QTableView& table, int stretched, int leastWidth, const std::vector<int>& yielding)
    : QObject(&table)
    , m_table(table)
    , m_stretched(stretched)
    , m_leastWidth(leastWidth)
{
    m_yielding.reserve(yielding.size());
    for (const int place : yielding) {
        m_yielding.push_back({place, table.columnWidth(place)});
    }
    table.viewport()->installEventFilter(this);
    connect(table.horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, [this] {
        fit(m_table.viewport()->width());
    });
}

bool YieldingColumns::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        fit(static_cast<QResizeEvent*>(event)->size().width());
    }
    return QObject::eventFilter(watched, event);
}

void YieldingColumns::fit(int room)
{
    const QHeaderView& header = *m_table.horizontalHeader();
    int wanted = m_leastWidth;
    for (int column = 0; column < header.count(); ++column) {
        wanted += column == m_stretched ? 0 : header.sectionSize(column); // of a hidden one 0
    }
    for (Column& column : m_yielding) {
        const bool isHidden = m_table.isColumnHidden(column.place);
        column.width = isHidden ? column.width : header.sectionSize(column.place);
        wanted += isHidden ? column.width : 0;
    }
    for (const Column& column : m_yielding) {
        const bool hides = wanted > room && column.place != header.sortIndicatorSection();
        if (hides != m_table.isColumnHidden(column.place)) {
            m_table.setColumnHidden(column.place, hides);
        }
        wanted -= hides ? column.width : 0;
    }
}

} // namespace Quillary
