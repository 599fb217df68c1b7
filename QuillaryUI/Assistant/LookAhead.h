#pragma once

#include "QuillaryCore/Assistant/Session/LineBuffer.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace Quillary {

/// Reads on while a call waits for its answer, for the word that the client wants none any more. What was read is kept
/// and is handled in its turn.
class LookAhead
{
public:
    using DidCancel = std::function<void(std::string line)>;

    /// More than this is left with the kernel. Unit: bytes.
    static constexpr std::size_t most = std::size_t{1024} * 1024;

    /// `lines` holds what was read already. `didCancel` gets every line that may take a call back.
    LookAhead(LineBuffer lines, DidCancel didCancel);

    /// Whether there is anything to wait for.
    [[nodiscard]] bool isReading() const { return !m_isAtEnd && m_bytes.size() < most; }

    /// Takes what the socket has.
    void read(int socket);

    /// What was read since the beginning.
    [[nodiscard]] std::string_view bytes() const { return m_bytes; }

private:
    void look();

    LineBuffer m_lines;
    DidCancel m_didCancel;
    std::string m_bytes;
    bool m_isAtEnd = false; ///< of what the client sends; it may still read
};

} // namespace Quillary
