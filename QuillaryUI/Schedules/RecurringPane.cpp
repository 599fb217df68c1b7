#include "QuillaryUI/Schedules/RecurringPane.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/EditedPage.h"
#include "QuillaryUI/Documents/RhythmText.h"
#include "QuillaryUI/Look/Lettering.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Schedules/OwedInvoice.h"
#include "QuillaryUI/Schedules/RecurringCommands.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace Quillary {

namespace {

constexpr int border = 16;
constexpr std::size_t shownDates = 5;
constexpr double nameSize = 1.3;
constexpr int leastForOneRow = 600;

} // namespace

RecurringPane::RecurringPane(LibraryAccess& library, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_commands(new RecurringCommands(library, *this, parent))
    , m_head(new QWidget(this))
    , m_row(new QBoxLayout(QBoxLayout::LeftToRight, m_head))
    , m_name(Lettering::label(m_head, "recurringName", nameSize, QFont::Bold))
    , m_schedule(new QLabel(this))
    , m_dates(new QLabel(this))
    , m_owed(new QLabel(this))
    , m_edit(new QPushButton(m_head))
    , m_change(new QPushButton(tr("Schedule…"), m_head))
    , m_make(new QPushButton(m_head))
    , m_pause(new QPushButton(m_head))
    , m_content(new EditedPage(library, this))
{
    setObjectName(QStringLiteral("recurringPane"));
    build();
    listen();
}

void RecurringPane::listen()
{
    connect(m_edit, &QPushButton::clicked, this, [this] { m_content->isEditing() ? endEditing() : beginEditing(); });
    connect(m_change, &QPushButton::clicked, &m_commands->scheduleAction(), &QAction::trigger);
    connect(m_make, &QPushButton::clicked, &m_commands->makeAction(), &QAction::trigger);
    connect(m_pause, &QPushButton::clicked, &m_commands->pauseAction(), &QAction::trigger);
    connect(m_commands, &RecurringCommands::starting, this, &RecurringPane::flush);
    connect(m_commands, &RecurringCommands::wantedEditor, this, &RecurringPane::beginEditing);
    connect(m_commands, &RecurringCommands::madeClient, m_content, &EditedPage::setClient);
    connect(m_content, &EditedPage::wantedClient, m_commands, &RecurringCommands::askForClient);
    connect(m_content, &EditedPage::wantedClientRecord, this, &RecurringPane::wantedClient);
    connect(m_content, &EditedPage::wantedSettings, this, [this] { Q_EMIT wantedSection(QStringLiteral("settings")); });
    connect(m_content, &EditedPage::failed, this, &RecurringPane::failed);
    connect(&m_library, &LibraryAccess::changed, this, &RecurringPane::reload); // also of its lines
    connect(m_commands, &RecurringCommands::wantedDocument, this, &RecurringPane::wantedDocument);
    connect(m_commands, &RecurringCommands::told, this, &RecurringPane::told);
    connect(m_commands, &RecurringCommands::failed, this, &RecurringPane::failed);
}

void RecurringPane::build()
{
    buildHead();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_head);
    column->addWidget(m_content, 1);
}

void RecurringPane::buildHead()
{
    m_name->setWordWrap(true); // a long one takes a second line, and no wider window
    m_schedule->setObjectName(QStringLiteral("recurringSchedule"));
    m_schedule->setWordWrap(true);
    m_dates->setObjectName(QStringLiteral("recurringDates"));
    m_dates->setWordWrap(true);
    m_dates->setForegroundRole(QPalette::PlaceholderText);
    m_owed->setObjectName(QStringLiteral("recurringOwed"));
    m_owed->setWordWrap(true);
    m_owed->setTextFormat(Qt::PlainText);
    m_edit->setObjectName(QStringLiteral("editRecurring"));
    m_change->setObjectName(QStringLiteral("scheduleRecurring"));
    m_make->setObjectName(QStringLiteral("makeRecurringNow"));
    m_pause->setObjectName(QStringLiteral("pauseRecurring"));
    auto* words = new QVBoxLayout;
    words->setSpacing(4);
    words->addWidget(m_name);
    words->addWidget(m_schedule);
    words->addWidget(m_dates);
    words->addWidget(m_owed);
    auto* more = new QToolButton(m_head);
    more->setText(tr("More"));
    more->setObjectName(QStringLiteral("moreRecurring"));
    more->setAccessibleName(tr("More actions"));
    more->setIcon(Theme::icon(QStringLiteral("more")));
    more->setPopupMode(QToolButton::InstantPopup);
    more->setMenu(&m_commands->menu());
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(border / 2);
    buttons->addWidget(m_edit);
    buttons->addWidget(m_change);
    buttons->addWidget(m_make);
    buttons->addWidget(m_pause);
    buttons->addWidget(more);
    buttons->addStretch();
    auto* side = new QVBoxLayout;
    side->addLayout(buttons);
    side->addStretch();
    m_row->setContentsMargins(border, border, border, border);
    m_row->setSpacing(border / 2);
    m_row->addLayout(words, 1);
    m_row->addLayout(side);
}

/// Beside a wide list the buttons stand below the words.
void RecurringPane::resizeEvent(QResizeEvent* event)
{
    m_row->setDirection(width() < leastForOneRow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    QWidget::resizeEvent(event);
}

QList<QAction*> RecurringPane::documentActions() const
{
    return m_commands->actions();
}

QList<QAction*> RecurringPane::listActions() const
{
    return m_commands->listActions();
}

void RecurringPane::beginEditing()
{
    if (record() == nullptr) {
        return;
    }
    m_content->beginEditing();
    reload();
    Q_EMIT editingChanged(true);
    m_content->beginTyping(); // now that the list has given way
}

void RecurringPane::endEditing()
{
    const bool wasEditing = m_content->isEditing();
    m_content->endEditing();
    if (wasEditing) {
        reload();
        Q_EMIT editingChanged(false);
    }
}

void RecurringPane::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_content->isEditing()) {
        endEditing();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void RecurringPane::flush()
{
    m_content->flush();
}

QString RecurringPane::unsavedWork() const
{
    return m_content->unsavedWork();
}

const Document* RecurringPane::record() const
{
    return m_library.isOpen() && m_template != 0 ? m_library.context().find(Ref<Document>(m_template)) : nullptr;
}

void RecurringPane::setTemplate(std::int64_t key)
{
    if (m_template != key) {
        endEditing();
        m_template = key;
        m_commands->setTemplate(key);
        m_content->setDocument(key);
    }
    reload();
}

void RecurringPane::reload()
{
    const Document* recurring = record();
    if (recurring == nullptr && m_content->isEditing()) {
        endEditing();
        return;
    }
    m_content->reload();
    m_head->setVisible(recurring != nullptr);
    m_content->setVisible(recurring != nullptr);
    const std::optional<OwedInvoice> owed =
        recurring == nullptr ? std::nullopt : OwedInvoice::of(m_library, m_template);
    recurring = record(); // looking ahead makes and takes back
    m_commands->offer(recurring, owed.has_value());
    if (recurring == nullptr) {
        return;
    }
    const Client* client = m_library.context().find(recurring->client);
    const QString title = recurring->title.empty() ? tr("Recurring invoice") : text(recurring->title);
    m_name->setText(client != nullptr ? tr("%1 · %2").arg(title, text(displayName(*client))) : title);
    m_schedule->setText(RhythmText::sentence(*recurring, m_library.formats()));
    showDates(*recurring);
    showOwed(owed);
    m_edit->setText(m_content->isEditing() ? tr("Done") : tr("Edit"));
}

void RecurringPane::showDates(const Document& recurring)
{
    const Calendar& calendar = m_library.formats().calendar();
    QStringList dates;
    for (const CalendarDate day : RecurringTemplate::nextDates(recurring, shownDates, calendar)) {
        dates.push_back(text(m_library.formats().locale().formatDate(day)));
    }
    const QString list = dates.join(QStringLiteral("  ·  "));
    m_pause->setVisible(m_commands->pauseAction().isVisible());
    m_pause->setText(m_commands->pauseAction().text());
    switch (RecurringTemplate::state(recurring, calendar)) {
    case RecurringState::active:
        m_dates->setText(list.isEmpty() ? QString() : tr("Next: %1").arg(list));
        break;
    case RecurringState::paused:
        m_dates->setText(tr("Paused: no invoice is made. Dates that pass meanwhile are skipped."));
        break;
    case RecurringState::ended:
        m_dates->setText(tr("Ended: no more invoices are made."));
        break;
    }
    m_dates->setVisible(!m_dates->text().isEmpty()); // a schedule that can't be read has no dates
}

/// What stands in its way is said here as long as it does.
void RecurringPane::showOwed(const std::optional<OwedInvoice>& owed)
{
    m_owed->setVisible(owed.has_value());
    m_make->setVisible(owed.has_value());
    m_make->setText(m_commands->makeAction().text());
    if (owed) {
        const bool isStuck = !owed->obstacle.isEmpty();
        m_owed->setText(isStuck ? owed->obstacle : tr("The invoice of %1 is due and not made yet.").arg(owed->day));
        Theme::tint(*m_owed, isStuck ? Theme::statusColor(DisplayStatus::overdue) : palette().color(QPalette::Text));
    }
}

} // namespace Quillary
