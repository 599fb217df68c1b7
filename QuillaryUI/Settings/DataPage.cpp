#include "QuillaryUI/Settings/DataPage.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Backups.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryUI/Settings/PlainTable.h"

#include <QDateTime>
#include <QDesktopServices>
#include <QFutureWatcher>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPromise>
#include <QPushButton>
#include <QTableWidget>
#include <QThreadPool>
#include <QUrl>
#include <QVBoxLayout>

#include <chrono>
#include <memory>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr int tableHeight = 360;

/// What became of a backup.
struct Outcome
{
    fs::path file;
    QString refusal;
};

Outcome makeBackup(const Backups& backups, Instant now)
{
    try {
        return {backups.makeNow(now), {}};
    } catch (const UserError& error) {
        return {{}, text(error.message())};
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

} // namespace

DataPage::DataPage(LibraryAccess& library, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_place(new QLabel(this))
    , m_open(new QPushButton(tr("Open Folder"), this))
    , m_backUp(new QPushButton(tr("Back Up Now"), this))
    , m_backups(PlainTable::make({tr("Made"), tr("Kind"), tr("Size"), tr("File")}, 3, this))
{
    setObjectName(QStringLiteral("dataPage"));
    m_place->setObjectName(QStringLiteral("libraryPlace"));
    m_place->setTextFormat(Qt::PlainText);
    m_place->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_place->setWordWrap(true);
    m_open->setObjectName(QStringLiteral("openFolder"));
    m_backUp->setObjectName(QStringLiteral("backUpNow"));
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
    m_open->setEnabled(!place.empty());
    m_backUp->setEnabled(!place.empty());
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
        }
    });
    if (refusal) {
        Q_EMIT failed(*refusal);
    }
    PlainTable::fill(*m_backups, rows);
}

/// Copied and checked beside the library in use: that may take long and happens on another thread.
void DataPage::backUp()
{
    Q_EMIT told(tr("Making a backup…"));
    m_backUp->setEnabled(false);
    auto* watcher = new QFutureWatcher<Outcome>(this);
    connect(watcher, &QFutureWatcher<Outcome>::finished, this, [this, watcher] {
        const Outcome outcome = watcher->result();
        watcher->deleteLater();
        if (outcome.refusal.isEmpty()) {
            Q_EMIT told(tr("Made %1").arg(text(outcome.file.filename().string())));
        } else {
            Q_EMIT failed(outcome.refusal);
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
