#pragma once

#include "QuillaryChannel/AssistantChannel.h"
#include "QuillaryCore/Assistant/Session/MCPSession.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryUI/Assistant/Acceptor.h"
#include "QuillaryUI/Assistant/AssistantConnection.h"
#include "QuillaryUI/Assistant/ListeningSocket.h"
#include "QuillaryUI/Assistant/MainThread.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <sys/types.h>
#include <vector>

namespace Quillary {

/// Listens for assistant apps and gives each connection a session of its own.
///
/// Belongs to the main thread and needs its event loop: every line is answered there. Accepting, reading and writing go
/// on beside it.
class AssistantServer
{
public:
    using Error = AssistantServerError;
    using MakeSession = std::function<std::unique_ptr<MCPSession>()>;

    struct Rules
    {
        uid_t user = AssistantChannel::Places().user; ///< whose programs may connect
        std::size_t connections = 256;                ///< at once; more are turned away
        /// How long a client may take no byte of an answer before it is given up.
        std::chrono::milliseconds patience = std::chrono::minutes(1);
    };

    /// Everything that another process needs to go on listening and talking, without the clients noticing.
    struct Handover
    {
        struct Client
        {
            AssistantConnection::Parked connection;
            JSON session; ///< `MCPSession::state`
        };

        ListeningSocket listener;
        std::vector<Client> clients;
    };

    AssistantServer(std::filesystem::path socketPath, MakeSession makeSession);
    AssistantServer(std::filesystem::path socketPath, MakeSession makeSession, Rules rules);
    AssistantServer(const AssistantServer&) = delete;
    AssistantServer& operator=(const AssistantServer&) = delete;
    ~AssistantServer();

    /// Throws: `Error`.
    void start();

    /// Goes on from where another server was released. Throws: `std::system_error` when the system has no thread left.
    void adopt(Handover handover);

    /// Stops accepting, lets the calls under way end, and hands over what `adopt` takes, at once or later. Nothing is
    /// closed or removed; clients that connect or ask in the meantime wait in the kernel. A `stop` before that takes the
    /// release back.
    void release(std::function<void(Handover)> reply);

    /// Like `stop`, but only when no client is there or on its way; false: it goes on. Nobody who comes just then is cut
    /// off: they are served, or find nobody listening and may start another server.
    [[nodiscard]] bool stopIfUnused();

    /// Closes listener and connections and removes the socket's file. Calls under way go on, and nobody hears of them.
    void stop();

    [[nodiscard]] bool isListening() const { return m_acceptor != nullptr; }

    /// How many assistant apps are connected.
    [[nodiscard]] std::size_t connectionCount() const { return m_conversations.size(); }

    /// How many connections were turned away, because their program is another user's or there were too many.
    [[nodiscard]] std::size_t refused() const { return m_refused; }

private:
    using ID = std::uint64_t;

    struct Conversation
    {
        std::shared_ptr<MCPSession> session; ///< shared with the call under way, which may end later
        std::unique_ptr<AssistantConnection> connection;
        bool hasStopped = false;
    };

    void listen(ListeningSocket listener);
    void acceptOnThread();
    void didAccept(Descriptor socket);
    void begin(AssistantConnection::Parked connection, std::shared_ptr<MCPSession> session);
    void answer(ID id, std::string_view line, const std::shared_ptr<AnswerBox>& box);
    void mayCancel(ID id, std::string_view line);
    void didEnd(ID id);
    void parkAll();
    void handOverWhenParked();

    std::filesystem::path m_socketPath;
    MakeSession m_makeSession;
    Rules m_rules;
    ListeningSocket m_listener;
    std::map<ID, Conversation> m_conversations;
    ID m_nextID = 0;
    std::function<void(Handover)> m_release; ///< waits for the last connection to be parked
    bool m_isParking = false;                ///< every accepted connection is here and was told to park
    std::atomic<std::size_t> m_open = 0;     ///< connections, those still on their way to the main thread included
    std::atomic<std::size_t> m_refused = 0;
    MainThread m_mainThread;
    std::unique_ptr<Acceptor> m_acceptor;
};

} // namespace Quillary
