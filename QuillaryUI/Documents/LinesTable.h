#pragma once

#include <QTableView>

namespace Quillary {

class LibraryAccess;
class LinesModel;

/// Types lines like a spreadsheet: Enter goes down and makes a line at the end, Tab goes on, Delete removes the chosen
/// rows, Alt with the arrows moves one, and pasted rows become lines.
class LinesTable : public QTableView
{
    Q_OBJECT

public:
    LinesTable(LibraryAccess& library, LinesModel& model, QWidget* parent = nullptr);

    /// As high as its rows: the form around it scrolls.
    void fitHeight();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    void removeChosen();
    void moveChosen(int by);

    LinesModel& m_lines;
};

} // namespace Quillary
