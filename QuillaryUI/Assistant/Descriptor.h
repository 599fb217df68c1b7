#pragma once

#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace Quillary {

/// Owns a file descriptor, or none.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    Descriptor(Descriptor&& other) noexcept
        : m_number(std::exchange(other.m_number, none))
    {
    }
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        Descriptor old(std::exchange(m_number, std::exchange(other.m_number, none)));
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (isOpen()) {
            ::close(m_number);
        }
    }

    /// A second descriptor of the same open file, which programs started from this one don't get. None when the system
    /// has none left.
    [[nodiscard]] static Descriptor duplicateOf(int number) { return Descriptor(fcntl(number, F_DUPFD_CLOEXEC, 0)); }

    /// What the system's functions take. Negative: there is none.
    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

    /// Gives the descriptor away without closing it.
    [[nodiscard]] int release() { return std::exchange(m_number, none); }

private:
    static constexpr int none = -1;
    int m_number = none;
};

} // namespace Quillary
