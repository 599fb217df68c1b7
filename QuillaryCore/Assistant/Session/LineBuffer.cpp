#include "QuillaryCore/Assistant/Session/LineBuffer.h"

#include <utility>

namespace Quillary {

LineBuffer::LineBuffer(State state)
    : m_pending(std::move(state.pending))
    , m_isSkipping(state.isSkipping)
{
}

void LineBuffer::append(std::string_view bytes)
{
    if (m_isSkipping) {
        const std::size_t newline = bytes.find('\n');
        if (newline == std::string_view::npos) {
            return;
        }
        bytes.remove_prefix(newline + 1);
        m_isSkipping = false;
    }
    m_pending.erase(0, m_begin);
    m_searched -= m_begin;
    m_begin = 0;
    m_pending.append(bytes);
}

std::optional<LineBuffer::Line> LineBuffer::next()
{
    while (true) {
        const std::size_t newline = m_pending.find('\n', m_searched);
        if (newline == std::string::npos) {
            break;
        }
        Line line = cut(newline);
        if (line.isTooLong || line.text.find_first_not_of(" \r") != std::string::npos) {
            return line;
        }
    }
    m_searched = m_pending.size();
    if (m_pending.size() - m_begin <= longestLine) {
        return std::nullopt;
    }
    static_cast<void>(take());
    m_isSkipping = true;
    return Line{.text = {}, .isTooLong = true};
}

LineBuffer::Line LineBuffer::cut(std::size_t newline)
{
    Line line;
    const std::size_t length = newline - m_begin;
    if (length > longestLine) {
        line.isTooLong = true;
    } else if (m_begin == 0 && newline + 1 == m_pending.size()) {
        // The usual case. The line keeps the memory, so that a large one does not stay with the connection.
        line.text = std::exchange(m_pending, {});
        line.text.pop_back();
        m_searched = 0;
        return line;
    } else {
        line.text.assign(m_pending, m_begin, length);
    }
    m_begin = newline + 1;
    m_searched = m_begin;
    return line;
}

LineBuffer::State LineBuffer::take()
{
    State state{.pending = std::exchange(m_pending, {}), .isSkipping = std::exchange(m_isSkipping, false)};
    state.pending.erase(0, m_begin);
    m_begin = 0;
    m_searched = 0;
    return state;
}

} // namespace Quillary
