#include "QuillaryCore/Documents/RowTexts.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Search/TextScan.h"

#include <algorithm>
#include <array>

namespace Quillary {

namespace {

/// Up to one row in so many, looking into each of them beats a pass over all texts.
constexpr std::ptrdiff_t fewInRows = 32;

/// The longest first: it is found the least often.
std::vector<std::string_view> wordsOf(std::string_view prepared)
{
    std::vector<std::string_view> words = split(prepared, ' ');
    std::erase(words, std::string_view());
    std::ranges::stable_sort(words, std::ranges::greater(), &std::string_view::size);
    return words;
}

} // namespace

RowTexts::Slot RowTexts::add(std::string_view number,
                             std::string_view title,
                             RowClients::Key client,
                             std::span<const std::string> tags)
{
    m_places.push_back(
        {m_shown.size(), static_cast<std::uint32_t>(number.size()), static_cast<std::uint32_t>(title.size())});
    m_shown += number;
    m_shown += title;
    m_clientOf.push_back(m_clients.number(client));
    const std::vector<std::string_view> further(tags.begin(), tags.end());
    return static_cast<Slot>(m_block.add(std::array{number, title}, further));
}

void RowTexts::clear()
{
    m_shown.clear();
    m_places.clear();
    m_clientOf.clear();
    m_block.clear();
    m_clients.clear();
}

std::vector<std::uint8_t> RowTexts::holding(std::string_view text) const
{
    const std::string prepared = TextBlock::prepared(text);
    const std::vector<std::string_view> words = wordsOf(prepared);
    std::vector<std::uint8_t> marks;
    for (const std::string_view word : words) {
        if (marks.empty()) {
            marks = holdingWord(word);
        } else if (std::ranges::count(marks, 1) * fewInRows < std::ssize(marks)) {
            for (Slot slot = 0; slot < marks.size(); ++slot) {
                marks[slot] = marks[slot] != 0 && holds(slot, word) ? 1 : 0;
            }
        } else {
            const std::vector<std::uint8_t> others = holdingWord(word);
            std::ranges::transform(marks, others, marks.begin(), std::bit_and());
        }
    }
    return marks;
}

std::vector<std::uint8_t> RowTexts::holdingWord(std::string_view word) const
{
    std::vector<std::uint8_t> marks(m_clientOf.size());
    TextScan::run(m_block, word, [&marks](std::size_t slot, std::size_t /*place*/) {
        marks[slot] = 1;
        return TextScan::Then::nextRecord;
    });
    const std::vector<std::uint8_t> clients = m_clients.holding(word);
    std::ranges::transform(marks, m_clientOf, marks.begin(), [&clients](std::uint8_t own, RowClients::Number client) {
        return static_cast<std::uint8_t>(own | clients[client]);
    });
    return marks;
}

std::string RowTexts::preparedTag(std::string_view tag)
{
    return TextBlock::border + TextBlock::prepared(tag) + TextBlock::border;
}

bool RowTexts::hasTag(Slot slot, std::string_view prepared) const
{
    // With the border before the first tag, which is that of the text before.
    const std::size_t own = m_block.begin(slot) + m_block.ownTextOf(slot).size();
    return m_block.text().substr(own - 1, m_block.end(slot) - own + 1).contains(prepared);
}

} // namespace Quillary
