#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Money/Money.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace Quillary {

/// One typed cell of a table that is written as CSV. A value.
class CSVValue
{
public:
    struct Number
    {
        std::int64_t value = 0;
        friend bool operator==(const Number&, const Number&) = default;
    };

    struct Rate
    {
        std::int32_t basisPoints = 0;
        friend bool operator==(const Rate&, const Rate&) = default;
    };

    using Date = std::optional<CalendarDate>;
    using Content = std::variant<std::string, Money, Number, Date, Rate>;

    [[nodiscard]] static CSVValue text(std::string text) { return CSVValue(std::move(text)); }
    [[nodiscard]] static CSVValue money(Money amount) { return CSVValue(std::move(amount)); }

    /// A count of things or days.
    [[nodiscard]] static CSVValue number(std::int64_t number) { return CSVValue(Number{number}); }

    /// A day in the calendar and time zone of the user; one that is absent makes an empty cell.
    [[nodiscard]] static CSVValue date(Date date) { return CSVValue(date); }

    /// Unit: basis points, 1900 = 19 %.
    [[nodiscard]] static CSVValue percent(std::int32_t basisPoints) { return CSVValue(Rate{basisPoints}); }

    [[nodiscard]] const Content& content() const { return m_content; }

    friend bool operator==(const CSVValue&, const CSVValue&) = default;

private:
    explicit CSVValue(Content content)
        : m_content(std::move(content))
    {
    }

    Content m_content;
};

} // namespace Quillary

template <>
struct std::hash<Quillary::CSVValue>
{
    std::size_t operator()(const Quillary::CSVValue& value) const;
};
