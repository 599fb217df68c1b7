#pragma once

#include "QuillaryCore/Foundation/Instant.h"

namespace Quillary {

/// What time it is. Comes in from outside, so that every output can be repeated.
class Clock
{
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    [[nodiscard]] virtual Instant now() const = 0;
};

/// The machine's clock.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] Instant now() const override;
};

/// A clock that stands still until it is set.
class FixedClock final : public Clock
{
public:
    explicit FixedClock(Instant instant)
        : m_instant(instant)
    {
    }

    [[nodiscard]] Instant now() const override { return m_instant; }
    void set(Instant instant) { m_instant = instant; }

private:
    Instant m_instant;
};

} // namespace Quillary
