#pragma once

namespace Quillary {

/// Whether the user has locked the application, so that nobody sees or changes anything until it is unlocked.
class AppLock
{
public:
    AppLock() = default;
    AppLock(const AppLock&) = delete;
    AppLock& operator=(const AppLock&) = delete;
    virtual ~AppLock() = default;

    [[nodiscard]] virtual bool isLocked() const = 0;
};

/// Where nothing can be locked.
class NoAppLock final : public AppLock
{
public:
    [[nodiscard]] bool isLocked() const override { return false; }
};

} // namespace Quillary
