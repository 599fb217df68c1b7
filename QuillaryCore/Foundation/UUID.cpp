#include "QuillaryCore/Foundation/UUID.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <cstring>
#include <unistd.h>

namespace Quillary {

namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";
constexpr std::size_t textLength = 36;

constexpr bool hasHyphenAt(std::size_t position)
{
    return position == 8 || position == 13 || position == 18 || position == 23;
}

std::optional<std::uint8_t> hexValue(char digit)
{
    if (digit >= '0' && digit <= '9') {
        return static_cast<std::uint8_t>(digit - '0');
    }
    if (digit >= 'A' && digit <= 'F') {
        return static_cast<std::uint8_t>(digit - 'A' + 10);
    }
    if (digit >= 'a' && digit <= 'f') {
        return static_cast<std::uint8_t>(digit - 'a' + 10);
    }
    return std::nullopt;
}

/// Marks the bytes as version 4 of the variant that RFC 9562 describes.
void markAsVersion4(UUID::Bytes& bytes)
{
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0FU) | 0x40U);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3FU) | 0x80U);
}

} // namespace

std::optional<UUID> UUID::parse(std::string_view text)
{
    if (text.size() != textLength) {
        return std::nullopt;
    }
    Bytes bytes{};
    std::size_t nibbles = 0;
    for (std::size_t position = 0; position < textLength; ++position) {
        if (hasHyphenAt(position)) {
            if (text[position] != '-') {
                return std::nullopt;
            }
            continue;
        }
        const auto value = hexValue(text[position]);
        if (!value) {
            return std::nullopt;
        }
        std::uint8_t& byte = bytes[nibbles / 2];
        byte = static_cast<std::uint8_t>((byte << 4U) | *value);
        ++nibbles;
    }
    return UUID(bytes);
}

std::string UUID::text() const
{
    std::string result(textLength, '-');
    std::size_t nibbles = 0;
    for (std::size_t position = 0; position < textLength; ++position) {
        if (!hasHyphenAt(position)) {
            const std::uint8_t byte = m_bytes[nibbles / 2];
            result[position] = hexDigits[nibbles % 2 == 0 ? byte >> 4U : byte & 0x0FU];
            ++nibbles;
        }
    }
    return result;
}

UUID RandomUUIDSource::next()
{
    UUID::Bytes bytes{};
    precondition(getentropy(bytes.data(), bytes.size()) == 0, "the system has a random generator");
    markAsVersion4(bytes);
    return UUID(bytes);
}

UUID CountingUUIDSource::next()
{
    // The low 48 bits fill the last group and the high 16 bits the front: all 64 bits show, none under the version.
    const std::uint64_t count = m_next++;
    UUID::Bytes bytes{};
    for (std::size_t index = 0; index < 6; ++index) {
        bytes[15 - index] = static_cast<std::uint8_t>(count >> (8 * index));
    }
    bytes[0] = static_cast<std::uint8_t>(count >> 56U);
    bytes[1] = static_cast<std::uint8_t>(count >> 48U);
    markAsVersion4(bytes);
    return UUID(bytes);
}

} // namespace Quillary

std::size_t std::hash<Quillary::UUID>::operator()(const Quillary::UUID& uuid) const noexcept
{
    std::uint64_t high = 0;
    std::uint64_t low = 0;
    std::memcpy(&high, uuid.bytes().data(), sizeof high);
    std::memcpy(&low, uuid.bytes().data() + sizeof high, sizeof low);
    // Counted identifiers differ in few bits: multiplying and folding spreads them over the whole word.
    std::uint64_t mixed = (high ^ (low * 0x9E3779B97F4A7C15U)) * 0xD6E8FEB86659FD93U;
    mixed ^= mixed >> 32U;
    return static_cast<std::size_t>(mixed);
}
