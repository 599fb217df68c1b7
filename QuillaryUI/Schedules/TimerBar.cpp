#include "QuillaryUI/Schedules/TimerBar.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeTracking.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/ClientPicker.h"
#include "QuillaryUI/Library/ProjectBox.h"
#include "QuillaryUI/Schedules/TimerControl.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <chrono>

namespace Quillary {

namespace {

constexpr int border = 12;
constexpr int gap = 8;
constexpr double clockSize = 1.5;
constexpr std::chrono::seconds second{1};

} // namespace

TimerBar::TimerBar(LibraryAccess& library, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_clock(new QLabel(this))
    , m_note(new QLineEdit(this))
    , m_client(new ClientPicker(library, this))
    , m_project(new ProjectBox(library, tr("No project"), this))
    , m_button(new QPushButton(this))
{
    build();
    m_second.setInterval(second);
    connect(&m_second, &QTimer::timeout, this, &TimerBar::tick);
    connect(m_button, &QPushButton::clicked, this, &TimerBar::startOrStop);
    connect(m_note, &QLineEdit::returnPressed, this, [this] {
        if (!m_isRunning) {
            start();
        }
    });
    connect(m_note, &QLineEdit::editingFinished, this, &TimerBar::describe);
    connect(m_client, &ClientPicker::picked, this, &TimerBar::describe);
    connect(m_client, &ClientPicker::wantedNew, this, [this] {
        Q_EMIT failed(tr("Nobody is called that. A new client is made in Clients."));
    });
    connect(m_project, &QComboBox::activated, this, &TimerBar::describe);
    connect(&library, &LibraryAccess::opened, this, &TimerBar::reload);
    connect(&library, &LibraryAccess::closing, this, [this] {
        describe();
        m_second.stop();
    });
    connect(&library, &LibraryAccess::changed, this, [this](const ChangeSet& changes) {
        if (!changes.of<TimeEntry>().isEmpty()) {
            reload();
        }
    });
    reload();
}

void TimerBar::build()
{
    setObjectName(QStringLiteral("timerBar"));
    QFont digits = QFontDatabase::systemFont(QFontDatabase::FixedFont); // which don't dance as they count
    digits.setPointSizeF(font().pointSizeF() * clockSize);
    m_clock->setFont(digits);
    m_clock->setObjectName(QStringLiteral("timerClock"));
    m_clock->setAccessibleName(tr("Time on the timer"));
    m_clock->setMinimumWidth(QFontMetrics(digits).horizontalAdvance(QStringLiteral("00:00:00")));
    m_note->setObjectName(QStringLiteral("timerNote"));
    m_note->setAccessibleName(tr("What is worked at"));
    m_note->setPlaceholderText(tr("What are you working on?"));
    m_client->setObjectName(QStringLiteral("timerClient"));
    m_client->setAccessibleName(tr("Client"));
    m_client->setPlaceholderText(tr("Client"));
    m_project->setObjectName(QStringLiteral("timerProject"));
    m_button->setObjectName(QStringLiteral("timerButton"));
    m_button->setDefault(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(border, border, border, border);
    row->setSpacing(gap);
    row->addWidget(m_clock);
    row->addWidget(m_note, 3);
    row->addWidget(m_client, 2);
    row->addWidget(m_project, 1);
    row->addWidget(m_button);
}

void TimerBar::reload()
{
    if (!m_library.isOpen()) {
        return;
    }
    const auto running = TimeTracking::running(m_library.context());
    const bool wasRunning = m_isRunning;
    m_isRunning = !running.empty();
    m_button->setText(m_isRunning ? tr("Stop") : tr("Start"));
    if (m_isRunning) {
        const TimeEntry& entry = *running.front();
        if (!m_note->hasFocus()) { // what is being typed stays
            m_note->setText(text(entry.note));
        }
        m_client->setClient(entry.client.key());
        m_project->setProject(entry.project.key());
        m_second.start();
    } else {
        m_second.stop();
        if (wasRunning) {
            m_note->clear(); // client and project are most often those of the next work, too
        }
    }
    tick();
}

void TimerBar::tick()
{
    m_clock->setText(TimerControl::clockText(m_library));
    m_clock->setForegroundRole(m_isRunning ? QPalette::WindowText : QPalette::PlaceholderText);
}

void TimerBar::startOrStop()
{
    if (m_isRunning) {
        stop();
    } else {
        start();
    }
}

void TimerBar::start()
{
    const TimeTracking::Work work{.client = Ref<Client>(m_client->client()),
                                  .project = Ref<Project>(m_project->project()),
                                  .note = utf8(m_note->text().trimmed())};
    const auto refusal =
        m_library.perform(tr("Start Timer"), [&] { TimeTracking::start(m_library.context(), work, m_library.now()); });
    if (refusal) {
        Q_EMIT failed(*refusal);
    }
}

void TimerBar::stop()
{
    describe();
    const TimerControl::Outcome outcome = TimerControl::stop(m_library);
    if (outcome.isRefused) {
        Q_EMIT failed(outcome.sentence);
    } else {
        Q_EMIT told(outcome.sentence);
    }
}

void TimerBar::describe()
{
    if (!m_isRunning || !m_library.isOpen()) {
        return;
    }
    const auto running = TimeTracking::running(m_library.context());
    if (running.empty()) {
        return;
    }
    const TimeEntry& entry = *running.front();
    TimeTracking::Change change;
    const std::string note = utf8(m_note->text().trimmed());
    const Ref<Client> client(m_client->client());
    const Ref<Project> project(m_project->project());
    if (entry.note == note && entry.client == client && entry.project == project) {
        return;
    }
    change.note = note;
    change.client = client;
    change.project = project;
    const auto refusal =
        m_library.perform(tr("Change Timer"), [&] { TimeTracking::edit(m_library.context(), entry, change); });
    if (refusal) {
        Q_EMIT failed(*refusal);
    }
}

} // namespace Quillary
