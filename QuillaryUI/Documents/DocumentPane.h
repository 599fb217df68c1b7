#pragma once

#include "QuillaryCore/Billing/StatusActions.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QList>
#include <QWidget>

#include <cstdint>

class QAction;
class QLabel;
class QMenu;
class QPrintDialog;
class QPushButton;
class QSplitter;
class QToolButton;

namespace Quillary {

class DraftEditor;
class LivePage;
class PaperView;
struct Document;

/// One document: its page and what can be done to it. While a draft is edited its editor stands beside the page, and the
/// list gives way.
class DocumentPane : public QWidget
{
    Q_OBJECT

public:
    explicit DocumentPane(LibraryAccess& library, QWidget* parent = nullptr);

    /// 0: nothing is chosen.
    void setDocument(std::int64_t key);
    [[nodiscard]] std::int64_t document() const { return m_document; }

    /// Opens the editor of a draft and puts the keyboard into it. Nothing for what is no draft.
    void beginEditing();
    void endEditing();
    [[nodiscard]] bool isEditing() const { return m_isEditing; }
    void flush();

    /// What can be done to the document, for the window's menu.
    [[nodiscard]] QList<QAction*> documentActions() const { return m_actions; }

Q_SIGNALS:
    /// Another document is to be shown, such as the copy that was just made.
    void wantedDocument(std::int64_t key);
    void wantedClient(std::int64_t key);
    void wantedSection(const QString& name);
    void editingChanged(bool isEditing);
    /// Something went well, in a sentence.
    void told(const QString& sentence);
    /// Something went wrong, in a sentence.
    void failed(const QString& sentence);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] const Document* record() const;
    [[nodiscard]] bool isDraft() const;
    void build();
    void buildActions();
    void buildHead();
    QAction* addAction(const QString& text, const QString& name, const QKeySequence& keys, void (DocumentPane::*run)());
    void reload();
    void fillActions(const Document& document);
    void fillRelated(const Document& document);
    [[nodiscard]] std::optional<PageJob> page();
    void applyStatus(StatusAction action);
    void runNext();
    void showResult(const std::optional<QString>& refusal, const QString& success);
    void make(const QString& name, const std::function<const Document&()>& work);

    void askForPayment();
    void askForReminder();
    void askForClient(const QString& name);
    void duplicate();
    void repeatLast();
    void makeRecurring();
    void makeInvoice();
    void makeCreditNote();
    void savePDF();
    void print();
    void printPages(QPrintDialog& dialog, const PrintResult& result);
    void email();
    void removeDraft();

    LibraryAccess& m_library;
    std::int64_t m_document = 0;
    bool m_isEditing = false;
    PaperView* m_paper;
    LivePage* m_page;
    DraftEditor* m_editor;
    QSplitter* m_split;
    QLabel* m_name;
    QLabel* m_status;
    QLabel* m_related;
    QLabel* m_locked;
    QPushButton* m_edit;
    QPushButton* m_next;
    QToolButton* m_more;
    QMenu* m_menu;
    QMenu* m_statusMenu;
    QWidget* m_head;
    QLabel* m_empty;
    std::optional<StatusAction> m_nextStep;
    QList<QAction*> m_actions;
    QAction* m_pay = nullptr;
    QAction* m_remind = nullptr;
    QAction* m_duplicate = nullptr;
    QAction* m_repeat = nullptr;
    QAction* m_toInvoice = nullptr;
    QAction* m_recurring = nullptr;
    QAction* m_credit = nullptr;
    QAction* m_save = nullptr;
    QAction* m_print = nullptr;
    QAction* m_email = nullptr;
    QAction* m_remove = nullptr;
};

} // namespace Quillary
