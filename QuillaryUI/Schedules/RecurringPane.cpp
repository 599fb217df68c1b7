#include "QuillaryUI/Schedules/RecurringPane.h"

#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Library/DocumentPage.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Paper/LivePage.h"
#include "QuillaryUI/Paper/PaperView.h"
#include "QuillaryUI/Schedules/OwedInvoice.h"
#include "QuillaryUI/Schedules/RhythmText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace Quillary {

namespace {

constexpr int border = 16;
constexpr std::size_t shownDates = 5;
constexpr double nameSize = 1.3;

} // namespace

RecurringPane::RecurringPane(LibraryAccess& library, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_head(new QWidget(this))
    , m_name(new QLabel(this))
    , m_schedule(new QLabel(this))
    , m_dates(new QLabel(this))
    , m_owed(new QLabel(this))
    , m_make(new QPushButton(tr("Make Now"), this))
    , m_pause(new QPushButton(this))
    , m_paper(new PaperView(library.press(), this))
    , m_page(new LivePage(library.press(), *m_paper))
{
    setObjectName(QStringLiteral("recurringPane"));
    build();
    connect(m_make, &QPushButton::clicked, this, &RecurringPane::makeOwed);
    connect(m_pause, &QPushButton::clicked, this, &RecurringPane::pauseOrResume);
}

void RecurringPane::build()
{
    QFont large = m_name->font();
    large.setPointSizeF(large.pointSizeF() * nameSize);
    large.setBold(true);
    m_name->setFont(large);
    m_name->setObjectName(QStringLiteral("recurringName"));
    m_schedule->setObjectName(QStringLiteral("recurringSchedule"));
    m_schedule->setWordWrap(true);
    m_dates->setObjectName(QStringLiteral("recurringDates"));
    m_dates->setWordWrap(true);
    m_dates->setForegroundRole(QPalette::PlaceholderText);
    m_owed->setObjectName(QStringLiteral("recurringOwed"));
    m_owed->setWordWrap(true);
    m_owed->setTextFormat(Qt::PlainText);
    m_make->setObjectName(QStringLiteral("makeRecurringNow"));
    m_pause->setObjectName(QStringLiteral("pauseRecurring"));
    auto* words = new QVBoxLayout;
    words->setSpacing(4);
    words->addWidget(m_name);
    words->addWidget(m_schedule);
    words->addWidget(m_dates);
    words->addWidget(m_owed);
    auto* row = new QHBoxLayout(m_head);
    row->setContentsMargins(border, border, border, border);
    row->addLayout(words, 1);
    row->addWidget(m_make, 0, Qt::AlignTop);
    row->addWidget(m_pause, 0, Qt::AlignTop);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_head);
    column->addWidget(m_paper, 1);
}

const Document* RecurringPane::record() const
{
    return m_library.isOpen() && m_template != 0 ? m_library.context().find(Ref<Document>(m_template)) : nullptr;
}

void RecurringPane::setTemplate(std::int64_t key)
{
    if (m_template != key) {
        m_template = key;
        m_page->show(documentPage(m_library, key));
    }
    reload();
}

void RecurringPane::reload()
{
    const Document* recurring = record();
    m_head->setVisible(recurring != nullptr);
    m_paper->setVisible(recurring != nullptr);
    if (recurring == nullptr) {
        return;
    }
    const Client* client = m_library.context().find(recurring->client);
    const QString title = recurring->title.empty() ? tr("Recurring invoice") : text(recurring->title);
    m_name->setText(client != nullptr ? tr("%1 · %2").arg(title, text(displayName(*client))) : title);
    m_schedule->setText(RhythmText::sentence(*recurring, m_library.formats()));
    showDates(*recurring);
    showOwed();
    m_page->refresh();
}

void RecurringPane::showDates(const Document& recurring)
{
    const Calendar& calendar = m_library.formats().calendar();
    QStringList dates;
    for (const CalendarDate day : RecurringTemplate::nextDates(recurring, shownDates, calendar)) {
        dates.push_back(text(m_library.formats().locale().formatDate(day)));
    }
    const QString list = dates.join(QStringLiteral("  ·  "));
    const RecurringState state = RecurringTemplate::state(recurring, calendar);
    m_pause->setVisible(state != RecurringState::ended);
    m_pause->setText(state == RecurringState::paused ? tr("Resume") : tr("Pause"));
    switch (state) {
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
void RecurringPane::showOwed()
{
    const std::optional<OwedInvoice> owed = OwedInvoice::of(m_library, m_template);
    m_owed->setVisible(owed.has_value());
    m_make->setVisible(owed.has_value());
    if (owed) {
        const bool isStuck = !owed->obstacle.isEmpty();
        m_owed->setText(isStuck ? owed->obstacle : tr("The invoice of %1 is due and not made yet.").arg(owed->day));
        Theme::tint(*m_owed, isStuck ? Theme::statusColor(DisplayStatus::overdue) : palette().color(QPalette::Text));
    }
}

/// Also what others owe: there is one run for all, and its numbers follow their dates.
void RecurringPane::makeOwed()
{
    std::size_t made = 0;
    std::optional<std::string> failure;
    const auto refusal = m_library.attempt([&] {
        const RecurringInvoices::Run run = RecurringInvoices::catchUp(
            m_library.context(), m_library.now(), RecurringInvoices::mostPerRun, m_library.formats().calendar());
        made = run.made.size();
        if (!run.failures.empty()) {
            failure = run.failures.front().message();
        }
    });
    if (refusal || (made == 0 && failure)) {
        Q_EMIT failed(refusal ? *refusal : CoreText::sentence(*failure));
    } else {
        Q_EMIT told(made == 1 ? tr("The invoice was made.") : tr("%1 invoices were made.").arg(made));
    }
}

void RecurringPane::pauseOrResume()
{
    const Document* recurring = record();
    if (recurring == nullptr) {
        return;
    }
    const Calendar& calendar = m_library.formats().calendar();
    const QString name = recurring->title.empty() ? m_name->text() : tr("“%1”").arg(text(recurring->title));
    const bool isPaused = recurring->isPaused;
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
    if (refusal) {
        Q_EMIT failed(*refusal);
    } else if (!isPaused) {
        Q_EMIT told(tr("%1 is paused.").arg(name));
    } else {
        Q_EMIT told(skipped == 0 ? tr("%1 goes on.").arg(name)
                    : skipped == 1
                        ? tr("%1 goes on; one date that passed is skipped.").arg(name)
                        : tr("%1 goes on; %2 dates that passed are skipped.").arg(name, QString::number(skipped)));
    }
}

} // namespace Quillary
