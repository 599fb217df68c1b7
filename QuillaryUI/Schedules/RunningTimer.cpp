#include "QuillaryUI/Schedules/RunningTimer.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeTracking.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Schedules/TimerControl.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>
#include <QVBoxLayout>

#include <chrono>

namespace Quillary {

namespace {

constexpr int border = 16;
constexpr int gap = 8;
constexpr int widestWork = 104; ///< beside the button, in the sidebar's 200 pixels
constexpr std::chrono::seconds second{1};

/// The project, else the client, else what was noted.
QString workText(Context& context, const TimeEntry& entry)
{
    const Project* project = context.find(entry.project);
    const Client* client = context.find(entry.client);
    const QString name = project != nullptr  ? text(project->name)
                         : client != nullptr ? text(displayName(*client))
                                             : text(entry.note);
    return name.isEmpty() ? RunningTimer::tr("Timer") : name;
}

} // namespace

RunningTimer::RunningTimer(LibraryAccess& library, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_clock(new QLabel(this))
    , m_work(new QLabel(this))
    , m_stop(new QToolButton(this))
{
    build();
    m_second.setInterval(second);
    connect(&m_second, &QTimer::timeout, this, &RunningTimer::tick);
    connect(m_stop, &QToolButton::clicked, this, &RunningTimer::stop);
    connect(&library, &LibraryAccess::opened, this, &RunningTimer::reload);
    connect(&library, &LibraryAccess::closing, this, [this] { m_second.stop(); });
    connect(&library, &LibraryAccess::changed, this, [this](const ChangeSet& changes) {
        if (!changes.of<TimeEntry>().isEmpty() || !changes.of<Project>().isEmpty() || !changes.of<Client>().isEmpty()) {
            reload();
        }
    });
    reload();
}

void RunningTimer::build()
{
    setObjectName(QStringLiteral("runningTimer"));
    setCursor(Qt::PointingHandCursor);
    m_clock->setObjectName(QStringLiteral("runningClock"));
    m_clock->setAccessibleName(tr("Time on the timer"));
    m_clock->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont)); // digits that don't dance as they count
    m_work->setObjectName(QStringLiteral("runningWork"));
    m_work->setTextFormat(Qt::PlainText);
    m_work->setForegroundRole(QPalette::PlaceholderText);
    m_stop->setObjectName(QStringLiteral("stopTimer"));
    m_stop->setText(tr("Stop"));
    m_stop->setAccessibleName(tr("Stop the timer"));
    auto* words = new QVBoxLayout;
    words->setSpacing(0);
    words->addWidget(m_clock);
    words->addWidget(m_work);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(border, gap, border, border);
    row->setSpacing(gap);
    row->addLayout(words, 1);
    row->addWidget(m_stop);
}

void RunningTimer::reload()
{
    if (!m_library.isOpen()) {
        return;
    }
    const auto running = TimeTracking::running(m_library.context());
    if (!running.empty()) {
        const QString work = workText(m_library.context(), *running.front());
        m_work->setText(m_work->fontMetrics().elidedText(work, Qt::ElideRight, widestWork));
        m_work->setToolTip(work);
    }
    setVisible(!running.empty());
    tick();
    if (isVisible()) {
        m_second.start(); // it stood still while the library was away
    }
}

void RunningTimer::tick()
{
    if (m_library.isOpen() && !isHidden()) {
        m_clock->setText(TimerControl::clockText(m_library));
    }
}

void RunningTimer::stop()
{
    Q_EMIT stopping();
    const TimerControl::Outcome outcome = TimerControl::stop(m_library);
    if (outcome.isRefused) {
        Q_EMIT failed(outcome.sentence);
    } else {
        Q_EMIT told(outcome.sentence);
    }
}

void RunningTimer::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    tick();
    m_second.start();
}

void RunningTimer::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_second.stop();
}

void RunningTimer::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        Q_EMIT wantedTime();
    }
}

} // namespace Quillary
