#include "QuillaryUI/Look/Lists.h"

#include "QuillaryUI/Look/RowDelegate.h"

#include <QHeaderView>
#include <QScrollArea>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

namespace Quillary::Lists {

namespace {

constexpr int rowHeight = 32;

} // namespace

void dress(QTableView& table, const QString& name, const QString& accessibleName, std::optional<int> stretched)
{
    table.setObjectName(name);
    table.setAccessibleName(accessibleName);
    table.setSelectionBehavior(QTableView::SelectRows);
    table.setSelectionMode(QTableView::SingleSelection);
    table.setShowGrid(false);
    table.setWordWrap(false);
    table.setItemDelegate(new RowDelegate(&table));
    table.setTabKeyNavigation(false);
    table.setVerticalScrollMode(QTableView::ScrollPerPixel);
    table.verticalHeader()->hide();
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(rowHeight);
    table.horizontalHeader()->setHighlightSections(false);
    if (stretched) {
        table.horizontalHeader()->setSectionResizeMode(*stretched, QHeaderView::Stretch);
    }
}

QSplitter* halves(QWidget& whole, const QString& name)
{
    auto* split = new QSplitter(Qt::Horizontal, &whole);
    split->setObjectName(name);
    split->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(&whole);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(split);
    return split;
}

void divide(QSplitter& split, int listWidth, int otherWidth)
{
    split.setSizes({listWidth, otherWidth});
    split.setStretchFactor(1, 1);
}

QSplitter* beside(QWidget& whole, const QString& name, QWidget* list, int listWidth, QWidget* other, int otherWidth)
{
    QSplitter* split = halves(whole, name);
    split->addWidget(list);
    split->addWidget(other);
    divide(*split, listWidth, otherWidth);
    return split;
}

QScrollArea* scrolled(QWidget* page, QWidget* parent)
{
    auto* scroll = new QScrollArea(parent);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidgetResizable(true);
    scroll->setWidget(page);
    return scroll;
}

bool isLeftByTab(const QTableView& table, bool isForwards)
{
    const QAbstractItemModel* model = table.model();
    const QModelIndex cell = table.currentIndex();
    if (model == nullptr || !cell.isValid()) {
        return true;
    }
    return isForwards ? cell.row() == model->rowCount() - 1 && cell.column() == model->columnCount() - 1
                      : cell.row() == 0 && cell.column() == 0;
}

} // namespace Quillary::Lists
