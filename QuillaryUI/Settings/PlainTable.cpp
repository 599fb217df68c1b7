#include "QuillaryUI/Settings/PlainTable.h"

#include "QuillaryUI/Look/RowDelegate.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>

namespace Quillary {

namespace {

constexpr int rowHeight = 28;

} // namespace

QTableWidget* PlainTable::make(const QStringList& titles, int widest, QWidget* parent)
{
    auto* table = new QTableWidget(0, int(titles.size()), parent);
    table->setHorizontalHeaderLabels(titles);
    table->setSelectionBehavior(QTableWidget::SelectRows);
    table->setSelectionMode(QTableWidget::SingleSelection);
    table->setEditTriggers(QTableWidget::NoEditTriggers);
    table->setShowGrid(false);
    table->setItemDelegate(new RowDelegate(table));
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->horizontalHeader()->setSectionResizeMode(widest, QHeaderView::Stretch);
    return table;
}

void PlainTable::fill(QTableWidget& table, const QList<QStringList>& rows)
{
    table.clearSelection();
    table.setRowCount(int(rows.size()));
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < rows[row].size(); ++column) {
            table.setItem(row, column, new QTableWidgetItem(rows[row][column]));
        }
    }
}

QLabel* PlainTable::heading(const QString& title, QWidget* parent)
{
    auto* label = new QLabel(title, parent);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setContentsMargins(0, 16, 0, 0);
    return label;
}

} // namespace Quillary
