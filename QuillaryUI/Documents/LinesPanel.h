#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace Quillary {

class DraftFields;
class LinesModel;
class LinesTable;

/// The lines of a draft with what they come to. A draft that has none yet offers those of the client's last invoice.
class LinesPanel : public QWidget
{
    Q_OBJECT

public:
    LinesPanel(DraftDesk& desk, DraftFields& fields, QWidget* parent);

    [[nodiscard]] LinesModel& lines() const { return *m_lines; }

    void fill(const Document& draft);

    /// Those of a draft that may not be saved like that yet.
    void showTotals(const Document& draft);

    /// Puts the keyboard into the row that becomes the next line.
    void begin();

private:
    void build();
    void copyLast();
    [[nodiscard]] bool canCopyLast(const Document& draft) const;

    DraftDesk& m_desk;
    DraftFields& m_fields;
    LinesModel* m_lines;
    LinesTable* m_table;
    QPushButton* m_copyLast;
    QLabel* m_totals;
};

} // namespace Quillary
