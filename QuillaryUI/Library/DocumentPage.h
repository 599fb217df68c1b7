#pragma once

#include "QuillaryUI/Paper/LivePage.h"

#include <cstdint>

namespace Quillary {

class LibraryAccess;

/// The page of a stored document, as it is whenever it is printed. It shows nothing while the library is away, and once
/// the document is gone; for the key 0 always. `library` outlives it.
[[nodiscard]] LivePage::Source documentPage(const LibraryAccess& library, std::int64_t key);

} // namespace Quillary
