#include "QuillaryCore/Numbering/FileNameFormat.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Numbering/PatternPieces.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace Quillary {

namespace {

using Placeholder = FileNameFormat::Placeholder;
using Reason = FileNameFormatError::Reason;

constexpr std::array<std::pair<std::string_view, Placeholder>, 9> placeholderNames = {{
    {"number", Placeholder::number},
    {"type", Placeholder::type},
    {"client", Placeholder::client},
    {"title", Placeholder::title},
    {"business", Placeholder::business},
    {"date", Placeholder::date},
    {"yyyy", Placeholder::year},
    {"mm", Placeholder::month},
    {"dd", Placeholder::day},
}};

constexpr std::string_view refusedCharacters = "/\\:*?\"<>|";
constexpr std::string_view trimmedCharacters = " -_.";
constexpr std::string_view nameOfNothing = "Document";

Placeholder placeholderNamed(std::string_view name)
{
    const auto* const known = std::ranges::find(placeholderNames, name, [](const auto& entry) { return entry.first; });
    if (known == placeholderNames.end()) {
        throw FileNameFormatError(Reason::unknownPlaceholder, name);
    }
    return known->second;
}

void append(std::string& name, Placeholder placeholder, const FileNameFormat::Values& values, CalendarDate date)
{
    const auto out = std::back_inserter(name);
    const auto year = static_cast<int>(date.year());
    const auto month = static_cast<unsigned>(date.month());
    const auto day = static_cast<unsigned>(date.day());
    switch (placeholder) {
    case Placeholder::number:
        name += values.number;
        break;
    case Placeholder::type:
        name += values.type;
        break;
    case Placeholder::client:
        name += values.client;
        break;
    case Placeholder::title:
        name += values.title;
        break;
    case Placeholder::business:
        name += values.business;
        break;
    case Placeholder::date:
        fmt::format_to(out, "{:04}-{:02}-{:02}", year, month, day);
        break;
    case Placeholder::year:
        fmt::format_to(out, "{:04}", year);
        break;
    case Placeholder::month:
        fmt::format_to(out, "{:02}", month);
        break;
    case Placeholder::day:
        fmt::format_to(out, "{:02}", day);
        break;
    }
}

/// Every character that contains a control character becomes a blank; broken bytes become U+FFFD.
std::string withoutControls(std::string_view name)
{
    std::string clean;
    clean.reserve(name.size());
    if (!hasControlCharacter(name)) {
        clean = name;
    } else {
        for (const std::string_view character : graphemes(name)) {
            if (hasControlCharacter(character)) {
                clean += ' ';
            } else {
                clean += character;
            }
        }
    }
    return isValidUTF8(clean) ? clean : repairedUTF8(clean);
}

/// What stands for a run of the scalar's kind. Zero: it stays as it is.
char replacementOf(std::string_view scalar)
{
    if (scalar.size() > 1) {
        return trimmed(scalar).empty() ? ' ' : '\0';
    }
    if (scalar == " ") {
        return ' '; // the other white space of ASCII consists of control characters
    }
    return refusedCharacters.find(scalar) != std::string_view::npos ? '-' : '\0';
}

/// The number of bytes of the well-formed scalar that begins with `lead`.
std::size_t scalarLength(char lead)
{
    const auto byte = static_cast<unsigned char>(lead);
    if (byte < 0xC0) {
        return 1;
    }
    return byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

/// Runs of refused characters become one "-", runs of white space one blank. Looks at single scalars, not at whole
/// characters: a slash stays a path separator with whatever mark stands on it.
std::string withRunsReplaced(std::string_view name)
{
    std::string clean;
    clean.reserve(name.size());
    char run = 0; // what the run of the previous scalar was replaced by
    for (std::size_t position = 0; position < name.size();) {
        const std::string_view scalar = name.substr(position, scalarLength(name[position]));
        position += scalar.size();
        const char replacement = replacementOf(scalar);
        if (replacement == 0) {
            clean += scalar;
        } else if (replacement != run) {
            clean += replacement;
        }
        run = replacement;
    }
    return clean;
}

/// All white space is plain blanks by now.
std::string_view withTrimmedEnds(std::string_view name)
{
    const std::size_t first = name.find_first_not_of(trimmedCharacters);
    if (first == std::string_view::npos) {
        return {};
    }
    return name.substr(first, name.find_last_not_of(trimmedCharacters) + 1 - first);
}

} // namespace

FileNameFormat::FileNameFormat(std::string_view pattern, std::vector<Part> parts)
    : m_pattern(pattern)
    , m_parts(std::move(parts))
{
}

FileNameFormat FileNameFormat::parse(std::string_view pattern)
{
    if (trimmed(pattern).empty()) {
        throw FileNameFormatError(Reason::empty);
    }
    std::vector<Part> parts;
    for (const auto& [kind, text] : patternPieces(pattern)) {
        switch (kind) {
        case PatternPiece::Kind::literal:
            parts.emplace_back(std::string(text));
            break;
        case PatternPiece::Kind::placeholder:
            parts.emplace_back(placeholderNamed(text));
            break;
        case PatternPiece::Kind::unmatchedBrace:
            throw FileNameFormatError(Reason::unmatchedBrace);
        }
    }
    if (std::ranges::find(parts, Part(Placeholder::number)) == parts.end()) {
        throw FileNameFormatError(Reason::missingNumber);
    }
    return {pattern, std::move(parts)};
}

std::optional<FileNameFormatError> FileNameFormat::validate(std::string_view pattern)
{
    try {
        static_cast<void>(parse(pattern));
        return std::nullopt;
    } catch (const FileNameFormatError& error) {
        return error;
    }
}

FileNameFormat FileNameFormat::stored(const Business& business)
{
    const bool parses = !validate(business.fileNameFormat);
    return parse(parses ? business.fileNameFormat : Business::defaultFileNameFormat);
}

std::string FileNameFormat::render(const Values& values, const Calendar& calendar) const
{
    const CalendarDate date = calendar.date(values.date);
    std::string name;
    for (const Part& part : m_parts) {
        if (const auto* literal = std::get_if<std::string>(&part)) {
            name += *literal;
        } else {
            append(name, std::get<Placeholder>(part), values, date);
        }
    }
    return sanitize(name);
}

std::string FileNameFormat::sanitize(std::string_view name)
{
    const std::string clean = withRunsReplaced(withoutControls(name));
    std::string_view result = withTrimmedEnds(clean);
    result = withTrimmedEnds(graphemePrefix(result, maximumCharacters));
    return std::string(result.empty() ? nameOfNothing : result);
}

} // namespace Quillary
