#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QKeySequence>
#include <QList>
#include <QObject>

#include <cstdint>
#include <optional>

class QAction;
class QMenu;
class QWidget;

namespace Quillary {

struct Document;

/// What can be done to the recurring invoice that a pane shows: its actions with their keys, and the menu of them.
class RecurringCommands : public QObject
{
    Q_OBJECT

public:
    /// The keys work within `pane`, which owns this. Over `host` sheets have room; it outlives the pane.
    RecurringCommands(LibraryAccess& library, QWidget& pane, QWidget* host);

    /// 0: there is none.
    void setTemplate(std::int64_t key) { m_template = key; }

    /// Offers what it allows. Null: nothing. `isOwed`: an invoice is due and not made.
    void offer(const Document* recurring, bool isOwed);

    [[nodiscard]] QList<QAction*> actions() const { return m_actions; }
    [[nodiscard]] QMenu& menu() const { return *m_menu; }
    /// Those that a pane has buttons for.
    [[nodiscard]] QAction& scheduleAction() const { return *m_schedule; }
    [[nodiscard]] QAction& makeAction() const { return *m_make; }
    [[nodiscard]] QAction& pauseAction() const { return *m_pause; }
    /// Those whose keys are meant for a list: there they are added, too.
    [[nodiscard]] QList<QAction*> listActions() const { return {m_edit, m_remove}; }

    /// A new client of this name for the template that is edited.
    void askForClient(const QString& name);

Q_SIGNALS:
    /// Something is about to be done: what is typed and not saved yet is to be saved.
    void starting();
    void wantedEditor();
    /// The client that was asked for is there.
    void madeClient(const QString& id);
    void wantedDocument(std::int64_t key);
    void told(const QString& sentence);
    void failed(const QString& sentence);

private:
    using Run = void (RecurringCommands::*)();

    QAction* add(const QString& text, const char* name, const QKeySequence& keys, Run run);
    [[nodiscard]] const Document* record() const;
    [[nodiscard]] QString name() const;
    void edit();
    void changeSchedule();
    void makeOwed();
    void pauseOrResume();
    void duplicate();
    void remove();
    void showResult(const std::optional<QString>& refusal, const QString& success);

    LibraryAccess& m_library;
    QWidget& m_pane;
    QWidget* m_host;
    std::int64_t m_template = 0;
    QMenu* m_menu;
    QList<QAction*> m_actions;
    QAction* m_edit = nullptr;
    QAction* m_schedule = nullptr;
    QAction* m_make = nullptr;
    QAction* m_pause = nullptr;
    QAction* m_remove = nullptr;
};

} // namespace Quillary
