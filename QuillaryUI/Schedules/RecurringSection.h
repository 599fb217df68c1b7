#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"

#include <cstdint>

class QPushButton;
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
    /// Asks which invoice is to come again, and when.
    void makeNew() override;
    [[nodiscard]] QList<QAction*> documentActions() const override;
    void refreshDay() override;
    void flush() override;
    [[nodiscard]] QString unsavedWork() const override;

private:
    void build();
    QWidget* buildList();
    QWidget* buildEmpty();
    [[nodiscard]] QPushButton* newButton(const QString& words, QWidget* parent) const;
    void choose();
    void restore();

    LibraryAccess& m_library;
    RecurringModel* m_model;
    QWidget* m_left = nullptr;
    QTableView* m_table;
    RecurringPane* m_pane;
    QStackedWidget* m_pages;
    std::int64_t m_chosen = 0;
    int m_row = 0; ///< where it stood before the rows were told anew
    bool m_isRestoring = false;
};

} // namespace Quillary
