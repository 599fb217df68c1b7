#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Money/Decimal.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// Whether an argument may be below zero.
enum class Sign { notNegative, any };

/// Whether a text may run over several lines.
enum class LineBreaks { kept, removed };

/// Reads the arguments of one call, or of one line inside it. Every reader gives no value for an argument that was not
/// given, and throws `AssistantError` with one sentence that names the argument when its value is unusable.
class Arguments
{
public:
    /// `where` names the place of a nested object in sentences, such as "add_lines 2".
    explicit Arguments(const JSON& object, std::string where = {});

    [[nodiscard]] bool has(std::string_view name) const;

    /// One line of text: repaired, trimmed, control characters turned into spaces. At most `limit` characters.
    [[nodiscard]] std::optional<std::string> line(std::string_view name, std::size_t limit) const;

    /// Text of several lines: repaired, trimmed, line breaks as "\n", other control characters turned into spaces.
    [[nodiscard]] std::optional<std::string> paragraphs(std::string_view name, std::size_t limit) const;

    [[nodiscard]] std::optional<bool> flag(std::string_view name) const;

    /// A whole number from `least` to `most`.
    [[nodiscard]] std::optional<std::int64_t>
    wholeNumber(std::string_view name, std::int64_t least, std::int64_t most) const;

    /// The one reader of amounts. Unit of the result: minor units of `currencyCode`, at most `limit` in size; `what` is
    /// read ("price", "discount") and named in the sentence.
    [[nodiscard]] std::optional<std::int64_t> amount(std::string_view name,
                                                     std::string_view what,
                                                     std::string_view currencyCode,
                                                     Sign sign,
                                                     std::int64_t limit) const;

    /// A quantity. Unit: thousandths, at most `limit` in size.
    [[nodiscard]] std::optional<std::int64_t> quantity(std::string_view name, std::int64_t limit) const;

    /// A rate from 0 to 100 percent with at most two decimals. Unit: basis points.
    [[nodiscard]] std::optional<std::int32_t> rate(std::string_view name) const;

    /// A day as "YYYY-MM-DD", from 1900 to 2199.
    [[nodiscard]] std::optional<CalendarDate> date(std::string_view name) const;

    /// The objects of a list, each with its place for sentences.
    [[nodiscard]] std::vector<Arguments> objects(std::string_view name) const;

    /// The whole numbers of a list, each from `least` to `most`.
    [[nodiscard]] std::vector<std::int64_t>
    wholeNumbers(std::string_view name, std::int64_t least, std::int64_t most) const;

    /// Throws the sentence about an argument: "“name” " and the rest.
    [[noreturn]] void refuse(std::string_view name, std::string_view rest) const;

private:
    [[nodiscard]] const JSON* find(std::string_view name) const;
    [[nodiscard]] std::optional<Decimal> decimal(std::string_view name) const;
    [[nodiscard]] std::optional<std::string>
    text(std::string_view name, std::size_t limit, LineBreaks lineBreaks) const;

    const JSON* m_object;
    std::string m_where;
};

/// Reads a day as "YYYY-MM-DD" within the years that documents may carry. No value: any other text.
[[nodiscard]] std::optional<CalendarDate> documentDate(std::string_view text);

} // namespace Quillary
