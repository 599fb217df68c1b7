#include "QuillaryCore/Search/TextBlock.h"

#include "QuillaryCore/Foundation/Text.h"

#include <algorithm>
#include <cstddef>

namespace Quillary {

namespace {

bool isASCII(std::string_view text)
{
    unsigned char all = 0;
    for (const char byte : text) {
        all |= static_cast<unsigned char>(byte);
    }
    return all < 0x80;
}

char preparedASCII(char byte)
{
    const bool isCapital = byte >= 'A' && byte <= 'Z';
    const char lower = static_cast<char>(byte + (isCapital ? 'a' - 'A' : 0));
    return lower == TextBlock::border ? ' ' : lower;
}

} // namespace

std::string TextBlock::prepared(std::string_view text)
{
    std::string result = folded(trimmed(text));
    std::ranges::replace(result, border, ' ');
    return result;
}

std::size_t TextBlock::add(std::span<const std::string_view> own, std::span<const std::string_view> further)
{
    if (m_text.empty()) {
        m_text += border;
    }
    m_begins.push_back(m_text.size());
    for (const std::string_view text : own) {
        append(text);
    }
    m_furthers.push_back(m_text.size());
    for (const std::string_view text : further) {
        append(text);
    }
    return m_begins.size() - 1;
}

void TextBlock::append(std::string_view text)
{
    if (text.empty()) {
        return;
    }
    if (isASCII(text)) { // most texts, and folding them is plain
        const std::size_t begin = m_text.size();
        m_text += trimmed(text);
        std::transform(m_text.begin() + static_cast<std::ptrdiff_t>(begin),
                       m_text.end(),
                       m_text.begin() + static_cast<std::ptrdiff_t>(begin),
                       preparedASCII);
    } else {
        m_text += prepared(text);
    }
    m_text += border;
}

void TextBlock::blank(std::size_t slot)
{
    m_text.replace(m_begins[slot], end(slot) - m_begins[slot], end(slot) - m_begins[slot], border);
}

void TextBlock::clear()
{
    m_text.clear();
    m_begins.clear();
    m_furthers.clear();
}

void TextBlock::reserve(std::size_t records)
{
    constexpr std::size_t usualText = 80;
    m_text.reserve(records * usualText);
    m_begins.reserve(records);
    m_furthers.reserve(records);
}

} // namespace Quillary
