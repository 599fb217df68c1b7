#include "QuillaryUI/Settings/DataPage.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Backups.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Settings/PlainTable.h"

#include <QDateTime>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPointer>
#include <QPromise>
#include <QPushButton>
#include <QTableWidget>
#include <QThreadPool>
#include <QUrl>
#include <QVBoxLayout>

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr int tableHeight = 360;

/// What became of a backup.
struct Outcome
{
    fs::path file;
    std::string refusal; ///< as the core says it; empty: it was made
};

Outcome makeBackup(const Backups& backups, Instant now)
{
    try {
        return {backups.makeNow(now), {}};
    } catch (const UserError& error) {
        return {{}, error.message()};
    }
}

QString kindText(BackupKind kind)
{
    switch (kind) {
    case BackupKind::automatic:
        return DataPage::tr("Of the day");
    case BackupKind::manual:
        return DataPage::tr("Made by you");
    case BackupKind::beforeRestore:
        return DataPage::tr("Before a restore");
    case BackupKind::beforeUpgrade:
        return DataPage::tr("Before an upgrade");
    }
    return {};
}

QString timeText(const BackupName& name)
{
    // As a clock on the wall showed it then: no zone is applied.
    const QDateTime made = QDateTime::fromSecsSinceEpoch(name.made.time_since_epoch().count(), Qt::UTC);
    return name.kind == BackupKind::automatic ? QLocale().toString(made.date(), QLocale::ShortFormat)
                                              : QLocale().toString(made, QLocale::ShortFormat);
}

/// The one question that is asked before: what goes can be had back, but not by undoing.
bool askForRestore(QWidget* parent, const QString& backup)
{
    QMessageBox box(QMessageBox::Warning,
                    DataPage::tr("Restore Backup"),
                    DataPage::tr("Put %1 in the place of the library?").arg(backup),
                    QMessageBox::Cancel,
                    parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(DataPage::tr(
        "What was entered or changed since then will not be in the library any more. The library as it is now stays "
        "among the backups as “Quillary Before Restore”, and can be restored from there. Assistants wait until it is "
        "done."));
    const auto* yes = box.addButton(DataPage::tr("Restore"), QMessageBox::AcceptRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == yes;
}

QString askForFile(QWidget* parent, const QString& folder)
{
    return QFileDialog::getOpenFileName(
        parent, DataPage::tr("Restore Backup"), folder, DataPage::tr("Backups (*.sqlite);;All files (*)"));
}

} // namespace

DataPage::DataPage(LibraryAccess& library, ProgramPlaces::Restore restore, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_restore(std::move(restore))
    , m_ask(askForRestore)
    , m_chooseFile(askForFile)
    , m_place(new QLabel(this))
    , m_open(new QPushButton(tr("Open Folder"), this))
    , m_backUp(new QPushButton(tr("Back Up Now"), this))
    , m_restoreChosen(new QPushButton(tr("Restore…"), this))
    , m_restoreFile(new QPushButton(tr("Restore from File…"), this))
    , m_backups(PlainTable::make({tr("Made"), tr("Kind"), tr("Size"), tr("File")}, 3, this))
{
    setObjectName(QStringLiteral("dataPage"));
    m_place->setObjectName(QStringLiteral("libraryPlace"));
    m_place->setTextFormat(Qt::PlainText);
    m_place->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_place->setWordWrap(true);
    m_open->setObjectName(QStringLiteral("openFolder"));
    m_backUp->setObjectName(QStringLiteral("backUpNow"));
    m_restoreChosen->setObjectName(QStringLiteral("restoreBackup"));
    m_restoreChosen->setAccessibleName(tr("Restore the chosen backup"));
    m_restoreFile->setObjectName(QStringLiteral("restoreFile"));
    m_backups->setObjectName(QStringLiteral("backups"));
    m_backups->setAccessibleName(tr("Backups"));
    m_backups->setFixedHeight(tableHeight);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_backUp);
    buttons->addWidget(m_open);
    buttons->addStretch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(m_place);
    column->addLayout(buttons);
    column->addWidget(PlainTable::heading(tr("Backups"), this));
    column->addWidget(m_backups);
    auto* below = new QHBoxLayout;
    below->addWidget(m_restoreChosen);
    below->addWidget(m_restoreFile);
    below->addStretch();
    column->addLayout(below);
    connect(m_restoreChosen, &QPushButton::clicked, this, &DataPage::restoreChosen);
    connect(m_restoreFile, &QPushButton::clicked, this, &DataPage::restoreFile);
    connect(m_backups, &QTableWidget::itemSelectionChanged, this, &DataPage::allow);
    connect(&library, &LibraryAccess::closing, this, [this] { setEnabled(false); });
    connect(m_open, &QPushButton::clicked, this, [this] {
        QDesktopServices::openUrl(QUrl::fromLocalFile(text(folder().string())));
    });
    connect(m_backUp, &QPushButton::clicked, this, &DataPage::backUp);
    connect(&library, &LibraryAccess::opened, this, &DataPage::refresh);
}

void DataPage::showEvent(QShowEvent* event)
{
    Section::showEvent(event);
    refresh();
}

fs::path DataPage::folder() const
{
    return m_library.isOpen() ? fs::path(m_library.context().store().location().folder()) : fs::path();
}

void DataPage::refresh()
{
    const fs::path place = folder();
    setEnabled(m_library.isOpen());
    if (!m_library.isOpen()) {
        return;
    }
    m_files.clear();
    m_place->setText(place.empty() ? tr("This library is in memory only and goes when the program ends.")
                                   : tr("The library is in %1").arg(text(fs::absolute(place).string())));
    QList<QStringList> rows;
    const auto refusal = place.empty() ? std::nullopt : m_library.attempt([&] {
        const Backups backups(fs::absolute(place), DataModel::history(), m_library.formats().calendar());
        for (const Backups::Entry& entry : backups.list()) {
            rows.push_back({timeText(entry.name),
                            kindText(entry.name.kind),
                            QLocale().formattedDataSize(qint64(entry.bytes)),
                            text(entry.file.filename().string())});
            m_files.push_back(entry.file);
        }
    });
    if (refusal) {
        Q_EMIT failed(*refusal);
    }
    PlainTable::fill(*m_backups, rows);
    allow();
}

/// What can be done now. A library in memory has no backups, and one thing is done after the other.
void DataPage::allow()
{
    const bool hasPlace = !folder().empty();
    const bool canRestore = hasPlace && !m_isBusy && m_restore != nullptr;
    m_open->setEnabled(hasPlace);
    m_backUp->setEnabled(hasPlace && !m_isBusy);
    m_restoreFile->setEnabled(canRestore);
    m_restoreChosen->setEnabled(canRestore && !m_backups->selectedItems().isEmpty());
}

void DataPage::restoreChosen()
{
    const auto chosen = m_backups->selectedItems();
    const auto row = chosen.isEmpty() ? m_files.size() : std::size_t(chosen.front()->row());
    if (row < m_files.size()) {
        const fs::path file = m_files[row]; // the list may be read anew while the question is open
        restore(file, tr("the backup of %1").arg(m_backups->item(int(row), 0)->text()));
    }
}

void DataPage::restoreFile()
{
    const QString file = m_chooseFile(this, text(fs::absolute(folder()).string()));
    if (!file.isEmpty()) {
        restore(fs::path(utf8(file)), tr("the backup %1").arg(QFileInfo(file).fileName()));
    }
}

void DataPage::restore(const fs::path& backup, const QString& name)
{
    if (!m_restore || m_isBusy || !m_ask(this, name)) {
        return;
    }
    m_isBusy = true;
    allow();
    Q_EMIT told(tr("Restoring %1…").arg(name));
    m_restore(backup, [page = QPointer<DataPage>(this), name](const RestoreOutcome& outcome) {
        if (page == nullptr) {
            return;
        }
        page->m_isBusy = false;
        page->refresh();
        if (!outcome.refusal.empty()) {
            Q_EMIT page->failed(tr("The backup was not restored; the library is as it was. %1")
                                    .arg(CoreText::sentence(outcome.refusal)));
        } else if (outcome.kept) {
            Q_EMIT page->told(tr("Restored %1. The library as it was is kept as %2")
                                  .arg(name, text(outcome.kept->filename().string())));
        } else {
            Q_EMIT page->told(tr("Restored %1.").arg(name));
        }
    });
}

/// Copied and checked beside the library in use: that may take long and happens on another thread.
void DataPage::backUp()
{
    Q_EMIT told(tr("Making a backup…"));
    m_isBusy = true;
    allow();
    auto* watcher = new QFutureWatcher<Outcome>(this);
    connect(watcher, &QFutureWatcher<Outcome>::finished, this, [this, watcher] {
        const Outcome outcome = watcher->result();
        watcher->deleteLater();
        m_isBusy = false;
        if (outcome.refusal.empty()) {
            Q_EMIT told(tr("Made %1").arg(text(outcome.file.filename().string())));
        } else {
            Q_EMIT failed(CoreText::sentence(outcome.refusal));
        }
        refresh();
    });
    auto promise = std::make_shared<QPromise<Outcome>>();
    watcher->setFuture(promise->future());
    const Backups backups(fs::absolute(folder()), DataModel::history(), m_library.formats().calendar());
    QThreadPool::globalInstance()->start([promise, backups, now = m_library.now()] {
        promise->start();
        promise->addResult(makeBackup(backups, now));
        promise->finish();
    });
}

} // namespace Quillary
