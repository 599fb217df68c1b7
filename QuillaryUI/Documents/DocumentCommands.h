#pragma once

#include "QuillaryCore/Billing/StatusActions.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QKeySequence>
#include <QList>
#include <QObject>

#include <cstdint>
#include <functional>
#include <optional>

class QAction;
class QMenu;
class QWidget;

namespace Quillary {

class DocumentOutput;
struct Document;

/// What can be done to the document that a pane shows: its actions with their keys, the menu of them, and the usual next
/// step.
class DocumentCommands : public QObject
{
    Q_OBJECT

public:
    /// The keys work within `pane`, which owns this and has the sheets above it.
    DocumentCommands(LibraryAccess& library, QWidget& pane);

    /// 0: there is none.
    void setDocument(std::int64_t key) { m_document = key; }

    /// Offers what the document allows. Null: nothing.
    void offer(const Document* document);

    [[nodiscard]] QList<QAction*> actions() const { return m_actions; }
    [[nodiscard]] QMenu& menu() const { return *m_menu; }

    /// What the usual next step is called; empty: there is none.
    [[nodiscard]] QString nextStep() const { return m_nextStepName; }
    void runNextStep();

    /// A new client of this name for the document.
    void askForClient(const QString& name);

Q_SIGNALS:
    /// Something is about to be done: what is typed and not saved yet is to be saved.
    void starting();
    /// Another document is to be shown.
    void wantedDocument(std::int64_t key);
    /// The one that is shown is a new draft to go on with.
    void madeDraft(std::int64_t key);
    /// The client that was asked for is there.
    void madeClient(const QString& id);
    void told(const QString& sentence);
    void failed(const QString& sentence);

private:
    using Run = void (DocumentCommands::*)(const Document& document);

    QAction* add(const QString& text, const char* name, const char* keys, Run run);
    void
    addOutput(const QString& text, const char* name, const char* keys, void (DocumentOutput::*run)(const Document&));
    QAction* addAction(const QString& text, const char* name, const char* keys);
    void build();
    [[nodiscard]] const Document* record() const;
    void offerSteps(const Document& document);
    void applyStatus(StatusAction action);
    [[nodiscard]] QString missingWords() const;
    void showResult(const std::optional<QString>& refusal, const QString& success);
    void make(const QString& sentence, const std::function<const Document&()>& work);
    [[nodiscard]] Instant newDay() const;

    void askForPayment(const Document& document);
    void askForReminder(const Document& document);
    void duplicate(const Document& document);
    void repeatLast(const Document& document);
    void makeRecurring(const Document& document);
    void makeInvoice(const Document& document);
    void makeCreditNote(const Document& document);
    void removeDraft(const Document& document);

    LibraryAccess& m_library;
    QWidget& m_pane;
    DocumentOutput* m_output;
    std::int64_t m_document = 0;
    QMenu* m_menu;
    QMenu* m_statusMenu;
    std::optional<StatusAction> m_nextStep;
    QString m_nextStepName;
    QList<QAction*> m_actions;
    QAction* m_pay = nullptr;
    QAction* m_remind = nullptr;
    QAction* m_repeat = nullptr;
    QAction* m_toInvoice = nullptr;
    QAction* m_recurring = nullptr;
    QAction* m_credit = nullptr;
    QAction* m_remove = nullptr;
};

} // namespace Quillary
