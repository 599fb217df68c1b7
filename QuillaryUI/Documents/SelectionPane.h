#pragma once

#include "QuillaryCore/Documents/DocumentRows.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QList>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

class QAction;
class QLabel;
class QVBoxLayout;

namespace Quillary {

class DocumentsRun;
struct PlannedReminder;

/// Several chosen documents: what they come to, and what can be done to all of them.
class SelectionPane : public QWidget
{
    Q_OBJECT

public:
    using Keys = std::vector<std::int64_t>;
    using FolderChooser = std::function<QString(QWidget* parent)>;

    /// What is done runs in `run`, which outlives this. `parent` is wide enough for a sheet with letters.
    SelectionPane(LibraryAccess& library, DocumentKind kind, DocumentsRun& run, QWidget* parent);

    void setDocuments(Keys documents, const DocumentRows::Sum& sum, const DocumentRows::Summary& summary);
    [[nodiscard]] const Keys& documents() const { return m_documents; }

    /// For the window's menu.
    [[nodiscard]] QList<QAction*> actions() const { return m_actions; }

    /// Instead of the desktop's dialog.
    void setFolderChooser(FolderChooser chooser) { m_chooseFolder = std::move(chooser); }

private:
    void build();
    QAction*
    addAction(const QString& text, const QString& name, const QKeySequence& keys, void (SelectionPane::*run)());
    void addStatusActions();
    void showFacts(const DocumentRows::Sum& sum, const DocumentRows::Summary& summary);
    void applyToAll(StatusAction action);
    void savePDFs();
    void askForReminders();
    void writeReminders(const std::vector<PlannedReminder>& planned);
    void askToDelete();
    void deleteDrafts();

    LibraryAccess& m_library;
    DocumentKind m_kind;
    DocumentsRun& m_run;
    QWidget* m_host;
    FolderChooser m_chooseFolder;
    Keys m_documents;
    bool m_areDrafts = false; ///< all of them
    QLabel* m_heading;
    QLabel* m_facts;
    QVBoxLayout* m_buttons;
    QList<QAction*> m_actions;
    QList<QAction*> m_statusActions; ///< by `StatusAction`
    QAction* m_save = nullptr;
    QAction* m_remind = nullptr;
    QAction* m_remove = nullptr;
};

} // namespace Quillary
