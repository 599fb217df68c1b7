#include "QuillaryCore/Tabular/TextDecoding.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

/// What each byte of a single-byte encoding stands for, in UTF-8; empty for a byte that stands for nothing.
using ByteTable = std::array<std::string, 256>;

/// Asks ICU's converter for each byte once: a table look-up is then all that a byte costs.
ByteTable byteTable(const char* encoding)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, decltype(&ucnv_close)> converter(ucnv_open(encoding, &status), &ucnv_close);
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    precondition(U_SUCCESS(status) != 0, "ICU's data is installed");
    ByteTable table;
    for (std::size_t value = 0; value < table.size(); ++value) {
        const char byte = static_cast<char>(value);
        std::array<char16_t, 2> units{};
        UErrorCode mapped = U_ZERO_ERROR;
        const std::int32_t length = ucnv_toUChars(converter.get(), units.data(), units.size(), &byte, 1, &mapped);
        // ICU fills what code page 1252 leaves unassigned with the control characters of the same numbers, as Windows
        // does; a text means nothing by them.
        const bool isUnassigned = value >= 0x80 && units[0] >= 0x80 && units[0] < 0xA0;
        if (U_SUCCESS(mapped) != 0 && length == 1 && !isUnassigned) {
            icu::UnicodeString(units[0]).toUTF8String(table.at(value));
        }
    }
    return table;
}

bool isASCII(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

/// No value: a byte stands for nothing.
std::optional<std::string> decodedBytes(std::string_view data, const ByteTable& table)
{
    std::string text;
    // A character of these encodings takes up to three bytes. What isn't used of the room is never touched.
    text.reserve(data.size() + 2 * (data.size() - static_cast<std::size_t>(std::ranges::count_if(data, isASCII))));
    const char* position = data.data();
    const char* const end = position + data.size();
    while (position != end) {
        const char* const plainEnd = std::find_if_not(position, end, isASCII);
        text.append(position, plainEnd);
        position = plainEnd;
        for (; position != end && !isASCII(*position); ++position) {
            const std::string& character = table[static_cast<unsigned char>(*position)];
            if (character.empty()) {
                return std::nullopt;
            }
            text += character;
        }
    }
    return text;
}

class UTF16Reader
{
public:
    enum class ByteOrder { little, big };

    UTF16Reader(std::string_view bytes, ByteOrder order)
        : m_bytes(bytes)
        , m_order(order)
    {
    }

    /// No value: half a character at the end, or half a surrogate pair anywhere.
    [[nodiscard]] std::optional<std::string> text() const
    {
        if (m_bytes.size() % 2 != 0) {
            return std::nullopt;
        }
        std::string result;
        result.reserve(utf8Size());
        std::array<char16_t, chunk> units;
        std::array<char, 3 * chunk> buffer;
        for (std::size_t begin = 0; begin < m_bytes.size() / 2;) {
            const std::size_t count = read(begin, units);
            std::int32_t length = 0;
            UErrorCode status = U_ZERO_ERROR;
            u_strToUTF8(buffer.data(), buffer.size(), &length, units.data(), static_cast<std::int32_t>(count), &status);
            if (U_FAILURE(status) != 0) {
                return std::nullopt;
            }
            result.append(buffer.data(), static_cast<std::size_t>(length));
            begin += count;
        }
        return result;
    }

private:
    static constexpr std::size_t chunk = 4096;

    [[nodiscard]] char16_t unit(std::size_t index) const
    {
        const auto first = static_cast<unsigned char>(m_bytes[2 * index]);
        const auto second = static_cast<unsigned char>(m_bytes[2 * index + 1]);
        return static_cast<char16_t>(m_order == ByteOrder::little ? second << 8 | first : first << 8 | second);
    }

    /// As many units as there is room for; a surrogate pair stays together. Returns their number.
    std::size_t read(std::size_t begin, std::array<char16_t, chunk>& units) const
    {
        const std::size_t left = m_bytes.size() / 2 - begin;
        std::size_t count = std::min(left, chunk);
        for (std::size_t i = 0; i < count; ++i) {
            units[i] = unit(begin + i);
        }
        if (count < left && U16_IS_LEAD(units[count - 1])) {
            --count;
        }
        return count;
    }

    [[nodiscard]] std::size_t utf8Size() const
    {
        std::size_t size = 0;
        for (std::size_t i = 0; i < m_bytes.size() / 2; ++i) {
            const char16_t value = unit(i);
            const bool isThree = value >= 0x800 && !U16_IS_SURROGATE(value);
            size += 1U + (value >= 0x80 ? 1U : 0U) + (isThree ? 1U : 0U);
        }
        return size;
    }

    std::string_view m_bytes;
    ByteOrder m_order;
};

bool holdsZero(std::string_view text)
{
    return text.find('\0') != std::string_view::npos;
}

std::optional<DecodedText> decodedUTF16(std::string_view data)
{
    const auto order = data.front() == '\xFF' ? UTF16Reader::ByteOrder::little : UTF16Reader::ByteOrder::big;
    std::optional<std::string> text = UTF16Reader(data.substr(2), order).text();
    if (!text || holdsZero(*text)) {
        return std::nullopt;
    }
    return DecodedText{*std::move(text), CSV::Encoding::utf16};
}

} // namespace

std::optional<DecodedText> decodedText(std::string data)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (data.starts_with(mark)) {
        data.erase(0, mark.size());
        return isValidUTF8(data) ? std::optional(DecodedText{std::move(data), CSV::Encoding::utf8}) : std::nullopt;
    }
    if (data.starts_with("\xFF\xFE") || data.starts_with("\xFE\xFF")) {
        return decodedUTF16(data);
    }
    if (isValidUTF8(data)) {
        return DecodedText{std::move(data), CSV::Encoding::utf8};
    }
    if (holdsZero(data)) {
        return std::nullopt;
    }
    static const ByteTable windows = byteTable("windows-1252");
    if (auto text = decodedBytes(data, windows)) {
        return DecodedText{*std::move(text), CSV::Encoding::windowsLatin1};
    }
    static const ByteTable macintosh = byteTable("macintosh");
    if (auto text = decodedBytes(data, macintosh)) {
        return DecodedText{*std::move(text), CSV::Encoding::macRoman};
    }
    return std::nullopt;
}

} // namespace Quillary
