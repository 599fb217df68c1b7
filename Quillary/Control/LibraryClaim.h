#pragma once

#include "QuillaryCore/Store/LibraryLock.h"
#include "QuillaryUI/Assistant/Descriptor.h"

#include <chrono>
#include <filesystem>
#include <memory>

namespace Quillary {

/// The right to write a library: the system's lock, or the lock of a running Quillary, which has closed the library and
/// waits until this object goes.
struct LibraryClaim
{
    Descriptor lender; ///< first, so that it goes last: only then does the lender go on
    std::unique_ptr<LibraryLock> lock;
};

/// Another command, or a Quillary that is just starting, takes no longer than this.
inline constexpr std::chrono::milliseconds patienceWithCommands{1500};

/// Asks a running Quillary, or waits for another command to end: for `patience` where nobody can be asked, and longer
/// while a running Quillary was busy with others. Throws: `StoreError` when the library is in use and not lent, or its
/// folder can't be used.
[[nodiscard]] LibraryClaim claimLibrary(const std::filesystem::path& folder,
                                        std::chrono::milliseconds patience = patienceWithCommands);

} // namespace Quillary
