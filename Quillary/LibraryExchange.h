#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Store/Backups.h"
#include "QuillaryCore/Store/LibraryLock.h"
#include "QuillaryUI/Settings/ProgramPlaces.h"

#include <QFuture>
#include <QFutureWatcher>

#include <filesystem>
#include <functional>
#include <memory>

namespace Quillary {

/// A backup on its way to the place of a closed library, on a thread of its own: copying and checking a large one takes
/// seconds. Holds the right to the library meanwhile.
class LibraryExchange
{
public:
    /// `ended` is called from the event loop.
    LibraryExchange(std::unique_ptr<LibraryLock> lock,
                    const Backups& backups,
                    std::filesystem::path backup,
                    Instant now,
                    std::function<void()> ended);
    LibraryExchange(const LibraryExchange&) = delete;
    LibraryExchange& operator=(const LibraryExchange&) = delete;
    /// Waits: an exchange that has begun is brought to its end.
    ~LibraryExchange();

    // Once it has ended.
    [[nodiscard]] RestoreOutcome outcome() const { return m_watcher.result(); }
    [[nodiscard]] std::unique_ptr<LibraryLock> takeLock() { return std::move(m_lock); }

private:
    std::unique_ptr<LibraryLock> m_lock;
    QFutureWatcher<RestoreOutcome> m_watcher;
};

/// Puts a backup in the place of the library, which nobody has open. A refusal leaves the library as it was.
[[nodiscard]] RestoreOutcome
restoreBackup(const Backups& backups, const std::filesystem::path& backup, Instant now, const LibraryLock& lock);

} // namespace Quillary
