#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>

namespace Quillary {

/// A reference to one stored record: its row key, or nothing. Follow it with `Context::find`.
///
/// Keys are handed out once per library and never reused; they mean nothing outside it (records are named by `uuid`
/// there).
template <class Target>
class Ref
{
public:
    constexpr Ref() = default;
    explicit constexpr Ref(std::int64_t key)
        : m_key(key)
    {
    }

    [[nodiscard]] constexpr std::int64_t key() const { return m_key; } ///< 0 when the reference is empty
    explicit constexpr operator bool() const { return m_key != 0; }

    friend constexpr auto operator<=>(const Ref&, const Ref&) = default;

private:
    std::int64_t m_key = 0;
};

} // namespace Quillary

template <class Target>
struct std::hash<Quillary::Ref<Target>>
{
    std::size_t operator()(const Quillary::Ref<Target>& ref) const noexcept
    {
        return std::hash<std::int64_t>{}(ref.key());
    }
};
