#include "QuillaryCore/Store/Condition.h"

#include <algorithm>
#include <cstddef>

namespace Quillary {

namespace {

constexpr std::string_view orderKeyword = "ORDER BY";
constexpr std::string_view limitKeyword = "LIMIT";

char upper(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

bool isWordCharacter(char character)
{
    const char letter = upper(character);
    return (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9') || letter == '_';
}

bool startsWithWord(std::string_view text, std::string_view word)
{
    return text.size() >= word.size() && std::ranges::equal(text.substr(0, word.size()), word, {}, upper) &&
           (text.size() == word.size() || !isWordCharacter(text[word.size()]));
}

/// The position of a keyword outside quotes and parentheses; the size of the text where there is none.
std::size_t position(std::string_view text, std::string_view keyword)
{
    int depth = 0;
    char quote = 0;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const char character = text[index];
        if (quote != 0) {
            quote = character == quote ? '\0' : quote;
        } else if (character == '\'' || character == '"') {
            quote = character;
        } else if (character == '(') {
            ++depth;
        } else if (character == ')') {
            --depth;
        } else if (depth == 0 && (index == 0 || !isWordCharacter(text[index - 1])) &&
                   startsWithWord(text.substr(index), keyword)) {
            return index;
        }
    }
    return text.size();
}

std::string_view withoutOuterSpace(std::string_view text)
{
    const auto isSpace = [](char character) {
        return character == ' ' || character == '\n';
    };
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

} // namespace

Condition Condition::parse(std::string_view text)
{
    Condition condition;
    const std::size_t limit = position(text, limitKeyword);
    condition.limit = withoutOuterSpace(text.substr(limit));
    text = text.substr(0, limit);
    const std::size_t order = position(text, orderKeyword);
    condition.order = withoutOuterSpace(text.substr(order));
    condition.filter = withoutOuterSpace(text.substr(0, order));
    return condition;
}

} // namespace Quillary
