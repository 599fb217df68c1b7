#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// Makes lines of bytes as they arrive. Never holds more than one line of `longestLine` and what was appended last.
class LineBuffer
{
public:
    /// Unit: bytes, without the newline.
    static constexpr std::size_t longestLine = std::size_t{16} * 1024 * 1024;

    struct Line
    {
        std::string text; ///< without its newline; empty when it is too long
        bool isTooLong = false;

        friend bool operator==(const Line&, const Line&) = default;
    };

    /// What a buffer knows between two lines, for another one to go on from.
    struct State
    {
        std::string pending;     ///< received and not handed out
        bool isSkipping = false; ///< within the rest of a line that was too long

        friend bool operator==(const State&, const State&) = default;
    };

    LineBuffer() = default;
    explicit LineBuffer(State state);

    void append(std::string_view bytes);

    /// The next line that holds more than spaces and carriage returns. A line that is too long is told of as soon as
    /// that is known, once; the rest of it is skipped. No value: more bytes are needed.
    [[nodiscard]] std::optional<Line> next();

    /// Takes out what is left.
    [[nodiscard]] State take();

private:
    [[nodiscard]] Line cut(std::size_t newline);

    std::string m_pending;
    std::size_t m_begin = 0;    ///< of the bytes that were not handed out
    std::size_t m_searched = 0; ///< there is no newline between `m_begin` and here
    bool m_isSkipping = false;
};

} // namespace Quillary
