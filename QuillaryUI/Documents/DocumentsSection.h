#pragma once

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Documents/DocumentRows.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"

#include <cstdint>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace Quillary {

class DocumentListModel;
class DocumentPane;

/// The documents of one kind: the list with its filter, and the chosen one beside it.
class DocumentsSection : public Section
{
    Q_OBJECT

public:
    DocumentsSection(LibraryAccess& library, DocumentKind kind, QWidget* parent = nullptr);

    [[nodiscard]] DocumentKind kind() const { return m_kind; }
    [[nodiscard]] DocumentPane& pane() { return *m_pane; }

    /// Shows a document of this kind, also when a filter hides it.
    void showDocument(std::int64_t key);

    /// Makes a draft and opens its editor.
    void makeNew() override;

    void find() override;
    void flush() override;
    void refreshDay() override;

    /// Shows only those of a status.
    void setStatus(DisplayStatus status);

private:
    void build();
    QWidget* buildBar();
    QWidget* buildEmpty();
    void filter();
    void choose();
    void restore();
    void showSums();

    LibraryAccess& m_library;
    DocumentKind m_kind;
    DocumentListModel* m_model;
    QTableView* m_table;
    QLineEdit* m_search;
    QComboBox* m_statuses;
    QComboBox* m_period;
    QStackedWidget* m_list;
    QWidget* m_left;
    QLabel* m_footer;
    DocumentPane* m_pane;
    std::int64_t m_chosen = 0;
    DocumentRows::Sum m_sumOfAll; ///< of what the list shows
    bool m_isRestoring = false;
};

} // namespace Quillary
