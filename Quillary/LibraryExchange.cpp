#include "Quillary/LibraryExchange.h"

#include "QuillaryCore/Foundation/UserError.h"

#include <QPromise>
#include <QThreadPool>

#include <exception>
#include <utility>

namespace Quillary {

RestoreOutcome
restoreBackup(const Backups& backups, const std::filesystem::path& backup, Instant now, const LibraryLock& lock)
{
    try {
        return {.kept = backups.restore(backup, now, lock), .refusal = {}};
    } catch (const std::exception& error) { // on another thread, where nobody else would hear of it
        return {.kept = {}, .refusal = error.what()};
    }
}

LibraryExchange::LibraryExchange(std::unique_ptr<LibraryLock> lock,
                                 const Backups& backups,
                                 std::filesystem::path backup,
                                 Instant now,
                                 std::function<void()> ended)
    : m_lock(std::move(lock))
{
    QObject::connect(&m_watcher, &QFutureWatcher<RestoreOutcome>::finished, &m_watcher, std::move(ended));
    auto promise = std::make_shared<QPromise<RestoreOutcome>>();
    m_watcher.setFuture(promise->future());
    QThreadPool::globalInstance()->start(
        [promise, backups, backup = std::move(backup), now, &held = std::as_const(*m_lock)] {
            promise->start();
            promise->addResult(restoreBackup(backups, backup, now, held));
            promise->finish();
        });
}

LibraryExchange::~LibraryExchange()
{
    m_watcher.waitForFinished();
}

} // namespace Quillary
