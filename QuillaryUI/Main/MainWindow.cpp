#include "QuillaryUI/Main/MainWindow.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Catalog/CatalogSection.h"
#include "QuillaryUI/Clients/ClientsSection.h"
#include "QuillaryUI/Documents/DocumentPane.h"
#include "QuillaryUI/Documents/DocumentsSection.h"
#include "QuillaryUI/Documents/StatusText.h"
#include "QuillaryUI/Lock/LockKeeper.h"
#include "QuillaryUI/Lock/LockPage.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Main/FirstStart.h"
#include "QuillaryUI/Main/QuickOpen.h"
#include "QuillaryUI/Overview/OverviewSection.h"
#include "QuillaryUI/Reports/ReportsSection.h"
#include "QuillaryUI/Schedules/RecurringSection.h"
#include "QuillaryUI/Schedules/TimeSection.h"
#include "QuillaryUI/Settings/SettingsSection.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillary {

namespace {

constexpr int sidebarWidth = 200;
constexpr int entryHeight = 36;
constexpr int usualWidth = 1360;
constexpr int usualHeight = 860;
constexpr int noticeTime = 8'000; ///< milliseconds
constexpr int mostNumbered = 9;

const QString geometryKey = QStringLiteral("window/geometry");

} // namespace

MainWindow::MainWindow(LibraryAccess& library, const ProgramPlaces& places, QWidget* parent)
    : QMainWindow(parent)
    , m_library(library)
    , m_whole(new QStackedWidget(this))
    , m_sidebar(new QListWidget(this))
    , m_pages(new QStackedWidget(this))
    , m_warning(new QFrame(this))
    , m_warningText(new QLabel(this))
    , m_lock(new LockKeeper(places.lock, places.now, this))
    , m_lockPage(new LockPage(*m_lock, this))
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowTitle(QStringLiteral("Quillary"));
    m_sidebar->setObjectName(QStringLiteral("sidebar"));
    m_sidebar->setAccessibleName(tr("Sections"));
    m_sidebar->setFixedWidth(sidebarWidth);
    m_sidebar->setIconSize({20, 20});
    m_sidebar->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    m_warning->setObjectName(QStringLiteral("warning"));
    m_warningText->setObjectName(QStringLiteral("warningText"));
    m_warningText->setWordWrap(true);
    auto* dismiss = new QToolButton(m_warning);
    dismiss->setText(tr("Close"));
    connect(dismiss, &QToolButton::clicked, m_warning, &QFrame::hide);
    auto* sign = new QLabel(m_warning);
    sign->setPixmap(Theme::icon(QStringLiteral("warning")).pixmap(20, 20));
    auto* row = new QHBoxLayout(m_warning);
    row->addWidget(sign);
    row->addWidget(m_warningText, 1);
    row->addWidget(dismiss);
    m_warning->hide();

    auto* middle = new QWidget(this);
    auto* right = new QVBoxLayout;
    right->setSpacing(0);
    right->addWidget(m_warning);
    right->addWidget(m_pages, 1);
    auto* columns = new QHBoxLayout(middle);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(m_sidebar);
    columns->addLayout(right, 1);
    m_whole->addWidget(middle);
    setCentralWidget(m_whole);

    addSections(places);
    connect(m_sidebar, &QListWidget::currentRowChanged, this, [this](int place) {
        flush();
        m_pages->setCurrentIndex(place);
    });
    connect(&library, &LibraryAccess::closing, this, [this] { m_pages->setEnabled(false); });
    connect(&library, &LibraryAccess::opened, this, [this] { m_pages->setEnabled(true); });
    buildMenus();
    restoreLayout();
    m_sidebar->setCurrentRow(0);
    if (FirstStart::isNeeded(library)) {
        showFirstStart();
    }
    prepareLock();
}

MainWindow::~MainWindow() = default;

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
        showSection(QStringLiteral("settings"));
        section(QStringLiteral("settings"))->showPage(QStringLiteral("security"));
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
    if (m_whole->currentWidget() == m_pages->parentWidget()) {
        m_pages->currentWidget()->setFocus(Qt::OtherFocusReason);
    }
}

void MainWindow::addOverview()
{
    auto* overview = new OverviewSection(m_library, this);
    addSection(QStringLiteral("overview"), tr("Overview"), QStringLiteral("overview"), overview);
    connect(overview, &OverviewSection::wantedSection, this, &MainWindow::showSection);
    connect(overview, &OverviewSection::wantedDocuments, this, &MainWindow::showDocuments);
    connect(overview, &OverviewSection::wantedNew, this, [this](DocumentKind kind) {
        if (DocumentsSection* documents = documentsSection(kind)) {
            m_sidebar->setCurrentRow(m_pages->indexOf(documents));
            documents->makeNew();
        }
    });
}

DocumentsSection* MainWindow::documentsSection(DocumentKind kind) const
{
    for (const Entry& entry : m_sections) {
        auto* documents = qobject_cast<DocumentsSection*>(entry.section);
        if (documents != nullptr && documents->kind() == kind) {
            return documents;
        }
    }
    return nullptr;
}

void MainWindow::showDocuments(DocumentKind kind, DisplayStatus status)
{
    if (DocumentsSection* documents = documentsSection(kind)) {
        m_sidebar->setCurrentRow(m_pages->indexOf(documents));
        documents->setStatus(status);
    }
}

void MainWindow::addSections(const ProgramPlaces& places)
{
    addOverview();
    for (const auto& [kind, name, icon] : {std::tuple(DocumentKind::invoice, "invoices", "invoice"),
                                           std::tuple(DocumentKind::quote, "quotes", "quote"),
                                           std::tuple(DocumentKind::creditNote, "credit-notes", "credit-note")}) {
        addSection(QString::fromLatin1(name),
                   StatusText::kinds(kind),
                   QString::fromLatin1(icon),
                   new DocumentsSection(m_library, kind, this));
    }
    addSection(QStringLiteral("recurring"),
               tr("Recurring"),
               QStringLiteral("recurring"),
               new RecurringSection(m_library, this));
    addSection(
        QStringLiteral("clients"), tr("Clients"), QStringLiteral("clients"), new ClientsSection(m_library, this));
    addSection(
        QStringLiteral("catalog"), tr("Catalog"), QStringLiteral("catalog"), new CatalogSection(m_library, this));
    addSection(QStringLiteral("time"), tr("Time"), QStringLiteral("time"), new TimeSection(m_library, this));
    addSection(
        QStringLiteral("reports"), tr("Reports"), QStringLiteral("reports"), new ReportsSection(m_library, this));
    addSection(QStringLiteral("settings"),
               tr("Settings"),
               QStringLiteral("settings"),
               new SettingsSection(m_library, places, this));
}

void MainWindow::addSection(const QString& name, const QString& title, const QString& icon, Section* section)
{
    auto* item = new QListWidgetItem(Theme::icon(icon), title, m_sidebar);
    item->setSizeHint({sidebarWidth - 20, entryHeight});
    m_pages->addWidget(section);
    m_sections.push_back({name, section});
    connect(section, &Section::told, this, &MainWindow::tell);
    connect(section, &Section::failed, this, &MainWindow::warn);
    connect(section, &Section::wantedDocument, this, &MainWindow::showDocument);
    connect(section, &Section::wantedClient, this, &MainWindow::showClient);
}

void MainWindow::buildMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("New"), QKeySequence::New, this, [this] { current()->makeNew(); });
    file->addAction(tr("Quick Open…"), QKeySequence(QStringLiteral("Ctrl+K")), this, [this] {
        auto* quick = new QuickOpen(m_library, this);
        connect(quick, &QuickOpen::wantedDocument, this, &MainWindow::showDocument);
        connect(quick, &QuickOpen::wantedClient, this, &MainWindow::showClient);
        quick->begin();
    });
    file->addSeparator();
    file->addAction(tr("Lock"), QKeySequence(QStringLiteral("Ctrl+L")), this, &MainWindow::lock);
    file->addAction(tr("Quit"), QKeySequence::Quit, this, &QWidget::close);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    QAction* undoAction = edit->addAction(tr("Undo"), QKeySequence::Undo, this, [this] { undo(false); });
    QAction* redoAction =
        edit->addAction(tr("Redo"), QKeySequence(QStringLiteral("Ctrl+Shift+Z")), this, [this] { undo(true); });
    connect(edit, &QMenu::aboutToShow, this, [this, undoAction, redoAction] {
        const bool isOpen = m_library.isOpen();
        const auto last = isOpen ? m_library.context().undoName() : std::nullopt;
        const auto next = isOpen ? m_library.context().redoName() : std::nullopt;
        undoAction->setText(last ? tr("Undo %1").arg(text(*last)) : tr("Undo"));
        redoAction->setText(next ? tr("Redo %1").arg(text(*next)) : tr("Redo"));
    });
    edit->addSeparator();
    edit->addAction(tr("Settings"), QKeySequence(QStringLiteral("Ctrl+,")), this, [this] {
        showSection(QStringLiteral("settings"));
    });
    edit->addAction(tr("Find in This List"), QKeySequence::Find, this, [this] { current()->find(); });

    QMenu* view = menuBar()->addMenu(tr("&View"));
    for (int place = 0; place < m_sidebar->count(); ++place) {
        QAction* action =
            view->addAction(m_sidebar->item(place)->text(), this, [this, place] { m_sidebar->setCurrentRow(place); });
        if (place < mostNumbered) {
            action->setShortcut(QKeySequence(QStringLiteral("Ctrl+%1").arg(place + 1)));
        }
    }
    buildDocumentMenu(*menuBar()->addMenu(tr("&Document")));
}

/// The actions belong to the pane of each section; the menu shows those of the one in front.
void MainWindow::buildDocumentMenu(QMenu& menu)
{
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] {
        menu.clear();
        if (auto* documents = qobject_cast<DocumentsSection*>(current())) {
            menu.addActions(documents->pane().documentActions());
        }
        if (menu.isEmpty()) {
            menu.addAction(tr("No document is chosen"))->setEnabled(false);
        }
    });
}

void MainWindow::showFirstStart()
{
    auto* first = new FirstStart(m_library, this);
    m_whole->addWidget(first);
    m_whole->setCurrentWidget(first);
    menuBar()->setEnabled(false);
    connect(first, &FirstStart::finished, this, [this, first] {
        menuBar()->setEnabled(true);
        m_whole->setCurrentIndex(0);
        first->deleteLater();
        showSection(QStringLiteral("invoices"));
    });
}

void MainWindow::undo(bool isRedo)
{
    flush();
    const auto refusal = m_library.attempt([&] {
        Context& context = m_library.context();
        if (isRedo && context.redoName()) {
            context.redo();
        } else if (!isRedo && context.undoName()) {
            context.undo();
        }
    });
    if (refusal) {
        warn(*refusal);
    }
}

void MainWindow::showSection(const QString& name)
{
    for (std::size_t place = 0; place < m_sections.size(); ++place) {
        if (m_sections[place].name == name) {
            m_sidebar->setCurrentRow(int(place));
        }
    }
}

Section* MainWindow::section(const QString& name) const
{
    const auto found = std::ranges::find(m_sections, name, &Entry::name);
    return found == m_sections.end() ? nullptr : found->section;
}

QStringList MainWindow::sectionNames() const
{
    QStringList names;
    for (const Entry& entry : m_sections) {
        names.push_back(entry.name);
    }
    return names;
}

Section* MainWindow::current() const
{
    return m_sections[static_cast<std::size_t>(m_pages->currentIndex())].section;
}

void MainWindow::showDocument(std::int64_t key)
{
    const Document* document = m_library.isOpen() ? m_library.context().find(Ref<Document>(key)) : nullptr;
    if (document == nullptr) {
        return;
    }
    const DocumentKind kind = Quillary::kind(*document).value_or(DocumentKind::invoice);
    if (kind == DocumentKind::recurring) {
        showSection(QStringLiteral("recurring"));
        qobject_cast<RecurringSection*>(section(QStringLiteral("recurring")))->showTemplate(key);
    } else if (DocumentsSection* documents = documentsSection(kind)) {
        m_sidebar->setCurrentRow(m_pages->indexOf(documents));
        documents->showDocument(key);
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
    for (const Entry& entry : m_sections) {
        entry.section->flush();
    }
}

void MainWindow::refreshDay()
{
    for (const Entry& entry : m_sections) {
        entry.section->refreshDay();
    }
}

void MainWindow::tell(const QString& sentence)
{
    if (!isLocked()) {
        statusBar()->showMessage(sentence, noticeTime);
    }
}

void MainWindow::warn(const QString& sentence)
{
    m_warningText->setText(sentence);
    m_warning->show();
}

void MainWindow::restoreLayout()
{
    resize(usualWidth, usualHeight);
    restoreGeometry(QSettings().value(geometryKey).toByteArray());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    flush();
    QSettings().setValue(geometryKey, saveGeometry());
    event->accept();
}

} // namespace Quillary
