#pragma once

#include "QuillaryCore/Store/StoreError.h"

#include <functional>
#include <optional>

namespace Quillary {

/// Makes SQLite find the disk full: after a number of writes, each of its writes fails as the system's would. For the
/// whole process, as long as the object lives; one at a time.
class FullDisk
{
public:
    explicit FullDisk(int writesBefore);
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk();

    /// Whether a write has failed.
    [[nodiscard]] static bool wasHit();
};

/// What becomes of `action` when the disk is full after a number of writes. No value: it needed no more than those.
[[nodiscard]] std::optional<StoreError> failureOnFullDisk(int writesBefore, const std::function<void()>& action);

} // namespace Quillary
