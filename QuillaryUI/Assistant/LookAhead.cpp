#include "QuillaryUI/Assistant/LookAhead.h"

#include <array>
#include <cerrno>
#include <sys/socket.h>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t readSize = 65536;

} // namespace

LookAhead::LookAhead(LineBuffer lines, DidCancel didCancel)
    : m_lines(std::move(lines))
    , m_didCancel(std::move(didCancel))
{
    look();
}

void LookAhead::read(int socket)
{
    std::array<char, readSize> bytes; // filled by the call
    const ssize_t count = recv(socket, bytes.data(), bytes.size(), MSG_DONTWAIT);
    if (count > 0) {
        const std::string_view read(bytes.data(), static_cast<std::size_t>(count));
        m_bytes += read;
        m_lines.append(read);
        look();
    } else {
        m_isAtEnd = count == 0 || (errno != EAGAIN && errno != EINTR);
    }
}

/// The session reads the line properly; here it is only not worth a task for every line.
void LookAhead::look()
{
    while (auto line = m_lines.next()) {
        if (line->text.contains("cancelled")) {
            m_didCancel(std::move(line->text));
        }
    }
}

} // namespace Quillary
