#include "QuillaryUI/Documents/FeesTable.h"

#include "QuillaryUI/Documents/FeesModel.h"
#include "QuillaryUI/Look/Lists.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace Quillary {

namespace {

constexpr int lineHeight = 32;
constexpr int amountWidth = 104;
constexpr int taxWidth = 64;

} // namespace

FeesTable::FeesTable(FeesModel& model, QWidget* parent)
    : QTableView(parent)
    , m_fees(model)
{
    setModel(&model);
    setEditTriggers(AnyKeyPressed | DoubleClicked | SelectedClicked | EditKeyPressed);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionBehavior(SelectItems);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(lineHeight);
    horizontalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(FeesModel::description, QHeaderView::Stretch);
    setColumnWidth(FeesModel::charge, amountWidth);
    setColumnWidth(FeesModel::tax, taxWidth);
    connect(&model, &QAbstractItemModel::rowsInserted, this, &FeesTable::fitHeight);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &FeesTable::fitHeight);
    fitHeight();
}

void FeesTable::fitHeight()
{
    constexpr int border = 4;
    setFixedHeight((m_fees.rowCount() * lineHeight) + border);
}

bool FeesTable::focusNextPrevChild(bool next)
{
    if (!Lists::isLeftByTab(*this, next)) {
        return QTableView::focusNextPrevChild(next);
    }
    // The table's own way, from cell to cell, is what is to be left.
    return QAbstractScrollArea::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

void FeesTable::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
        m_fees.removeFee(currentIndex().row());
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentIndex().isValid()) {
        edit(currentIndex());
    } else {
        QTableView::keyPressEvent(event);
    }
}

} // namespace Quillary
