#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Model/NumberedKind.h"
#include "QuillaryCore/Numbering/NumberFormatError.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Quillary {

/// A user's pattern for numbers, such as "INV-{yyyy}-{###,y}".
///
/// Placeholders: {yyyy}, {yy}, {mm}, {dd}, {q} for the quarter, {client} for the client's own number, and one counter
/// of one to nine # which may name when it starts again from 1: {###} never, {###,y} every year, q quarter, m month,
/// d day, c for each client separately.
/// Invariant: exactly one counter, at most 64 characters, no control characters.
class NumberFormat
{
public:
    static constexpr std::size_t maximumCharacters = 64;
    static constexpr std::size_t maximumBytes = 4096; ///< one character may pile up marks without end
    static constexpr int maximumDigits = 9;

    /// When a counter starts again from 1. The values are the letters that patterns write, but for `never`: a counter
    /// that never restarts has no letter.
    enum class Reset : char { never = '-', year = 'y', quarter = 'q', month = 'm', day = 'd', client = 'c' };

    /// Text copied as it stands.
    struct Literal
    {
        std::string text;
        friend bool operator==(const Literal&, const Literal&) = default;
    };

    /// The running number, padded with zeros to at least `digits` places.
    struct Counter
    {
        int digits = 1;
        Reset reset = Reset::never;
        friend bool operator==(const Counter&, const Counter&) = default;
    };

    /// A part of the date, or the client's number.
    enum class Placeholder { year4, year2, month, day, quarter, client };

    using Token = std::variant<Literal, Counter, Placeholder>;

    /// Reads a pattern. Only a kind with `allowsClient` may name the client.
    /// Throws: `NumberFormatError`, the first fault from the left.
    [[nodiscard]] static NumberFormat parse(std::string_view pattern, NumberedKind kind);

    /// What `parse` would throw. No value: the pattern is good.
    [[nodiscard]] static std::optional<NumberFormatError> validate(std::string_view pattern, NumberedKind kind);

    /// The name of the counter's series on a day, as `NumberSequence::key` stores it: "invoice|y2025". It depends on
    /// kind and reset alone, so a changed pattern continues its series.
    /// Throws: `NumberingError`, when the counter runs per client and `clientID` is absent.
    [[nodiscard]] std::string
    sequenceKey(NumberedKind kind, Instant date, const std::optional<UUID>& clientID, const Calendar& calendar) const;

    /// The number that a counter makes on a day. A counter wider than its places is not cut.
    /// Throws: `NumberingError`, when the pattern prints the client's number and `clientNumber` is empty.
    [[nodiscard]] std::string
    render(std::int64_t counter, Instant date, std::string_view clientNumber, const Calendar& calendar) const;

    /// The same for many numbers of one day.
    [[nodiscard]] std::string render(std::int64_t counter, CalendarDate day, std::string_view clientNumber) const;

    /// The pattern exactly as it was typed.
    [[nodiscard]] const std::string& pattern() const { return m_pattern; }
    [[nodiscard]] const std::vector<Token>& tokens() const { return m_tokens; }

    /// The one counter.
    [[nodiscard]] Counter counter() const;

    /// Whether numbers depend on the client: by its number, or by a counter of its own.
    [[nodiscard]] bool usesClient() const;

    friend bool operator==(const NumberFormat&, const NumberFormat&) = default;

private:
    NumberFormat(std::string_view pattern, std::vector<Token> tokens);

    std::string m_pattern;
    std::vector<Token> m_tokens;
};

} // namespace Quillary
