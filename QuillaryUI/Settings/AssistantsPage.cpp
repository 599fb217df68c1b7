#include "QuillaryUI/Settings/AssistantsPage.h"

#include "QuillaryCore/Assistant/Access/ActivityLog.h"
#include "QuillaryCore/Assistant/Access/AssistantSettingsFile.h"
#include "QuillaryCore/Assistant/Tools/AssistantAccess.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Settings/PlainTable.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateTime>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

#include <array>
#include <chrono>
#include <ranges>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr int tableHeight = 176;
constexpr int setupHeight = 152;
constexpr std::size_t shownCalls = 200;

QString timeText(Instant time)
{
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch());
    return QLocale().toString(QDateTime::fromMSecsSinceEpoch(milliseconds.count()), QLocale::ShortFormat);
}

QString word(AssistantApproval approval)
{
    switch (approval) {
    case AssistantApproval::allowed:
        return AssistantsPage::tr("Allowed");
    case AssistantApproval::denied:
        return AssistantsPage::tr("Not allowed");
    case AssistantApproval::waiting:
        return AssistantsPage::tr("Waits for your word");
    }
    return {};
}

QString word(CallOutcome outcome)
{
    switch (outcome) {
    case CallOutcome::done:
        return AssistantsPage::tr("Done");
    case CallOutcome::failed:
        return AssistantsPage::tr("Failed");
    case CallOutcome::refused:
        return AssistantsPage::tr("Refused");
    }
    return {};
}

} // namespace

AssistantsPage::AssistantsPage(LibraryAccess& library, ProgramPlaces places, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_places(std::move(places))
    , m_file(std::make_unique<AssistantSettingsFile>(m_places.assistantSettings))
    , m_isOn(new QCheckBox(tr("Assistants may use Quillary"), this))
    , m_access(new QComboBox(this))
    , m_detail(new QLabel(this))
    , m_assistants(PlainTable::make({tr("Assistant"), tr("Your word"), tr("Last asked")}, 0, this))
    , m_log(PlainTable::make({tr("When"), tr("Assistant"), tr("What it did"), tr("Outcome")}, 2, this))
{
    setObjectName(QStringLiteral("assistantsPage"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(buildAccess());
    column->addWidget(PlainTable::heading(tr("Assistants that have asked"), this));
    column->addWidget(buildAssistants());
    column->addWidget(PlainTable::heading(tr("What they did"), this));
    m_log->setObjectName(QStringLiteral("assistantLog"));
    m_log->setAccessibleName(tr("What assistants did"));
    m_log->setFixedHeight(tableHeight);
    column->addWidget(m_log);
    column->addWidget(PlainTable::heading(tr("Connecting an assistant app"), this));
    column->addWidget(buildSetup());
    connect(&library, &LibraryAccess::changed, this, [this] {
        if (isVisible()) {
            refresh(); // assistants may have done it
        }
    });
    setEnabled(!m_places.assistantSettings.empty());
}

AssistantsPage::~AssistantsPage() = default;

QWidget* AssistantsPage::buildAccess()
{
    auto* part = new QWidget(this);
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    m_isOn->setObjectName(QStringLiteral("assistantsOn"));
    connect(m_isOn, &QCheckBox::toggled, this, [this](bool isOn) {
        change([isOn](AssistantSettings& settings) { settings.isOn = isOn; });
    });
    m_access->setObjectName(QStringLiteral("assistantAccess"));
    m_access->setAccessibleName(tr("What assistants may do"));
    m_access->setFocusPolicy(Qt::StrongFocus);
    for (const AssistantAccess access :
         {AssistantAccess::readOnly, AssistantAccess::drafts, AssistantAccess::everything}) {
        m_access->addItem(CoreText::word(title(access)), int(access));
    }
    connect(m_access, &QComboBox::activated, this, [this] {
        const auto access = AssistantAccess(m_access->currentData().toInt());
        change([access](AssistantSettings& settings) { settings.access = access; });
    });
    m_detail->setObjectName(QStringLiteral("assistantAccessDetail"));
    m_detail->setWordWrap(true);
    m_detail->setForegroundRole(QPalette::PlaceholderText);
    column->addWidget(m_isOn);
    column->addWidget(m_access, 0, Qt::AlignLeft);
    column->addWidget(m_detail);
    return part;
}

QWidget* AssistantsPage::buildAssistants()
{
    auto* part = new QWidget(this);
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    m_assistants->setObjectName(QStringLiteral("knownAssistants"));
    m_assistants->setAccessibleName(tr("Assistants that have asked"));
    m_assistants->setFixedHeight(tableHeight);
    column->addWidget(m_assistants);
    auto* buttons = new QHBoxLayout;
    const auto add = [&](const QString& name, const QString& label, auto action) {
        auto* button = new QPushButton(label, part);
        button->setObjectName(name);
        button->setEnabled(false);
        connect(button, &QPushButton::clicked, this, action);
        connect(m_assistants, &QTableWidget::itemSelectionChanged, button, [this, button] {
            button->setEnabled(!chosen().empty());
        });
        buttons->addWidget(button);
    };
    add(QStringLiteral("allowAssistant"), tr("Allow"), [this] { decide(AssistantApproval::allowed); });
    add(QStringLiteral("denyAssistant"), tr("Don't Allow"), [this] { decide(AssistantApproval::denied); });
    add(QStringLiteral("forgetAssistant"), tr("Forget"), [this] {
        change([name = chosen()](AssistantSettings& settings) { settings.forget(name); });
    });
    buttons->addStretch();
    column->addLayout(buttons);
    return part;
}

QWidget* AssistantsPage::buildSetup()
{
    auto* part = new QWidget(this);
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    auto* words = new QLabel(tr("Most assistant apps take this in their settings, under MCP servers:"), part);
    words->setWordWrap(true);
    auto* setup = new QPlainTextEdit(text(m_places.assistantSetup), part);
    setup->setObjectName(QStringLiteral("assistantSetup"));
    setup->setAccessibleName(tr("Settings for assistant apps"));
    setup->setReadOnly(true);
    setup->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setup->setFixedHeight(setupHeight);
    auto* copy = new QPushButton(tr("Copy"), part);
    copy->setObjectName(QStringLiteral("copySetup"));
    connect(copy, &QPushButton::clicked, this, [this] {
        QGuiApplication::clipboard()->setText(text(m_places.assistantSetup));
        Q_EMIT told(tr("Copied."));
    });
    column->addWidget(words);
    column->addWidget(setup);
    column->addWidget(copy, 0, Qt::AlignLeft);
    return part;
}

void AssistantsPage::showEvent(QShowEvent* event)
{
    Section::showEvent(event);
    refresh();
}

void AssistantsPage::refresh()
{
    if (m_places.assistantSettings.empty()) {
        return;
    }
    const AssistantSettings settings = m_file->current();
    if (const auto problem = m_file->problem()) {
        Q_EMIT failed(CoreText::sentence(*problem));
    }
    const QSignalBlocker quiet(m_isOn);
    m_isOn->setChecked(settings.isOn);
    m_access->setCurrentIndex(m_access->findData(int(settings.access)));
    m_detail->setText(CoreText::word(detail(settings.access)));
    showAssistants(settings);
    showLog();
}

void AssistantsPage::showAssistants(const AssistantSettings& settings)
{
    const std::string before = chosen();
    QList<QStringList> rows;
    int same = -1;
    for (const KnownAssistant& known : settings.assistants) {
        same = known.name == before ? int(rows.size()) : same;
        rows.push_back({text(known.name), word(known.approval), known.askedAt ? timeText(*known.askedAt) : QString()});
    }
    PlainTable::fill(*m_assistants, rows);
    if (same >= 0) {
        m_assistants->selectRow(same);
    }
}

void AssistantsPage::showLog()
{
    QList<QStringList> rows;
    try {
        const std::vector<ActivityEntry> entries = ActivityLog(m_places.activityLog).last(shownCalls);
        for (const ActivityEntry& entry : entries | std::views::reverse) {
            rows.push_back({timeText(entry.time), text(entry.assistant), text(entry.summary), word(entry.outcome)});
        }
    } catch (const UserError& error) {
        Q_EMIT failed(CoreText::sentence(error.message()));
    }
    PlainTable::fill(*m_log, rows);
}

void AssistantsPage::change(const std::function<void(AssistantSettings&)>& change)
{
    try {
        if (const auto kept = m_file->change(change)) {
            Q_EMIT failed(
                tr("The settings before could not be understood; they are kept as %1").arg(text(kept->string())));
        }
    } catch (const UserError& error) {
        Q_EMIT failed(CoreText::sentence(error.message()));
    }
    refresh();
}

void AssistantsPage::decide(AssistantApproval approval)
{
    change([name = chosen(), approval](AssistantSettings& settings) { settings.decide(name, approval); });
}

std::string AssistantsPage::chosen() const
{
    const QList<QTableWidgetItem*> items = m_assistants->selectedItems();
    return items.isEmpty() ? std::string() : utf8(m_assistants->item(items.front()->row(), 0)->text());
}

} // namespace Quillary
