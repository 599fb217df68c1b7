#include "QuillaryCore/Documents/RowClients.h"

#include "QuillaryCore/Model/ClientNames.h"
#include "QuillaryCore/Search/TextScan.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <tuple>

namespace Quillary {

void RowClients::clear()
{
    m_numbers.clear();
    m_farNumbers.clear();
    m_keys = {0};
    m_names = {{}};
    m_block.clear();
    m_block.add({}, {});
}

/// Where a client's number stands; 0 until it has one.
RowClients::Number& RowClients::entered(Key key)
{
    constexpr Key farKey = 1'000'000;
    if (key < 0 || key >= farKey) {
        return m_farNumbers[key];
    }
    const auto place = static_cast<std::size_t>(key);
    if (place >= m_numbers.size()) {
        m_numbers.resize(2 * place + 1);
    }
    return m_numbers[place];
}

RowClients::Number RowClients::number(Key key)
{
    if (key == 0) {
        return 0;
    }
    Number& number = entered(key);
    if (number == 0) {
        number = static_cast<Number>(m_keys.size());
        m_keys.push_back(key);
    }
    return number;
}

void RowClients::readNames(Context& context)
{
    std::vector<Number> numbers(m_keys.size() - m_names.size());
    std::iota(numbers.begin(), numbers.end(), static_cast<Number>(m_names.size()));
    m_names.resize(m_keys.size());
    readNames(context, numbers);
    for (const Number number : numbers) {
        m_block.add(std::array{std::string_view(m_names[number])}, {});
    }
}

bool RowClients::rename(Context& context, std::span<const Key> keys)
{
    std::vector<Number> numbers;
    for (const Key key : keys) {
        if (const Number number = entered(key); number != 0) {
            numbers.push_back(number);
        }
    }
    if (numbers.empty()) {
        return false;
    }
    readNames(context, numbers);
    m_block.clear(); // a block keeps its texts where they are, and a longer name has no room
    for (const std::string& name : m_names) {
        m_block.add(std::array{std::string_view(name)}, {});
    }
    return true;
}

void RowClients::readNames(Context& context, std::span<const Number> numbers)
{
    std::vector<Key> keys(numbers.size());
    std::ranges::transform(numbers, keys.begin(), [this](Number number) { return m_keys[number]; });
    const ClientNames names(context, std::move(keys));
    for (const Number number : numbers) {
        const ClientNames::Client* client = names.find(m_keys[number]);
        m_names[number] = client == nullptr ? std::string() : client->name;
    }
}

std::vector<std::uint8_t> RowClients::holding(std::string_view word) const
{
    std::vector<std::uint8_t> marks(m_keys.size());
    TextScan::run(m_block, word, [&marks](std::size_t number, std::size_t /*place*/) {
        marks[number] = 1;
        return TextScan::Then::nextRecord;
    });
    return marks;
}

std::vector<std::uint32_t> RowClients::ranks() const
{
    std::vector<Number> numbers(m_keys.size());
    std::iota(numbers.begin(), numbers.end(), Number{0});
    std::ranges::sort(numbers, [this](Number left, Number right) {
        return std::tuple(m_block.textOf(left), m_keys[left]) < std::tuple(m_block.textOf(right), m_keys[right]);
    });
    std::vector<std::uint32_t> ranks(numbers.size());
    for (std::uint32_t rank = 0; rank < numbers.size(); ++rank) {
        ranks[numbers[rank]] = rank;
    }
    return ranks;
}

} // namespace Quillary
