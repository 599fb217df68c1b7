#include "QuillaryUI/Schedules/RecurringCommands.h"

#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"
#include "QuillaryCore/Schedules/RecurringSetup.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/ClientSheet.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Schedules/ScheduleSheet.h"

#include <QAction>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

#include <cstddef>
#include <string>
#include <utility>

namespace Quillary {

RecurringCommands::RecurringCommands(LibraryAccess& library, QWidget& pane, QWidget* host)
    : QObject(&pane)
    , m_library(library)
    , m_pane(pane)
    , m_host(host)
    , m_menu(new QMenu(&pane))
{
    const auto keys = [](const char* typed) {
        return QKeySequence(QString::fromLatin1(typed));
    };
    m_edit = add(tr("Edit"), "editTemplate", QKeySequence(Qt::Key_Return), &RecurringCommands::edit);
    m_edit->setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
    m_schedule = add(tr("Schedule and Client…"), "changeSchedule", keys("Ctrl+E"), &RecurringCommands::changeSchedule);
    m_make = add(tr("Make Now"), "makeOwed", keys("Ctrl+I"), &RecurringCommands::makeOwed);
    m_pause = add(tr("Pause"), "pause", keys("Ctrl+Shift+P"), &RecurringCommands::pauseOrResume);
    add(tr("Duplicate"), "duplicateRecurring", keys("Ctrl+D"), &RecurringCommands::duplicate);
    m_remove = add(tr("Delete…"), "deleteRecurring", QKeySequence::Delete, &RecurringCommands::remove);
    for (QAction* action : listActions()) { // in a field these keys are for the text
        action->setShortcutContext(Qt::WidgetShortcut);
    }
    m_menu->addActions(m_actions);
}

QAction* RecurringCommands::add(const QString& text, const char* name, const QKeySequence& keys, Run run)
{
    auto* action = new QAction(text, &m_pane);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_pane.addAction(action);
    m_actions.push_back(action);
    connect(action, &QAction::triggered, this, [this, run] {
        Q_EMIT starting();
        if (record() != nullptr) {
            (this->*run)();
        }
    });
    return action;
}

const Document* RecurringCommands::record() const
{
    return m_library.isOpen() ? m_library.context().find(Ref<Document>(m_template)) : nullptr;
}

QString RecurringCommands::name() const
{
    return CoreText::sentence(RecurringInvoices::name(m_library.context(), *record()));
}

void RecurringCommands::offer(const Document* recurring, bool isOwed)
{
    for (QAction* action : std::as_const(m_actions)) {
        action->setEnabled(recurring != nullptr);
    }
    if (recurring == nullptr) {
        return;
    }
    const RecurringState state = RecurringTemplate::state(*recurring, m_library.formats().calendar());
    m_make->setVisible(isOwed);
    m_pause->setVisible(state != RecurringState::ended);
    m_pause->setText(state == RecurringState::paused ? tr("Resume") : tr("Pause"));
}

void RecurringCommands::showResult(const std::optional<QString>& refusal, const QString& success)
{
    if (refusal) {
        Q_EMIT failed(*refusal);
    } else {
        Q_EMIT told(success);
    }
}

void RecurringCommands::edit()
{
    Q_EMIT wantedEditor();
}

void RecurringCommands::askForClient(const QString& name)
{
    auto* sheet = new ClientSheet(m_library, name, m_host);
    connect(sheet, &ClientSheet::made, this, &RecurringCommands::madeClient);
    sheet->begin();
}

void RecurringCommands::changeSchedule()
{
    auto* sheet = new ScheduleSheet(m_library, m_template, m_host);
    connect(sheet, &ScheduleSheet::answered, this, [this] {
        if (record() != nullptr) {
            Q_EMIT told(tr("%1 was changed.").arg(name()));
        }
    });
    sheet->begin();
}

/// Also what others owe: there is one run for all, and its numbers follow their dates.
void RecurringCommands::makeOwed()
{
    std::size_t made = 0;
    std::optional<std::string> failure;
    auto refusal = m_library.attempt([&] {
        const RecurringInvoices::Run run = RecurringInvoices::catchUp(
            m_library.context(), m_library.now(), RecurringInvoices::mostPerRun, m_library.formats().calendar());
        made = run.made.size();
        if (!run.failures.empty()) {
            failure = run.failures.front().message();
        }
    });
    if (!refusal && made == 0 && failure) {
        refusal = CoreText::sentence(*failure);
    }
    showResult(refusal, made == 1 ? tr("The invoice was made.") : tr("%1 invoices were made.").arg(made));
}

void RecurringCommands::pauseOrResume()
{
    const Calendar& calendar = m_library.formats().calendar();
    const QString name = this->name();
    const bool isPaused = record()->isPaused;
    std::size_t skipped = 0;
    const auto refusal =
        m_library.perform(isPaused ? tr("Resume Recurring Invoice") : tr("Pause Recurring Invoice"), [&] {
            Document& changed = m_library.context().edit(*record());
            if (isPaused) {
                skipped = RecurringTemplate::resume(
                    changed, calendar.date(m_library.now()), RecurringTemplate::MissedDates::skipped, calendar);
            } else {
                changed.isPaused = true;
            }
        });
    showResult(refusal,
               !isPaused      ? tr("%1 is paused.").arg(name)
               : skipped == 0 ? tr("%1 goes on.").arg(name)
               : skipped == 1
                   ? tr("%1 goes on; one date that passed is skipped.").arg(name)
                   : tr("%1 goes on; %2 dates that passed are skipped.").arg(name, QString::number(skipped)));
}

void RecurringCommands::duplicate()
{
    std::int64_t made = 0;
    const auto refusal = m_library.attempt([&] {
        const Instant today = m_library.formats().calendar().addingDays(m_library.now(), 0);
        made = DocumentActions::duplicate(m_library.desk(), *record(), today, {}).ref.key();
    });
    showResult(refusal, tr("A copy was made. It is paused until you resume it."));
    if (!refusal) {
        Q_EMIT wantedDocument(made);
    }
}

void RecurringCommands::remove()
{
    const Ref<Document> recurring(m_template); // another may be shown by the time of the answer
    const QString name = this->name();
    QMessageBox question(
        QMessageBox::Question, tr("Delete Recurring Invoice"), tr("Delete %1?").arg(name), {}, &m_pane);
    question.setInformativeText(tr("The invoices that were made from it stay. Undo brings it back."));
    QPushButton* yes = question.addButton(tr("Delete"), QMessageBox::DestructiveRole);
    yes->setObjectName(QStringLiteral("deleteRecurringYes"));
    question.addButton(QMessageBox::Cancel);
    question.exec();
    const Document* removed = m_library.isOpen() ? m_library.context().find(recurring) : nullptr;
    if (question.clickedButton() == yes && removed != nullptr) {
        showResult(m_library.attempt([&] { RecurringSetup::remove(m_library.desk(), *removed); }),
                   tr("%1 was deleted.").arg(name));
    }
}

} // namespace Quillary
