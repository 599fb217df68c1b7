#pragma once

#include <filesystem>
#include <future>

struct sqlite3;

namespace Quillary {

class Store;

/// Moves what is saved from the log into the library's file beside the work, so that nobody's save waits for it: SQLite
/// by itself does so within every hundredth save or so, which then takes as long as some frames of a window.
///
/// For as long as it lives; the store must outlive it. Belongs to the store's thread. A failure is none: the log has
/// everything, and the next save tries again.
class LogKeeper
{
public:
    /// Does nothing for a store that is in memory or only read.
    explicit LogKeeper(Store& store);
    LogKeeper(const LogKeeper&) = delete;
    LogKeeper& operator=(const LogKeeper&) = delete;

    /// Waits for what it has begun.
    ~LogKeeper();

private:
    static int committed(void* self, sqlite3* connection, const char* schema, int pageCount);
    void shortenBeside();

    std::filesystem::path m_file;
    sqlite3* m_connection = nullptr; ///< null: there is nothing to do
    std::future<void> m_work;
};

} // namespace Quillary
