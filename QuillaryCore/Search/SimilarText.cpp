#include "QuillaryCore/Search/SimilarText.h"

#include "QuillaryCore/Search/TextBlock.h"
#include "QuillaryCore/Search/TextScan.h"

#include <algorithm>
#include <cstddef>

namespace Quillary {

namespace {

using TextScan::isLetter;

constexpr int unlike = 7;

/// Visits the runs of letters and digits, without what joins them.
template <class Visitor>
void forEachToken(std::string_view text, const Visitor& visit)
{
    while (true) {
        const auto begin = std::ranges::find_if(text, isLetter);
        if (begin == text.end()) {
            return;
        }
        const auto end = std::find_if_not(begin, text.end(), isLetter);
        visit(std::string_view(begin, end));
        text = std::string_view(end, text.end());
    }
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool hasDigit(std::string_view text)
{
    return std::ranges::any_of(text, isDigit);
}

/// A number as it is meant: "INV-2026-001", "inv 2026 1" and "Inv2026/01" are one, and no other number is near it.
std::string meantNumber(std::string_view text)
{
    std::string result;
    char before = ' ';
    for (std::size_t index = 0; index < text.size(); ++index) {
        const bool isLeadingZero =
            text[index] == '0' && !isDigit(before) && index + 1 < text.size() && isDigit(text[index + 1]);
        if (isLetter(text[index]) && !isLeadingZero) {
            const bool joinsNumbers =
                isDigit(text[index]) && !isDigit(before) && !result.empty() && isDigit(result.back());
            result += joinsNumbers ? " " : "";
            result += text[index];
        }
        before = isLeadingZero ? ' ' : text[index];
    }
    return result;
}

/// A piece of the query. With a digit in it, it is a number or a code, of which any other is another one.
TypingSlips::Word forgiving(std::string_view text)
{
    return {text, hasDigit(text) ? 0 : TypingSlips::allowed(TypingSlips::letters(text).size())};
}

} // namespace

SimilarText::SimilarText(std::string_view query)
    : m_whole(forgiving(query))
{
    if (hasDigit(query)) {
        m_number = meantNumber(query);
    }
    forEachToken(query, [this](std::string_view token) { m_tokens.push_back(forgiving(token)); });
}

std::u32string SimilarText::longestToken(std::string_view query)
{
    std::u32string longest;
    forEachToken(query, [&longest](std::string_view token) {
        const std::u32string letters = TypingSlips::letters(token);
        longest = letters.size() > longest.size() ? letters : longest;
    });
    return longest;
}

std::optional<SimilarText::Likeness> SimilarText::likenessTo(std::string_view own, std::string_view texts)
{
    std::optional<Likeness> best;
    const auto keepBetter = [&best](int slips, bool isOwn) {
        if (!best || slips < best->slips || (slips == best->slips && isOwn)) {
            best = {.slips = slips, .isOwn = isOwn};
        }
    };
    m_fewest.assign(m_tokens.size(), unlike);
    m_areTokensOwn = true;
    for (std::size_t place = 0; place < texts.size();) {
        const std::string_view rest = texts.substr(place);
        const std::string_view text = rest.substr(0, rest.find(TextBlock::border));
        const bool isOwn = place < own.size();
        place += text.size() + 1;
        const bool isSameNumber = m_number && meantNumber(text) == *m_number;
        if (const std::optional<int> slips = isSameNumber ? 1 : m_whole.slipsTo(text)) {
            keepBetter(*slips, isOwn);
        }
        compareTokens(text, isOwn);
    }
    if (std::ranges::find(m_fewest, unlike) == m_fewest.end()) {
        keepBetter(std::ranges::max(m_fewest), m_areTokensOwn);
    }
    return best;
}

void SimilarText::compareTokens(std::string_view text, bool isOwn)
{
    forEachToken(text, [&](std::string_view token) {
        for (std::size_t index = 0; index < m_tokens.size(); ++index) {
            const int slips = m_tokens[index].slipsTo(token).value_or(unlike);
            m_areTokensOwn = m_areTokensOwn && (isOwn || slips >= m_fewest[index]);
            m_fewest[index] = std::min(m_fewest[index], slips);
        }
    });
}

} // namespace Quillary
