#pragma once

#include <optional>

class QScrollArea;
class QSplitter;
class QString;
class QTableView;
class QWidget;

namespace Quillary {

/// How all lists of the windows look and behave.
namespace Lists {

/// Rows of one height that are chosen whole, without lines between them; Tab leaves the list. `stretched` is the column
/// that takes what room is left, for a model that is set already and keeps its columns.
void dress(QTableView& table, const QString& name, const QString& accessibleName, std::optional<int> stretched);

/// Room for a list and for what stands beside it, which are made as its children, in this order: a border between them
/// can be dragged. Fills `whole`, which has no layout yet.
QSplitter* halves(QWidget& whole, const QString& name);

/// How wide both are at first, in pixels; what room is left belongs to the second.
void divide(QSplitter& split, int listWidth, int otherWidth);

/// A list and what stands beside it, with a border between them that can be dragged; fills `whole`, which has no layout
/// yet. Unit of the widths: pixels at first.
QSplitter* beside(QWidget& whole, const QString& name, QWidget* list, int listWidth, QWidget* other, int otherWidth);

/// A page that scrolls where it is too high. Tab goes to the page's controls, which come into sight, and not to the frame
/// around them.
[[nodiscard]] QScrollArea* scrolled(QWidget* page, QWidget* parent);

/// Whether a table that Tab walks through cell by cell has come to its end, the first cell backwards: from there Tab goes
/// on to the next control, so that nobody is caught in the table.
[[nodiscard]] bool isLeftByTab(const QTableView& table, bool isForwards);

} // namespace Lists

} // namespace Quillary
