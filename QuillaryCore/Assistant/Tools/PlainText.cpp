#include "QuillaryCore/Assistant/Tools/PlainText.h"

#include "QuillaryCore/Foundation/JSON.h"

namespace Quillary {

std::string shortened(std::string_view text, std::size_t bytes)
{
    if (text.size() <= bytes) {
        return std::string(text);
    }
    std::size_t end = bytes;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) {
        --end;
    }
    return std::string(text.substr(0, end)) + "…";
}

std::size_t roomFor(std::string_view text, const JSON& data)
{
    return text.size() + JSON(text).dump().size() + data.dump().size();
}

ResultLines::ResultLines(std::string& text, std::size_t reserve)
    : m_text(text)
    , m_used(roomFor(text, JSON()) + reserve)
{
}

bool ResultLines::add(std::string_view line, const JSON& data)
{
    if (!m_isFull) {
        m_used += roomFor(line, data) + 4; // line breaks and commas
        m_isFull = m_used > longestResult;
    }
    if (!m_isFull) {
        m_text += line;
        m_text += '\n';
    }
    return !m_isFull;
}

} // namespace Quillary
