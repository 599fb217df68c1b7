#include "QuillaryCore/Foundation/JSON.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

namespace Quillary {

namespace {

/// The reader turns every fraction into a binary number before it hands over the text, and refuses what is infinite
/// then; the widest type refuses least.
using Reader = nlohmann::basic_json<std::map, std::vector, std::string, bool, std::int64_t, std::uint64_t, long double>;

/// True when each key occurs once. Few keys are compared one with another, many through a table: text from outside may
/// hold a million of them.
bool hasDistinctKeys(const JSON::Object& object)
{
    constexpr std::size_t fewKeys = 12;
    if (object.size() > fewKeys) {
        std::unordered_set<std::string_view> keys;
        keys.reserve(object.size());
        return std::ranges::all_of(object,
                                   [&](const JSON::Member& member) { return keys.insert(member.first).second; });
    }
    for (auto later = object.begin(); later != object.end(); ++later) {
        if (std::any_of(object.begin(), later, [&](const auto& member) { return member.first == later->first; })) {
            return false;
        }
    }
    return true;
}

/// Leaves the last value of each key, at the place of the key's first.
JSON::Object withoutRepeatedKeys(JSON::Object object)
{
    std::unordered_map<std::string, std::size_t> places;
    places.reserve(object.size());
    JSON::Object result;
    for (JSON::Member& member : object) {
        const auto [place, isNew] = places.emplace(member.first, result.size());
        if (isNew) {
            result.push_back(std::move(member));
        } else {
            result[place->second].second = std::move(member.second);
        }
    }
    return result;
}

/// Builds the value while the text is read. Returning false from any of these ends the reading.
class Builder
{
public:
    // The names are the reader's.
    // NOLINTBEGIN(readability-identifier-naming)
    using string_t = std::string;
    using binary_t = Reader::binary_t;

    bool null() { return add(JSON()); }
    bool boolean(bool value) { return add(JSON(value)); }
    bool number_unsigned(std::uint64_t value) { return add(JSON(value)); }
    bool number_integer(std::int64_t value)
    {
        // Zero comes this way only when it was written with a sign.
        return add(value == 0 ? JSON(JSON::Number{"-0"}) : JSON(value));
    }
    bool number_float(long double /*value*/, const std::string& text)
    {
        JSON::Number number{text};
        // The reader writes the point as the process's C locale has it, which need not be a point.
        const auto isForeign = [](char byte) {
            return (byte < '0' || byte > '9') && byte != '-' && byte != '+' && byte != 'e' && byte != 'E';
        };
        std::ranges::replace_if(number.literal, isForeign, '.');
        return add(JSON(std::move(number)));
    }
    bool string(std::string& value) { return add(JSON(std::move(value))); }
    static bool binary(binary_t& /*value*/) { return false; } // does not occur in texts

    bool start_object(std::size_t /*size*/) { return open(JSON(JSON::Object())); }
    bool key(std::string& value)
    {
        JSON::Object& object = *m_open.back().object();
        if (object.empty()) {
            constexpr std::size_t usualKeys = 4;
            object.reserve(usualKeys); // instead of growing key by key
        }
        object.emplace_back(std::move(value), JSON());
        return true;
    }
    bool end_object()
    {
        JSON::Object& object = *m_open.back().object();
        if (!hasDistinctKeys(object)) {
            object = withoutRepeatedKeys(std::move(object));
        }
        return close();
    }
    bool start_array(std::size_t /*size*/) { return open(JSON(JSON::Array())); }
    bool end_array() { return close(); }

    static bool
    parse_error(std::size_t /*position*/, const std::string& /*token*/, const nlohmann::detail::exception& /*error*/)
    {
        return false;
    }
    // NOLINTEND(readability-identifier-naming)

    JSON take() { return std::move(m_result); }

private:
    bool add(JSON value)
    {
        if (m_open.empty()) {
            m_result = std::move(value);
        } else if (auto* array = m_open.back().array()) {
            array->push_back(std::move(value));
        } else {
            m_open.back().object()->back().second = std::move(value);
        }
        return true;
    }

    bool open(JSON container)
    {
        if (m_open.size() >= static_cast<std::size_t>(JSON::maximumDepth)) {
            return false;
        }
        m_open.push_back(std::move(container));
        return true;
    }

    bool close()
    {
        JSON finished = std::move(m_open.back());
        m_open.pop_back();
        return add(std::move(finished));
    }

    std::vector<JSON> m_open;
    JSON m_result;
};

} // namespace

std::optional<JSON> JSON::parse(std::string_view text)
{
    Builder builder;
    // A NUL byte is never part of JSON, but to the reader it is the end of the text.
    if (text.find('\0') != std::string_view::npos || !Reader::sax_parse(text, &builder)) {
        return std::nullopt;
    }
    return builder.take();
}

} // namespace Quillary
