#pragma once

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Documents/DocumentRows.h"
#include "QuillaryCore/Documents/DocumentView.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"

#include <QList>

#include <cstdint>
#include <string>
#include <vector>

class QAction;
class QLabel;
class QSplitter;
class QStackedWidget;
class QTableView;

namespace Quillary {

class DocumentFilterBar;
class DocumentListModel;
class DocumentPane;
class DocumentsRun;
class SavedViewsButton;
class SelectionPane;

/// The documents of one kind: the list with its filter, and what is chosen beside it: a document, or several at once.
class DocumentsSection : public Section
{
    Q_OBJECT

public:
    DocumentsSection(LibraryAccess& library, DocumentKind kind, QWidget* parent = nullptr);

    [[nodiscard]] DocumentKind kind() const { return m_kind; }
    [[nodiscard]] DocumentPane& pane() { return *m_pane; }
    [[nodiscard]] SelectionPane& selectionPane() { return *m_selection; }

    [[nodiscard]] QList<QAction*> documentActions() const override;

    /// Shows a document of this kind, also when a filter hides it.
    void showDocument(std::int64_t key);

    /// Makes a draft and opens its editor.
    void makeNew() override;

    void find() override;
    void flush() override;
    [[nodiscard]] QString unsavedWork() const override;
    void refreshDay() override;

    /// Shows only those of a status. Empty code: in every currency; also below.
    void setStatus(DisplayStatus status, const std::string& currencyCode = {});

    /// Shows only what is open and due today or within so many days.
    void setDueWithin(int days, const std::string& currencyCode = {});

    /// What the list shows, and in which order.
    [[nodiscard]] DocumentView view() const;
    void setView(const DocumentView& view);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build();
    QWidget* buildEmpty();
    QWidget* buildNothingFits();
    void filter();
    void choose();
    void restore();
    void showSelection();
    void offerKeys();
    void removeChosen() const;
    void showFooter(const DocumentRows::Sum& sum, bool isOfSelection);
    [[nodiscard]] std::vector<int> selectedRows() const;

    LibraryAccess& m_library;
    DocumentKind m_kind;
    DocumentListModel* m_model;
    // Most are made with the parent that they stay with: one that changes it is dressed anew, with all in it. Those that
    // ask in sheets are given the section first, over which a sheet has room.
    QSplitter* m_halves;
    QWidget* m_left;
    QStackedWidget* m_right;
    DocumentFilterBar* m_bar;
    SavedViewsButton* m_views;
    QStackedWidget* m_list;
    QTableView* m_table;
    QLabel* m_footer;
    DocumentPane* m_pane;
    DocumentsRun* m_run;
    SelectionPane* m_selection;
    std::int64_t m_chosen = 0;
    DocumentRows::Sum m_sumOfAll; ///< of what the list shows
    bool m_isRestoring = false;
};

} // namespace Quillary
