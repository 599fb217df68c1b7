#include "QuillaryCore/Store/Interruption.h"

#include "QuillaryCore/Store/Connection.h"

#include <sqlite3.h>

namespace Quillary {

namespace {

constexpr int stepsBetweenLooks = 4096; ///< some ten microseconds: nobody waits for it, and nothing gets slower

int isWantedNow(void* isWanted)
{
    return static_cast<const std::atomic<bool>*>(isWanted)->load() ? 1 : 0;
}

} // namespace

Interruption::Interruption(Connection& connection, const std::atomic<bool>& isWanted)
    : m_connection(connection)
{
    // SQLite hands the pointer back and changes nothing behind it.
    sqlite3_progress_handler(
        connection.handle(), stepsBetweenLooks, isWantedNow, const_cast<std::atomic<bool>*>(&isWanted));
}

Interruption::~Interruption()
{
    sqlite3_progress_handler(m_connection.handle(), 0, nullptr, nullptr);
}

} // namespace Quillary
