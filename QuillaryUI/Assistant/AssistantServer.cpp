#include "QuillaryUI/Assistant/AssistantServer.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <algorithm>
#include <cstdio>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace Quillary {

AssistantServer::AssistantServer(std::filesystem::path socketPath, MakeSession makeSession)
    : AssistantServer(std::move(socketPath), std::move(makeSession), Rules())
{
}

AssistantServer::AssistantServer(std::filesystem::path socketPath, MakeSession makeSession, Rules rules)
    : m_socketPath(std::move(socketPath))
    , m_makeSession(std::move(makeSession))
    , m_rules(rules)
{
}

AssistantServer::~AssistantServer()
{
    stop();
}

void AssistantServer::start()
{
    precondition(!isListening(), "a server is started once");
    listen(ListeningSocket::open(m_socketPath));
}

void AssistantServer::adopt(Handover handover)
{
    precondition(!isListening(), "a server is started once");
    for (Handover::Client& client : handover.clients) {
        std::shared_ptr<MCPSession> session = m_makeSession();
        session->restore(client.session);
        m_open += 1;
        begin(std::move(client.connection), std::move(session));
    }
    listen(std::move(handover.listener));
}

void AssistantServer::listen(ListeningSocket listener)
{
    m_listener = std::move(listener);
    acceptOnThread();
}

void AssistantServer::acceptOnThread()
{
    m_acceptor = std::make_unique<Acceptor>(m_listener.socket.number(),
                                            [this](Descriptor socket) { didAccept(std::move(socket)); });
}

/// On the accepting thread.
void AssistantServer::didAccept(Descriptor socket)
{
    if (!AssistantChannel::isPeerOf(m_rules.user, socket.number()) || m_open >= m_rules.connections) {
        m_refused += 1;
        return;
    }
    m_open += 1;
    m_mainThread.post([this, accepted = std::move(socket)]() mutable {
        if (!isListening() && !m_release) { // stopped in the meantime
            m_open -= 1;
            return;
        }
        begin({.socket = std::move(accepted), .received = {}, .unsent = {}}, m_makeSession());
    });
}

void AssistantServer::begin(AssistantConnection::Parked connection, std::shared_ptr<MCPSession> session)
{
    const ID id = m_nextID++;
    AssistantConnection::Events events;
    events.didReceive = [this, id](std::string line, const std::shared_ptr<AnswerBox>& box) {
        m_mainThread.post([this, id, box, request = std::move(line)] { answer(id, request, box); });
    };
    events.mayCancel = [this, id](std::string line) {
        m_mainThread.post([this, id, notification = std::move(line)] { mayCancel(id, notification); });
    };
    events.didEnd = [this, id] {
        m_mainThread.post([this, id] { didEnd(id); });
    };
    try {
        auto begun = std::make_unique<AssistantConnection>(std::move(connection), m_rules.patience, std::move(events));
        m_conversations.emplace(id, Conversation{.session = std::move(session), .connection = std::move(begun)});
    } catch (const std::system_error&) { // no thread or descriptor left: this client goes, the others stay
        m_open -= 1;
        m_refused += 1;
    }
}

void AssistantServer::answer(ID id, std::string_view line, const std::shared_ptr<AnswerBox>& box)
{
    const auto found = m_conversations.find(id);
    if (found == m_conversations.end()) {
        return;
    }
    const std::shared_ptr<MCPSession> session = found->second.session;
    session->handle(line, [session, box](std::optional<std::string> text) { box->put(std::move(text)); });
}

void AssistantServer::mayCancel(ID id, std::string_view line)
{
    const auto found = m_conversations.find(id);
    if (found != m_conversations.end()) {
        const std::shared_ptr<MCPSession> session = found->second.session;
        session->cancelIfAsked(line);
    }
}

void AssistantServer::didEnd(ID id)
{
    const auto found = m_conversations.find(id);
    if (found == m_conversations.end()) {
        return;
    }
    if (found->second.connection->wasParked()) {
        found->second.hasStopped = true;
    } else {
        found->second.session->abandon();
        m_conversations.erase(found);
        m_open -= 1;
    }
    handOverWhenParked();
}

void AssistantServer::release(std::function<void(Handover)> reply)
{
    precondition(isListening() && !m_release, "a server that listens is released once");
    m_release = std::move(reply);
    m_acceptor.reset();
    // Behind the connections that were accepted and are on their way here.
    m_mainThread.post([this] { parkAll(); });
}

void AssistantServer::parkAll()
{
    if (!m_release) {
        return; // stopped in the meantime
    }
    m_isParking = true;
    for (auto& [id, conversation] : m_conversations) {
        conversation.connection->park();
    }
    handOverWhenParked();
}

void AssistantServer::handOverWhenParked()
{
    const auto hasStopped = [](const auto& entry) {
        return entry.second.hasStopped;
    };
    if (!m_release || !m_isParking || !std::ranges::all_of(m_conversations, hasStopped)) {
        return;
    }
    Handover handover;
    handover.listener = std::move(m_listener);
    for (auto& [id, conversation] : m_conversations) {
        handover.clients.push_back(
            {.connection = conversation.connection->take(), .session = conversation.session->state()});
    }
    m_open -= m_conversations.size();
    m_conversations.clear();
    m_isParking = false;
    std::exchange(m_release, nullptr)(std::move(handover));
}

bool AssistantServer::stopIfUnused()
{
    precondition(isListening() && !m_release, "only a server that listens stops for want of clients");
    m_acceptor.reset();
    Descriptor late;
    if (m_open == 0) {
        // Moved away, the socket gets no new clients and keeps those that are in its queue; our lock keeps the path.
        const std::filesystem::path aside = m_socketPath.string() + ".ending";
        const bool isAside = rename(m_socketPath.c_str(), aside.c_str()) == 0;
        late = Descriptor(accept4(m_listener.socket.number(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!late.isOpen()) {
            unlink(aside.c_str());
            m_listener = {};
            return true;
        }
        if (isAside) {
            static_cast<void>(rename(aside.c_str(), m_socketPath.c_str()));
        }
    }
    if (late.isOpen()) {
        didAccept(std::move(late));
    }
    acceptOnThread();
    return false;
}

void AssistantServer::stop()
{
    m_acceptor.reset();
    m_release = nullptr;
    m_isParking = false;
    for (auto& [id, conversation] : m_conversations) {
        conversation.session->abandon();
    }
    m_open -= m_conversations.size();
    m_conversations.clear();
    if (m_listener.socket.isOpen()) {
        unlink(m_socketPath.c_str());
        m_listener = {};
    }
}

} // namespace Quillary
