#include "QuillaryCore/Numbering/NumberFormat.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Numbering/NumberingError.h"
#include "QuillaryCore/Numbering/PatternPieces.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace Quillary {

namespace {

using Placeholder = NumberFormat::Placeholder;
using Reason = NumberFormatError::Reason;
using Reset = NumberFormat::Reset;

constexpr std::array<std::pair<std::string_view, Placeholder>, 6> placeholderNames = {{
    {"yyyy", Placeholder::year4},
    {"yy", Placeholder::year2},
    {"mm", Placeholder::month},
    {"dd", Placeholder::day},
    {"q", Placeholder::quarter},
    {"client", Placeholder::client},
}};

/// The reset that a counter's suffix names. No value: any other text, "-" included.
std::optional<Reset> resetNamed(std::string_view suffix)
{
    for (const Reset reset : {Reset::year, Reset::quarter, Reset::month, Reset::day, Reset::client}) {
        if (suffix.size() == 1 && suffix.front() == std::to_underlying(reset)) {
            return reset;
        }
    }
    return std::nullopt;
}

/// The pieces between commas, empty ones dropped, each as its characters joined.
std::vector<std::vector<std::string_view>> piecesBetweenCommas(std::string_view name)
{
    std::vector<std::vector<std::string_view>> pieces(1);
    for (const std::string_view character : graphemes(name)) {
        if (character == ",") {
            pieces.emplace_back();
        } else {
            pieces.back().push_back(character);
        }
    }
    std::erase_if(pieces, [](const auto& piece) { return piece.empty(); });
    return pieces;
}

NumberFormat::Counter parseCounter(std::string_view name, NumberedKind kind)
{
    const auto pieces = piecesBetweenCommas(name);
    const auto isMark = [](std::string_view character) {
        return character == "#";
    };
    if (pieces.empty() || pieces.size() > 2 || !std::ranges::all_of(pieces.front(), isMark)) {
        throw NumberFormatError(Reason::unknownPlaceholder, name);
    }
    const std::size_t digits = pieces.front().size();
    if (digits > NumberFormat::maximumDigits) {
        throw NumberFormatError(Reason::counterTooWide);
    }
    if (pieces.size() == 1) {
        return {static_cast<int>(digits), Reset::never};
    }
    const auto reset = pieces.back().size() == 1 ? resetNamed(pieces.back().front()) : std::nullopt;
    if (!reset) {
        throw NumberFormatError(Reason::unknownPlaceholder, name);
    }
    if (*reset == Reset::client && !allowsClient(kind)) {
        throw NumberFormatError(Reason::clientNotAllowed);
    }
    return {static_cast<int>(digits), *reset};
}

NumberFormat::Token parsePlaceholder(std::string_view name, NumberedKind kind)
{
    const auto* const known = std::ranges::find(placeholderNames, name, [](const auto& entry) { return entry.first; });
    if (known == placeholderNames.end()) {
        return parseCounter(name, kind);
    }
    if (known->second == Placeholder::client && !allowsClient(kind)) {
        throw NumberFormatError(Reason::clientNotAllowed);
    }
    return known->second;
}

template <class Range, class Value>
bool holds(const Range& range, const Value& value)
{
    return std::ranges::find(range, value) != std::ranges::end(range);
}

std::vector<NumberFormat::Token> tokenize(std::string_view pattern, NumberedKind kind)
{
    std::vector<NumberFormat::Token> tokens;
    for (const auto& [pieceKind, text] : patternPieces(pattern)) {
        switch (pieceKind) {
        case PatternPiece::Kind::literal:
            tokens.emplace_back(NumberFormat::Literal{repairedUTF8(text)});
            break;
        case PatternPiece::Kind::placeholder:
            if (holds(graphemes(text), "{")) {
                throw NumberFormatError(Reason::unmatchedBrace);
            }
            tokens.push_back(parsePlaceholder(text, kind));
            break;
        case PatternPiece::Kind::unmatchedBrace:
            throw NumberFormatError(Reason::unmatchedBrace);
        }
    }
    return tokens;
}

void requireOneCounter(const std::vector<NumberFormat::Token>& tokens)
{
    const auto counters = std::ranges::count_if(
        tokens, [](const auto& token) { return std::holds_alternative<NumberFormat::Counter>(token); });
    if (counters == 0) {
        throw NumberFormatError(Reason::noCounter);
    }
    if (counters > 1) {
        throw NumberFormatError(Reason::multipleCounters);
    }
}

int yearOf(CalendarDate date)
{
    return static_cast<int>(date.year());
}

unsigned monthOf(CalendarDate date)
{
    return static_cast<unsigned>(date.month());
}

unsigned dayOf(CalendarDate date)
{
    return static_cast<unsigned>(date.day());
}

unsigned quarterOf(CalendarDate date)
{
    return (monthOf(date) - 1) / 3 + 1;
}

/// Writes the tokens of one number, one after the other.
class Writer
{
public:
    Writer(std::int64_t counter, CalendarDate date, std::string_view clientNumber)
        : m_counter(counter)
        , m_date(date)
        , m_clientNumber(clientNumber)
    {
    }

    void operator()(const NumberFormat::Literal& literal) { m_text += literal.text; }

    void operator()(const NumberFormat::Counter& counter)
    {
        fmt::format_to(std::back_inserter(m_text), "{:0{}}", m_counter, counter.digits);
    }

    void operator()(Placeholder placeholder)
    {
        const auto out = std::back_inserter(m_text);
        switch (placeholder) {
        case Placeholder::year4:
            fmt::format_to(out, "{:04}", yearOf(m_date));
            break;
        case Placeholder::year2:
            fmt::format_to(out, "{:02}", yearOf(m_date) % 100);
            break;
        case Placeholder::month:
            fmt::format_to(out, "{:02}", monthOf(m_date));
            break;
        case Placeholder::day:
            fmt::format_to(out, "{:02}", dayOf(m_date));
            break;
        case Placeholder::quarter:
            fmt::format_to(out, "{}", quarterOf(m_date));
            break;
        case Placeholder::client:
            appendClientNumber();
            break;
        }
    }

    [[nodiscard]] std::string takeText() { return std::move(m_text); }

private:
    void appendClientNumber()
    {
        if (m_clientNumber.empty()) {
            throw NumberingError(NumberingError::Reason::missingClientNumber);
        }
        m_text += m_clientNumber;
    }

    std::int64_t m_counter;
    CalendarDate m_date;
    std::string_view m_clientNumber;
    std::string m_text;
};

} // namespace

NumberFormat::NumberFormat(std::string_view pattern, std::vector<Token> tokens)
    : m_pattern(pattern)
    , m_tokens(std::move(tokens))
{
}

NumberFormat NumberFormat::parse(std::string_view pattern, NumberedKind kind)
{
    if (trimmed(pattern).empty()) {
        throw NumberFormatError(Reason::empty);
    }
    if (pattern.size() > maximumBytes || graphemePrefix(pattern, maximumCharacters).size() < pattern.size()) {
        throw NumberFormatError(Reason::tooLong);
    }
    if (hasControlCharacter(pattern)) {
        throw NumberFormatError(Reason::invalidCharacter);
    }
    auto tokens = tokenize(pattern, kind);
    requireOneCounter(tokens);
    return {pattern, std::move(tokens)};
}

std::optional<NumberFormatError> NumberFormat::validate(std::string_view pattern, NumberedKind kind)
{
    try {
        static_cast<void>(parse(pattern, kind));
        return std::nullopt;
    } catch (const NumberFormatError& error) {
        return error;
    }
}

std::string NumberFormat::sequenceKey(NumberedKind kind,
                                      Instant date,
                                      const std::optional<UUID>& clientID,
                                      const Calendar& calendar) const
{
    const CalendarDate day = calendar.date(date);
    std::string key(id(kind));
    const auto out = std::back_inserter(key);
    switch (counter().reset) {
    case Reset::never:
        key += "|all";
        break;
    case Reset::year:
        fmt::format_to(out, "|y{}", yearOf(day));
        break;
    case Reset::quarter:
        fmt::format_to(out, "|q{}-{}", yearOf(day), quarterOf(day));
        break;
    case Reset::month:
        fmt::format_to(out, "|m{}-{:02}", yearOf(day), monthOf(day));
        break;
    case Reset::day:
        fmt::format_to(out, "|d{}-{:02}-{:02}", yearOf(day), monthOf(day), dayOf(day));
        break;
    case Reset::client:
        if (!clientID) {
            throw NumberingError(NumberingError::Reason::missingClient);
        }
        fmt::format_to(out, "|c{}", clientID->text());
        break;
    }
    return key;
}

std::string
NumberFormat::render(std::int64_t counter, Instant date, std::string_view clientNumber, const Calendar& calendar) const
{
    return render(counter, calendar.date(date), clientNumber);
}

std::string NumberFormat::render(std::int64_t counter, CalendarDate day, std::string_view clientNumber) const
{
    Writer writer(counter, day, clientNumber);
    for (const Token& token : m_tokens) {
        std::visit(writer, token);
    }
    return writer.takeText();
}

NumberFormat::Counter NumberFormat::counter() const
{
    for (const Token& token : m_tokens) {
        if (const auto* counter = std::get_if<Counter>(&token)) {
            return *counter;
        }
    }
    precondition(false, "a number format has one counter");
    return {};
}

bool NumberFormat::usesClient() const
{
    return counter().reset == Reset::client || holds(m_tokens, Token(Placeholder::client));
}

} // namespace Quillary
