#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// A 128-bit identifier (RFC 9562).
class UUID
{
public:
    using Bytes = std::array<std::uint8_t, 16>;

    explicit constexpr UUID(const Bytes& bytes)
        : m_bytes(bytes)
    {
    }

    /// Reads the canonical form "8-4-4-4-12", letters in either case. No value: any other text.
    [[nodiscard]] static std::optional<UUID> parse(std::string_view text);

    /// The canonical form with upper-case letters, such as "3F2504E0-4F89-41D3-9A0C-0305E82C3301".
    [[nodiscard]] std::string text() const;

    [[nodiscard]] constexpr const Bytes& bytes() const { return m_bytes; }

    friend constexpr auto operator<=>(const UUID&, const UUID&) = default;

private:
    Bytes m_bytes;
};

/// Where new identifiers come from; tests and repeatable output bring their own.
class UUIDSource
{
public:
    UUIDSource() = default;
    UUIDSource(const UUIDSource&) = delete;
    UUIDSource& operator=(const UUIDSource&) = delete;
    virtual ~UUIDSource() = default;

    virtual UUID next() = 0;
};

/// Random identifiers (version 4) from the system's generator.
class RandomUUIDSource final : public UUIDSource
{
public:
    UUID next() override;
};

/// Identifiers that count up from a seed: the same run makes the same library, for tests and samples.
class CountingUUIDSource final : public UUIDSource
{
public:
    explicit CountingUUIDSource(std::uint64_t seed = 0)
        : m_next(seed)
    {
    }

    UUID next() override;

private:
    std::uint64_t m_next;
};

} // namespace Quillary

template <>
struct std::hash<Quillary::UUID>
{
    std::size_t operator()(const Quillary::UUID& uuid) const noexcept;
};
