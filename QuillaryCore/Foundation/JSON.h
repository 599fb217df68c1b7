#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace Quillary {

/// A JSON value (RFC 8259). Objects keep the order of their keys and every number keeps its literal text, so ids come
/// back as they were sent and amounts never pass through binary floating point.
class JSON
{
public:
    using Array = std::vector<JSON>;
    using Member = std::pair<std::string, JSON>;
    using Object = std::vector<Member>;

    /// A number as it was written, such as "12.50" or "1e3". Made from outside text by `parse` only.
    struct Number
    {
        std::string literal;
        friend bool operator==(const Number&, const Number&) = default;
    };

    // Literals, numbers and texts of ours read as JSON: `{{"total", 12}, {"name", name}}`.
    // NOLINTBEGIN(google-explicit-constructor)
    JSON() = default; ///< null
    JSON(std::nullptr_t) {}
    JSON(std::same_as<bool> auto value)
        : m_value(value)
    {
    }
    template <std::integral Integer>
        requires(!std::same_as<Integer, bool> && !std::same_as<Integer, char>)
    JSON(Integer value)
        : m_value(Number{std::to_string(value)})
    {
    }
    JSON(std::string value)
        : m_value(std::move(value))
    {
    }
    JSON(std::string_view value)
        : m_value(std::string(value))
    {
    }
    JSON(const char* value)
        : m_value(std::string(value))
    {
    }
    JSON(Number value)
        : m_value(std::move(value))
    {
    }
    JSON(Array value)
        : m_value(std::move(value))
    {
    }
    JSON(Object value)
        : m_value(std::move(value))
    {
    }
    // NOLINTEND(google-explicit-constructor)

    /// `object({{"key", value}, ...})`; the empty ones are `object({})` and `array({})`.
    [[nodiscard]] static JSON object(std::initializer_list<Member> members) { return {Object(members)}; }
    [[nodiscard]] static JSON array(std::initializer_list<JSON> values) { return {Array(values)}; }

    /// Reads one JSON text, fragments allowed. Of a key that occurs twice the last value counts.
    /// No value: not JSON, ill-formed UTF-8, or nested deeper than `maximumDepth`.
    [[nodiscard]] static std::optional<JSON> parse(std::string_view text);
    static constexpr int maximumDepth = 128;

    [[nodiscard]] bool isNull() const { return std::holds_alternative<std::monostate>(m_value); }
    [[nodiscard]] const bool* boolean() const { return std::get_if<bool>(&m_value); }
    [[nodiscard]] const Number* number() const { return std::get_if<Number>(&m_value); }
    [[nodiscard]] const std::string* string() const { return std::get_if<std::string>(&m_value); }
    [[nodiscard]] const Array* array() const { return std::get_if<Array>(&m_value); }
    [[nodiscard]] Array* array() { return std::get_if<Array>(&m_value); }
    [[nodiscard]] const Object* object() const { return std::get_if<Object>(&m_value); }
    [[nodiscard]] Object* object() { return std::get_if<Object>(&m_value); }

    /// The value as a 64-bit integer. No value: not a number, a fraction or exponent that leaves no whole number, or
    /// outside 64 bits.
    [[nodiscard]] std::optional<std::int64_t> integer() const;

    /// A number's decimal text without exponent ("1e3" gives "1000", "12.50" stays). No value: not a number, or an
    /// exponent beyond ±400.
    [[nodiscard]] std::optional<std::string> decimalText() const;

    /// A string, or a number turned into its decimal text: what is accepted wherever a text is expected.
    [[nodiscard]] std::optional<std::string> text() const;

    /// The member of an object, or null when this is no object or has no such key.
    [[nodiscard]] const JSON* find(std::string_view key) const;

    /// Sets a member of an object, in place when the key exists, else at the end. Turns null into an object.
    void set(std::string_view key, JSON value);

    /// One line without spaces. Characters outside ASCII are written as they are.
    [[nodiscard]] std::string dump() const;
    void appendTo(std::string& out) const;

    /// Indented by two spaces, for people.
    [[nodiscard]] std::string pretty() const;

    /// Equal values with equal number texts; the order of an object's keys counts.
    friend bool operator==(const JSON&, const JSON&) = default;

private:
    std::variant<std::monostate, bool, Number, std::string, Array, Object> m_value;
};

} // namespace Quillary
