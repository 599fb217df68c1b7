#include "QuillaryCore/Store/LogKeeper.h"

#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/Store.h"

#include <sqlite3.h>

#include <chrono>
#include <system_error>

namespace Quillary {

namespace {

constexpr int pagesWorthMoving = 1000; // 4 MB, which SQLite takes for much, too

/// From here on a save waits after all: without that a log to which somebody writes all the time would never end.
constexpr int mostPages = 16'000;

void shorten(sqlite3* connection)
{
    sqlite3_wal_checkpoint_v2(connection, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
}

} // namespace

LogKeeper::LogKeeper(Store& store)
    : m_file(store.location().file())
{
    if (!store.location().isInMemory() && !store.isReadOnly()) {
        m_connection = store.connection().handle();
        sqlite3_wal_hook(m_connection, &LogKeeper::committed, this);
    }
}

LogKeeper::~LogKeeper()
{
    if (m_connection != nullptr) {
        sqlite3_wal_autocheckpoint(m_connection, pagesWorthMoving); // takes the hook's place
    }
}

int LogKeeper::committed(void* self, sqlite3* connection, const char* /*schema*/, int pageCount)
{
    if (pageCount >= mostPages) {
        shorten(connection);
    } else if (pageCount >= pagesWorthMoving) {
        static_cast<LogKeeper*>(self)->shortenBeside();
    }
    return SQLITE_OK;
}

void LogKeeper::shortenBeside()
{
    if (m_work.valid() && m_work.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        return;
    }
    const auto work = [file = m_file] {
        try {
            const Connection connection(file, Connection::Access::readWrite);
            shorten(connection.handle());
        } catch (const StoreError&) { // NOLINT(bugprone-empty-catch): the next save tries again
        }
    };
    try {
        m_work = std::async(std::launch::async, work);
    } catch (const std::system_error&) { // no thread to be had: the save waits, as it would without us
        shorten(m_connection);
    }
}

} // namespace Quillary
