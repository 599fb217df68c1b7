#pragma once

#include "QuillaryCore/Store/LibraryLock.h"
#include "QuillaryUI/Assistant/Descriptor.h"

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

/// Waits a moment for another command to end, then asks a running Quillary. Throws: `StoreError` when the library is in
/// use and not lent, or its folder can't be used.
[[nodiscard]] LibraryClaim claimLibrary(const std::filesystem::path& folder);

} // namespace Quillary
