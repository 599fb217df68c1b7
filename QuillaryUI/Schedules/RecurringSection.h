#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"

#include <cstdint>

class QStackedWidget;
class QTableView;

namespace Quillary {

class RecurringModel;
class RecurringPane;

/// The recurring invoices: the list, and the chosen one beside it.
class RecurringSection : public Section
{
    Q_OBJECT

public:
    explicit RecurringSection(LibraryAccess& library, QWidget* parent = nullptr);

    void showTemplate(std::int64_t key);
    [[nodiscard]] QList<QAction*> documentActions() const override;
    void refreshDay() override;
    void flush() override;
    [[nodiscard]] QString unsavedWork() const override;

private:
    void build();
    void choose();
    void restore();

    RecurringModel* m_model;
    QTableView* m_table;
    RecurringPane* m_pane;
    QStackedWidget* m_pages;
    std::int64_t m_chosen = 0;
    int m_row = 0; ///< where it stood before the rows were told anew
    bool m_isRestoring = false;
};

} // namespace Quillary
