#pragma once

#include <array>
#include <cstddef>
#include <poll.h>

namespace Quillary {

/// Bytes on their way in one direction. New ones are taken only when all before them were passed on, so what waits is
/// bounded here, and beyond that by what the system holds for a pipe or a socket.
class Passage
{
public:
    [[nodiscard]] bool isEmpty() const { return m_begin == m_end; }

    /// Whether the source has ended, or nothing more is wanted from it.
    [[nodiscard]] bool hasEnded() const { return m_hasEnded; }
    [[nodiscard]] bool isDone() const { return isEmpty() && m_hasEnded; }

    /// Reads once, into an empty passage.
    void fill(int source);

    /// Writes what it can without waiting. Returns 0, or the error that ends the direction.
    [[nodiscard]] int drainToSocket(int socket);

    /// The same for a descriptor that `poll` has called writable. It may be shared with other programs and blocking, so
    /// no more is written than fits without waiting.
    [[nodiscard]] int drainToOutput(int output);

    /// Drops what waits, and takes no more.
    void abandon();

private:
    [[nodiscard]] int advance(long count);

    std::array<char, 65536> m_bytes;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    bool m_hasEnded = false;
};

/// Copies input to socket and socket to output, unchanged and without looking at the bytes.
///
/// The end of the input is passed on and waits for the answers still under way; the end of the socket, or an output that
/// nobody reads any more, ends everything. Waits in `poll` only, so an idle relay costs nothing.
class Relay
{
public:
    /// Borrows the descriptors, which stay open. The socket may be blocking.
    Relay(int input, int output, int socket);

    /// Returns 0, or the error for which the output could not be written; an output without a reader is none.
    [[nodiscard]] int run();

private:
    using Ends = std::array<pollfd, 3>;

    [[nodiscard]] Ends ends() const;
    void passOnEndOfInput();
    void moveRequests(const Ends& ready);
    [[nodiscard]] int moveAnswers(const Ends& ready);

    int m_input;
    int m_output;
    int m_socket;
    bool m_isOutputSocket;
    Passage m_requests;
    Passage m_answers;
    bool m_hasPassedOnEnd = false;
};

} // namespace Quillary
