#include "Quillary/LibraryLoan.h"

#include "Quillary/Handover.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/Precondition.h"

#include <array>
#include <cerrno>
#include <sys/socket.h>
#include <utility>

namespace Quillary {

LibraryLoan::LibraryLoan(Kind kind, Descriptor asker, Contents contents)
    : m_kind(kind)
    , m_asker(std::move(asker))
    , m_contents(std::move(contents))
{
}

bool LibraryLoan::give(const std::filesystem::path& socketPath)
{
    return m_kind == Kind::handedOver ? handOver(socketPath) : lend();
}

bool LibraryLoan::lend() const
{
    ControlMessage answer{.body = JSON::object({{"did", "lend"}})};
    answer.descriptors.push_back(Descriptor::duplicateOf(m_contents.lock->descriptor()));
    return answer.descriptors.front().isOpen() && ControlChannel::send(m_asker.number(), answer);
}

bool LibraryLoan::handOver(const std::filesystem::path& socketPath)
{
    Descriptor lock = Descriptor::duplicateOf(m_contents.lock->descriptor());
    if (!lock.isOpen()) {
        return false;
    }
    ControlMessage message = Handover::packed(
        {.lock = std::move(lock), .socketPath = socketPath, .assistants = std::move(m_contents.assistants)});
    const bool isSent = ControlChannel::send(m_asker.number(), message);
    Handover kept = Handover::unpacked(std::move(message)).value_or(Handover());
    precondition(kept.lock.isOpen(), "what was packed can be unpacked");
    m_contents.assistants = std::move(kept.assistants);
    return isSent;
}

LibraryLoan::Word LibraryLoan::hear() const
{
    std::array<char, 64> ignored{};
    const ssize_t count = recv(m_asker.number(), ignored.data(), ignored.size(), MSG_DONTWAIT);
    const bool isLater = count < 0 && (errno == EINTR || errno == EAGAIN);
    if (isLater || (count > 0 && m_kind == Kind::lent)) {
        return Word::none;
    }
    return count > 0 ? Word::takenOver : Word::returned;
}

LibraryLoan::Contents LibraryLoan::takeBack()
{
    return std::move(m_contents);
}

} // namespace Quillary
