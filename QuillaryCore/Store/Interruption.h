#pragma once

#include <atomic>

namespace Quillary {

class Connection;

/// Lets another thread end what a connection is doing: as long as this lives, whatever runs on the connection fails with
/// a `StoreError` soon after `isWanted` has become true, within some thousand steps of SQLite's. Both arguments outlive it.
class Interruption
{
public:
    Interruption(Connection& connection, const std::atomic<bool>& isWanted);
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;
    ~Interruption();

private:
    Connection& m_connection;
};

} // namespace Quillary
