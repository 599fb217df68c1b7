#pragma once

#include <QTableView>

namespace Quillary {

class LibraryAccess;
class LinesModel;

/// Types lines like a spreadsheet: Enter goes down and makes a line at the end, Tab goes on, Delete removes the chosen
/// rows, and pasted rows become lines. A line is moved by its number, or with Alt and the arrows: up and down, and right
/// and left into the line above and out of it.
class LinesTable : public QTableView
{
    Q_OBJECT

public:
    LinesTable(LibraryAccess& library, LinesModel& model, QWidget* parent = nullptr);

    /// As high as its rows: the form around it scrolls.
    void fitHeight();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    void removeChosen();
    void moveChosen(int by);
    void nestChosen(bool isDeeper);
    void paste();
    void dropLine(int from, int to);

    LinesModel& m_lines;
};

} // namespace Quillary
