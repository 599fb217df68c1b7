#include "QuillaryCore/Tabular/CSV.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UTF8.h"
#include "QuillaryCore/Tabular/CSVParser.h"
#include "QuillaryCore/Tabular/DelimiterDetection.h"
#include "QuillaryCore/Tabular/TextDecoding.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

namespace Quillary {

namespace {

std::string sentence(CSV::Failure::Reason reason)
{
    switch (reason) {
    case CSV::Failure::Reason::empty:
        return "The file has no rows.";
    case CSV::Failure::Reason::unreadable:
        return "The file isn't readable text. Save it as CSV from your spreadsheet app and try again.";
    }
    return {};
}

/// The bytes of the line break that a text begins with (Unicode's, so a next line or a separator too), or 0.
std::size_t lineBreakSize(std::string_view text)
{
    const DecodedCharacter character = decodeFirst(text);
    switch (character.scalar.value_or(0)) {
    case U'\n':
    case U'\v':
    case U'\f':
    case U'\r':
    case 0x85:
    case 0x2028:
    case 0x2029:
        return character.length;
    default:
        return 0;
    }
}

/// What a first line "sep=;" says, and how many blank rows stood below it.
struct SeparatorLine
{
    char delimiter = 0;
    std::uint32_t blankRows = 0;
};

/// Takes a first line "sep=;" away, with all line breaks behind it. No value: there is none, or it names no delimiter of
/// ours; then the text stays whole.
std::optional<SeparatorLine> takeSeparatorLine(std::string& text)
{
    constexpr std::string_view beginning = "sep=";
    constexpr std::size_t lineSize = beginning.size() + 1;
    if (text.size() < lineSize || lowerCasedASCII(std::string_view(text).substr(0, beginning.size())) != beginning) {
        return std::nullopt;
    }
    SeparatorLine line{.delimiter = text[beginning.size()]};
    std::string_view rest = std::string_view(text).substr(lineSize);
    if (std::ranges::find(CSV::delimiters, line.delimiter) == CSV::delimiters.end() ||
        (!rest.empty() && lineBreakSize(rest) == 0)) {
        return std::nullopt;
    }
    std::uint32_t breaks = 0;
    for (std::size_t size = lineBreakSize(rest); size != 0; size = lineBreakSize(rest)) {
        breaks += rest.starts_with("\r\n") ? 0 : 1; // a pair counts with its second half
        rest.remove_prefix(size);
    }
    line.blankRows = breaks > 0 ? breaks - 1 : 0;
    text.erase(0, text.size() - rest.size());
    return line;
}

DecodedText decodedOrFailure(std::string data)
{
    std::optional<DecodedText> result = decodedText(std::move(data));
    if (!result) {
        throw CSV::Failure(CSV::Failure::Reason::unreadable);
    }
    return *std::move(result);
}

} // namespace

CSV::Failure::Failure(Reason reason)
    : UserError(sentence(reason))
    , m_reason(reason)
{
}

CSV::CSV(std::string data)
{
    DecodedText decoded = decodedOrFailure(std::move(data));
    *this = CSV(std::move(decoded.text), decoded.encoding);
}

CSV::CSV(std::string text, Encoding encoding)
    : m_encoding(encoding)
{
    if (text.size() > longestCSVText) {
        throw Failure(Failure::Reason::unreadable);
    }
    const std::optional<SeparatorLine> named = takeSeparatorLine(text);
    m_delimiter = named ? named->delimiter : detectDelimiter(text);
    m_rows = parseCSV(std::move(text), m_delimiter, named ? named->blankRows : 0);
    if (m_rows.empty()) {
        throw Failure(Failure::Reason::empty);
    }
}

char CSV::detectDelimiter(std::string_view text)
{
    return likeliestDelimiter(text, delimiters);
}

CSVRows CSV::parse(std::string text, char delimiter)
{
    return parseCSV(std::move(text), delimiter);
}

std::string_view rawValue(CSV::Encoding encoding)
{
    switch (encoding) {
    case CSV::Encoding::utf8:
        return "UTF-8";
    case CSV::Encoding::utf16:
        return "UTF-16";
    case CSV::Encoding::windowsLatin1:
        return "Windows Latin 1";
    case CSV::Encoding::macRoman:
        return "Mac Roman";
    }
    return {};
}

} // namespace Quillary
