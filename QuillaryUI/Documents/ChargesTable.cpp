#include "QuillaryUI/Documents/ChargesTable.h"

#include "QuillaryUI/Documents/ChargesModel.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Look/RowDelegate.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace Quillary {

namespace {

constexpr int lineHeight = 32;
constexpr int amountWidth = 104;
constexpr int taxWidth = 64;

} // namespace

ChargesTable::ChargesTable(ChargesModel& model, QWidget* parent)
    : QTableView(parent)
    , m_charges(model)
{
    setModel(&model);
    setItemDelegate(new RowDelegate(this));
    setEditTriggers(AnyKeyPressed | DoubleClicked | SelectedClicked | EditKeyPressed);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionBehavior(SelectItems);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(lineHeight);
    horizontalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(ChargesModel::description, QHeaderView::Stretch);
    setColumnWidth(ChargesModel::charge, amountWidth);
    if (model.columnCount() > ChargesModel::tax) {
        setColumnWidth(ChargesModel::tax, taxWidth);
    }
    connect(&model, &QAbstractItemModel::rowsInserted, this, &ChargesTable::fitHeight);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &ChargesTable::fitHeight);
    fitHeight();
}

void ChargesTable::fitHeight()
{
    constexpr int border = 4;
    setFixedHeight((m_charges.rowCount() * lineHeight) + border);
}

void ChargesTable::moveChosen(int by)
{
    const QModelIndex at = currentIndex();
    if (at.isValid()) {
        setCurrentIndex(m_charges.index(m_charges.shiftCharge(at.row(), by), at.column()));
    }
}

bool ChargesTable::focusNextPrevChild(bool next)
{
    if (!Lists::isLeftByTab(*this, next)) {
        return QTableView::focusNextPrevChild(next);
    }
    // The table's own way, from cell to cell, is what is to be left.
    return QAbstractScrollArea::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

void ChargesTable::keyPressEvent(QKeyEvent* event)
{
    const bool isMove = event->modifiers() == Qt::AltModifier;
    if (isMove && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)) {
        moveChosen(event->key() == Qt::Key_Up ? -1 : 1);
    } else if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
        m_charges.removeCharge(currentIndex().row());
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentIndex().isValid()) {
        edit(currentIndex());
    } else {
        QTableView::keyPressEvent(event);
    }
}

} // namespace Quillary
