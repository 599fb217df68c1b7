#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Numbering/FileNameFormatError.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Quillary {

/// A user's pattern for the names of exported files, such as "{type} {number} - {client}".
///
/// Placeholders: {number}, {type}, {client}, {title}, {business}, {date} as "2025-03-07", {yyyy}, {mm}, {dd}.
/// Invariant: {number} occurs, so that two documents never get one name.
class FileNameFormat
{
public:
    static constexpr std::size_t maximumCharacters = 200; ///< of a name, without its extension

    enum class Placeholder { number, type, client, title, business, date, year, month, day };

    /// Text copied as it stands, or what is filled in.
    using Part = std::variant<std::string, Placeholder>;

    /// What a pattern is filled with. `type` is the document's kind in the document's language.
    struct Values
    {
        std::string number;
        std::string type;
        std::string client;
        std::string title;
        std::string business;
        Instant date;

        friend bool operator==(const Values&, const Values&) = default;
    };

    /// Reads a pattern. Throws: `FileNameFormatError`, the first fault from the left.
    [[nodiscard]] static FileNameFormat parse(std::string_view pattern);

    /// What `parse` would throw. No value: the pattern is good.
    [[nodiscard]] static std::optional<FileNameFormatError> validate(std::string_view pattern);

    /// The business's stored pattern, or `Business::defaultFileNameFormat` where that one doesn't parse.
    [[nodiscard]] static FileNameFormat stored(const Business& business);

    /// A file name without extension, cleaned by `sanitize`.
    [[nodiscard]] std::string render(const Values& values, const Calendar& calendar) const;

    /// Makes any text safe as a file name: never empty, at most 200 characters, no path separators, control characters
    /// or characters that other systems refuse, no blanks or dots at its ends. Cleaning a clean name changes nothing.
    [[nodiscard]] static std::string sanitize(std::string_view name);

    [[nodiscard]] const std::string& pattern() const { return m_pattern; }
    [[nodiscard]] const std::vector<Part>& parts() const { return m_parts; }

    friend bool operator==(const FileNameFormat&, const FileNameFormat&) = default;

private:
    FileNameFormat(std::string_view pattern, std::vector<Part> parts);

    std::string m_pattern;
    std::vector<Part> m_parts;
};

} // namespace Quillary
