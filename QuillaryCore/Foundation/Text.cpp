#include "QuillaryCore/Foundation/Text.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/UTF8.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>

namespace Quillary {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

bool isASCII(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

/// ICU counts in 32 bits; a longer text is looked at up to there.
std::int32_t icuLength(std::string_view text)
{
    return static_cast<std::int32_t>(std::min<std::size_t>(text.size(), std::numeric_limits<std::int32_t>::max()));
}

/// The length of a beginning that holds nothing but ASCII and no NUL, up to eight bytes too short: eight bytes at a time.
std::size_t plainPrefixSize(std::string_view bytes)
{
    constexpr std::uint64_t highBits = 0x8080808080808080;
    constexpr std::uint64_t lowestBits = 0x0101010101010101;
    std::size_t size = 0;
    for (; size + sizeof(std::uint64_t) <= bytes.size(); size += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + size, sizeof word);
        // Subtracting one borrows from the highest bit of a byte only where the byte is zero.
        if (((word | (word - lowestBits)) & highBits) != 0) {
            break;
        }
    }
    return size;
}

/// In ASCII text every character stands alone, except that CR LF is one.
bool isOneByteEach(std::string_view text)
{
    return std::ranges::all_of(text, [](char byte) { return isASCII(byte) && byte != '\r'; });
}

/// Finds the ends of grapheme clusters one after the other.
class GraphemeEnds
{
public:
    explicit GraphemeEnds(std::string_view text)
    {
        UErrorCode status = U_ZERO_ERROR;
        // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): the length goes with it
        m_text = utext_openUTF8(nullptr, text.data(), icuLength(text), &status);
        m_iterator.reset(prototype().clone());
        precondition(m_iterator != nullptr, "ICU finds character borders");
        m_iterator->setText(m_text, status);
        precondition(U_SUCCESS(status) != 0, "ICU reads UTF-8");
    }
    GraphemeEnds(const GraphemeEnds&) = delete;
    GraphemeEnds& operator=(const GraphemeEnds&) = delete;
    ~GraphemeEnds()
    {
        m_iterator.reset();
        utext_close(m_text);
    }

    /// The byte after the next cluster, or `icu::BreakIterator::DONE`.
    std::int32_t next() { return m_iterator->next(); }

private:
    /// Loading the rules costs a thousand times a clone of them.
    static const icu::BreakIterator& prototype()
    {
        static const std::unique_ptr<const icu::BreakIterator> made = [] {
            UErrorCode status = U_ZERO_ERROR;
            std::unique_ptr<const icu::BreakIterator> result(
                icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
            precondition(U_SUCCESS(status) != 0 && result != nullptr, "ICU's data is installed");
            return result;
        }();
        return *made;
    }

    UText* m_text = nullptr;
    std::unique_ptr<icu::BreakIterator> m_iterator;
};

} // namespace

std::string_view trimmed(std::string_view text)
{
    const auto isVisibleASCII = [](char byte) {
        return byte > ' ' && byte < '\x7F';
    };
    if (!text.empty() && isVisibleASCII(text.front()) && isVisibleASCII(text.back())) {
        return text; // most texts, and no need to ask Unicode's data
    }
    const auto isSpace = [](const DecodedCharacter& character) {
        return character.scalar && u_isUWhiteSpace(static_cast<UChar32>(*character.scalar)) != 0;
    };
    for (auto first = decodeFirst(text); isSpace(first); first = decodeFirst(text)) {
        text.remove_prefix(first.length);
    }
    for (auto last = decodeLast(text); isSpace(last); last = decodeLast(text)) {
        text.remove_suffix(last.length);
    }
    return text;
}

std::size_t graphemeCount(std::string_view text)
{
    if (isOneByteEach(text)) {
        return text.size();
    }
    GraphemeEnds ends(text);
    std::size_t count = 0;
    while (ends.next() != icu::BreakIterator::DONE) {
        ++count;
    }
    return count;
}

std::string_view graphemePrefix(std::string_view text, std::size_t count)
{
    // Every cluster has at least one byte. One byte more is looked at, since an accent may follow the last letter.
    if (text.size() <= count) {
        return text;
    }
    if (isOneByteEach(text.substr(0, count + 1))) {
        return text.substr(0, count);
    }
    GraphemeEnds ends(text);
    std::int32_t end = 0;
    for (std::size_t taken = 0; taken < count; ++taken) {
        const std::int32_t next = ends.next();
        if (next == icu::BreakIterator::DONE) {
            break;
        }
        end = next;
    }
    return text.substr(0, static_cast<std::size_t>(end));
}

std::vector<std::string_view> graphemes(std::string_view text)
{
    std::vector<std::string_view> result;
    if (isOneByteEach(text)) {
        result.reserve(text.size());
        for (std::size_t index = 0; index < text.size(); ++index) {
            result.push_back(text.substr(index, 1));
        }
        return result;
    }
    GraphemeEnds ends(text);
    std::size_t begin = 0;
    for (std::int32_t end = ends.next(); end != icu::BreakIterator::DONE; end = ends.next()) {
        const auto position = static_cast<std::size_t>(end);
        result.push_back(text.substr(begin, position - begin));
        begin = position;
    }
    return result;
}

bool hasControlCharacter(std::string_view text)
{
    while (!text.empty()) {
        const auto character = decodeFirst(text);
        if (character.scalar) {
            const auto category = u_charType(static_cast<UChar32>(*character.scalar));
            if (category == U_CONTROL_CHAR || category == U_FORMAT_CHAR) {
                return true;
            }
        }
        text.remove_prefix(character.length);
    }
    return false;
}

bool isValidUTF8(std::string_view bytes)
{
    while (!bytes.empty()) {
        bytes.remove_prefix(plainPrefixSize(bytes));
        if (bytes.empty()) {
            break;
        }
        const auto character = decodeFirst(bytes);
        if (character.scalar.value_or(0) == 0) {
            return false;
        }
        bytes.remove_prefix(character.length);
    }
    return true;
}

std::string repairedUTF8(std::string_view bytes)
{
    if (isValidUTF8(bytes)) {
        return std::string(bytes);
    }
    std::string result;
    result.reserve(bytes.size() + 16);
    while (!bytes.empty()) {
        const auto character = decodeFirst(bytes);
        result += character.scalar.value_or(0) == 0 ? replacementCharacter : bytes.substr(0, character.length);
        bytes.remove_prefix(character.length);
    }
    return result;
}

std::string upperCasedASCII(std::string_view text)
{
    std::string result(text);
    for (char& byte : result) {
        if (byte >= 'a' && byte <= 'z') {
            byte = static_cast<char>(byte - 'a' + 'A');
        }
    }
    return result;
}

std::string lowerCasedASCII(std::string_view text)
{
    std::string result(text);
    for (char& byte : result) {
        if (byte >= 'A' && byte <= 'Z') {
            byte = static_cast<char>(byte - 'A' + 'a');
        }
    }
    return result;
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> result;
    std::size_t begin = 0;
    for (std::size_t end = text.find(separator); end != std::string_view::npos; end = text.find(separator, begin)) {
        result.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    result.push_back(text.substr(begin));
    return result;
}

std::string replacing(std::string_view text, std::string_view pattern, std::string_view replacement)
{
    precondition(!pattern.empty(), "the pattern to replace is not empty");
    std::string result;
    result.reserve(text.size());
    std::size_t begin = 0;
    for (std::size_t end = text.find(pattern); end != std::string_view::npos; end = text.find(pattern, begin)) {
        result += text.substr(begin, end - begin);
        result += replacement;
        begin = end + pattern.size();
    }
    result += text.substr(begin);
    return result;
}

} // namespace Quillary
