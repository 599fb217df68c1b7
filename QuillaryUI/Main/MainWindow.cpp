#include "QuillaryUI/Main/MainWindow.h"

#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Catalog/CatalogSection.h"
#include "QuillaryUI/Clients/ClientsSection.h"
#include "QuillaryUI/Documents/DocumentsSection.h"
#include "QuillaryUI/Documents/StatusText.h"
#include "QuillaryUI/Lock/LockKeeper.h"
#include "QuillaryUI/Lock/LockPage.h"
#include "QuillaryUI/Look/FieldForm.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Main/FirstStart.h"
#include "QuillaryUI/Main/QuietNotice.h"
#include "QuillaryUI/Main/SectionDeck.h"
#include "QuillaryUI/Main/TrayIcon.h"
#include "QuillaryUI/Overview/OverviewSection.h"
#include "QuillaryUI/Reports/ReportsSection.h"
#include "QuillaryUI/Schedules/RecurringSection.h"
#include "QuillaryUI/Schedules/RunningTimer.h"
#include "QuillaryUI/Schedules/TimeSection.h"
#include "QuillaryUI/Settings/SettingsSection.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <tuple>
#include <utility>

namespace Quillary {

namespace {

constexpr int usualWidth = 1360;
constexpr int usualHeight = 860;
constexpr int noticeTime = 8'000; ///< milliseconds

const QString geometryKey = QStringLiteral("window/geometry");

QString sectionName(DocumentKind kind)
{
    switch (kind) {
    case DocumentKind::invoice:
        break;
    case DocumentKind::quote:
        return QStringLiteral("quotes");
    case DocumentKind::creditNote:
        return QStringLiteral("credit-notes");
    case DocumentKind::recurring:
        return QStringLiteral("recurring");
    }
    return QStringLiteral("invoices");
}

} // namespace

MainWindow::MainWindow(LibraryAccess& library, const ProgramPlaces& places, QWidget* parent)
    : QMainWindow(parent)
    , m_library(library)
    , m_whole(new QStackedWidget(this))
    , m_deck(new SectionDeck(this))
    , m_warning(new QFrame(this))
    , m_warningText(new QLabel(this))
    , m_warningShow(new QToolButton(m_warning))
    , m_lock(new LockKeeper(places.lock, places.now, this))
    , m_lockPage(new LockPage(*m_lock, this))
    , m_tray(new TrayIcon(this))
    , m_notice(new QuietNotice(this))
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowTitle(QStringLiteral("Quillary"));
    buildWarning();
    m_whole->addWidget(m_deck);
    setCentralWidget(m_whole);
    addSections(places);
    addTimer();
    m_deck->tail().addWidget(m_notice);
    connect(m_notice, &QuietNotice::wantedDocument, this, &MainWindow::showDocument);
    connect(m_deck, &SectionDeck::leaving, this, &MainWindow::flush);
    connect(m_deck, &SectionDeck::wasMade, this, &MainWindow::listenTo);
    connect(&library, &LibraryAccess::closing, this, [this] { m_deck->setEnabled(false); });
    connect(&library, &LibraryAccess::opened, this, [this] { m_deck->setEnabled(true); });
    buildMenus();
    restoreLayout();
    if (FirstStart::isNeeded(library)) {
        showFirstStart();
    }
    prepareLock();
    prepareTray();
}

MainWindow::~MainWindow() = default;

void MainWindow::buildWarning()
{
    m_warning->setObjectName(QStringLiteral("warning"));
    m_warningText->setObjectName(QStringLiteral("warningText"));
    m_warningText->setWordWrap(true);
    m_warningShow->setObjectName(QStringLiteral("warningShow"));
    m_warningShow->setText(tr("Show"));
    connect(m_warningShow, &QToolButton::clicked, this, [this] {
        m_warning->hide();
        showSection(sectionName(DocumentKind::recurring));
        showDocument(m_warnedOf);
    });
    auto* dismiss = new QToolButton(m_warning);
    dismiss->setText(tr("Close"));
    connect(dismiss, &QToolButton::clicked, m_warning, &QFrame::hide);
    auto* sign = new QLabel(m_warning);
    sign->setPixmap(Theme::icon(QStringLiteral("warning")).pixmap(20, 20));
    auto* row = new QHBoxLayout(m_warning);
    row->addWidget(sign);
    row->addWidget(m_warningText, 1);
    row->addWidget(m_warningShow);
    row->addWidget(dismiss);
    m_deck->head().addWidget(m_warning);
    m_warning->hide();
}

void MainWindow::prepareTray()
{
    connect(m_tray, &TrayIcon::wantedWindow, this, &MainWindow::present);
    connect(m_tray, &TrayIcon::wantedLock, this, [this] {
        if (!m_lock->lock()) {
            present();
            lock();
        }
    });
    connect(m_tray, &TrayIcon::wantedEnd, this, &MainWindow::end);
}

void MainWindow::setVisible(bool visible)
{
    if (visible && m_deck->isEmpty()) {
        m_deck->show(0);
    }
    QMainWindow::setVisible(visible);
}

void MainWindow::present()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    m_tray->refresh();
}

void MainWindow::end()
{
    m_isEnding = true;
    if (close()) {
        QCoreApplication::quit();
    }
    m_isEnding = false;
}

/// Starting the program anew is no way around the lock.
void MainWindow::prepareLock()
{
    m_whole->addWidget(m_lockPage);
    connect(m_lock, &LockKeeper::locked, this, &MainWindow::cover);
    connect(m_lock, &LockKeeper::unlocked, this, &MainWindow::uncover);
    m_lock->lock();
}

void MainWindow::lock()
{
    if (!m_lock->lock()) {
        showSection(QStringLiteral("settings/security"));
        tell(tr("Set a passphrase first: the lock asks for it."));
    }
}

bool MainWindow::isLocked() const
{
    return m_lock->isLocked();
}

/// A hidden menu bar and hidden sections answer to no key; what stands beside the window goes.
void MainWindow::cover()
{
    flush();
    for (QWidget* other : QApplication::topLevelWidgets()) {
        if (other->isVisible() && qobject_cast<QMainWindow*>(other) == nullptr) {
            other->close();
        }
    }
    statusBar()->clearMessage();
    statusBar()->hide();
    menuBar()->hide();
    m_covered = m_whole->currentWidget();
    m_whole->setCurrentWidget(m_lockPage);
    m_lockPage->begin();
}

void MainWindow::uncover()
{
    menuBar()->show();
    statusBar()->show();
    m_whole->setCurrentWidget(m_covered);
    if (m_covered == m_deck) {
        m_deck->current()->setFocus(Qt::OtherFocusReason);
    }
    Q_EMIT unlocked();
}

Section* MainWindow::makeOverview(QWidget* parent)
{
    auto* overview = new OverviewSection(m_library, parent);
    connect(overview, &OverviewSection::wantedDocuments, this, &MainWindow::showDocuments);
    connect(overview, &OverviewSection::wantedDue, this, [this](int days, const std::string& currencyCode) {
        showSection(sectionName(DocumentKind::invoice));
        if (auto* invoices = qobject_cast<DocumentsSection*>(m_deck->current())) {
            invoices->setDueWithin(days, currencyCode);
        }
    });
    connect(overview, &OverviewSection::wantedNew, this, [this](DocumentKind kind) {
        showSection(sectionName(kind));
        m_deck->current()->makeNew();
    });
    return overview;
}

void MainWindow::showDocuments(DocumentKind kind, DisplayStatus status, const std::string& currencyCode)
{
    showSection(sectionName(kind));
    if (auto* documents = qobject_cast<DocumentsSection*>(m_deck->current())) {
        documents->setStatus(status, currencyCode);
    }
}

void MainWindow::addSections(const ProgramPlaces& places)
{
    const auto add = [this](const char* name, const QString& title, const char* icon, SectionDeck::Maker make) {
        m_deck->add(QString::fromLatin1(name), title, QString::fromLatin1(icon), std::move(make));
    };
    add("overview", tr("Overview"), "overview", [this](QWidget* parent) { return makeOverview(parent); });
    for (const auto& [kind, name, icon] : {std::tuple(DocumentKind::invoice, "invoices", "invoice"),
                                           std::tuple(DocumentKind::quote, "quotes", "quote"),
                                           std::tuple(DocumentKind::creditNote, "credit-notes", "credit-note")}) {
        add(name, StatusText::kinds(kind), icon, [this, made = kind](QWidget* parent) {
            return new DocumentsSection(m_library, made, parent);
        });
    }
    add("recurring", tr("Recurring"), "recurring", [this](QWidget* parent) {
        return new RecurringSection(m_library, parent);
    });
    add("clients", tr("Clients"), "clients", [this](QWidget* parent) { return new ClientsSection(m_library, parent); });
    add("catalog", tr("Catalog"), "catalog", [this](QWidget* parent) { return new CatalogSection(m_library, parent); });
    add("time", tr("Time"), "time", [this](QWidget* parent) { return new TimeSection(m_library, parent); });
    add("reports", tr("Reports"), "reports", [this](QWidget* parent) { return new ReportsSection(m_library, parent); });
    add("settings", tr("Settings"), "settings", [this, places](QWidget* parent) {
        return new SettingsSection(m_library, places, parent);
    });
}

void MainWindow::addTimer()
{
    auto* timer = new RunningTimer(m_library, m_deck);
    m_deck->foot().addWidget(timer);
    connect(timer, &RunningTimer::stopping, this, &MainWindow::flush);
    connect(timer, &RunningTimer::told, this, &MainWindow::tell);
    connect(timer, &RunningTimer::failed, this, &MainWindow::warn);
    connect(timer, &RunningTimer::wantedTime, this, [this] { showSection(QStringLiteral("time")); });
}

void MainWindow::listenTo(Section* section) const
{
    connect(section, &Section::told, this, &MainWindow::tell);
    connect(section, &Section::failed, this, &MainWindow::warn);
    connect(section, &Section::wantedDocument, this, &MainWindow::showDocument);
    connect(section, &Section::wantedClient, this, &MainWindow::showClient);
    connect(section, &Section::wantedSection, this, &MainWindow::showSection);
}

void MainWindow::showFirstStart()
{
    auto* first = new FirstStart(m_library, this);
    m_whole->addWidget(first);
    m_whole->setCurrentWidget(first);
    first->begin();
    menuBar()->setEnabled(false);
    connect(first, &FirstStart::finished, this, [this, first] {
        menuBar()->setEnabled(true);
        m_whole->setCurrentWidget(m_deck);
        first->deleteLater();
        showSection(QStringLiteral("invoices"));
    });
}

void MainWindow::showSection(const QString& name)
{
    const qsizetype slash = name.indexOf(QLatin1Char('/'));
    m_deck->show(slash < 0 ? name : name.first(slash));
    if (slash >= 0) {
        m_deck->current()->showPage(name.sliced(slash + 1));
    }
}

Section* MainWindow::section(const QString& name) const
{
    return m_deck->section(name);
}

QStringList MainWindow::sectionNames() const
{
    return m_deck->names();
}

void MainWindow::showDocument(std::int64_t key)
{
    const Document* document = m_library.isOpen() ? m_library.context().find(Ref<Document>(key)) : nullptr;
    if (document == nullptr) {
        return;
    }
    showSection(sectionName(kind(*document).value_or(DocumentKind::invoice)));
    if (auto* documents = qobject_cast<DocumentsSection*>(m_deck->current())) {
        documents->showDocument(key);
    } else if (auto* recurring = qobject_cast<RecurringSection*>(m_deck->current())) {
        recurring->showTemplate(key);
    }
}

void MainWindow::showClient(std::int64_t key)
{
    if (auto* clients = qobject_cast<ClientsSection*>(section(QStringLiteral("clients")))) {
        showSection(QStringLiteral("clients"));
        clients->showClient(key);
    }
}

void MainWindow::flush()
{
    for (Section* section : m_deck->made()) {
        section->flush();
    }
}

void MainWindow::refreshDay()
{
    for (Section* section : m_deck->made()) {
        section->refreshDay();
    }
}

void MainWindow::tell(const QString& sentence)
{
    if (!isLocked()) {
        statusBar()->showMessage(sentence, noticeTime);
    }
}

void MainWindow::tellOf(const QString& sentence, std::int64_t document)
{
    m_notice->tell(sentence, document);
}

bool MainWindow::isBeingTypedIn() const
{
    const QWidget* focus = isActiveWindow() ? focusWidget() : nullptr;
    return focus != nullptr && focus->testAttribute(Qt::WA_InputMethodEnabled);
}

void MainWindow::warn(const QString& sentence)
{
    m_warningText->setText(sentence);
    m_warningShow->hide();
    m_warning->show();
}

void MainWindow::warnOfRecurring(const QString& sentence, std::int64_t key)
{
    warn(sentence);
    m_warnedOf = key;
    m_warningShow->show();
}

void MainWindow::restoreLayout()
{
    resize(QSize(usualWidth, usualHeight).boundedTo(screen()->availableSize()));
    restoreGeometry(QSettings().value(geometryKey).toByteArray());
}

/// What waits for the library, or was refused and is kept in its form. Empty: nothing.
QString MainWindow::unsavedWork() const
{
    for (const Section* section : m_deck->made()) {
        if (QString waiting = section->unsavedWork(); !waiting.isEmpty()) {
            return waiting;
        }
    }
    for (const FieldForm* form : findChildren<FieldForm*>()) {
        if (const QStringList refusals = form->refusals(); !refusals.isEmpty()) {
            return tr("Something that you typed could not be saved: %1").arg(refusals.front());
        }
    }
    return {};
}

/// Nothing else asks before the program ends: all else is saved as it is typed.
bool MainWindow::mayLoseWork()
{
    const QString unsaved = unsavedWork();
    if (unsaved.isEmpty()) {
        return true;
    }
    QMessageBox question(QMessageBox::Warning, tr("Not Saved Yet"), unsaved, {}, this);
    question.setObjectName(QStringLiteral("notSavedQuestion"));
    const QPushButton* leave = question.addButton(tr("Close Without Saving"), QMessageBox::DestructiveRole);
    question.setDefaultButton(question.addButton(QMessageBox::Cancel));
    question.exec();
    return question.clickedButton() == leave;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    flush();
    QSettings().setValue(geometryKey, saveGeometry());
    const bool stays = m_tray->refresh() && !m_isEnding;
    if (!stays && !mayLoseWork()) {
        event->ignore();
        return;
    }
    QGuiApplication::setQuitOnLastWindowClosed(!stays);
    event->accept(); // a closed window is shown again as a hidden one is
}

} // namespace Quillary
