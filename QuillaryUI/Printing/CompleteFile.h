#pragma once

#include <cstdint>
#include <span>

/// Whether a picture file reaches its own end. Decoders fill up a file that breaks off, with grey or with nothing, and
/// some complain about it on standard error.
namespace Quillary::CompleteFile {

/// Source: ITU-T T.81, annex B.
[[nodiscard]] bool isWholeJPEG(std::span<const std::uint8_t> file);

/// Source: ISO/IEC 15948, 5.3.
[[nodiscard]] bool isWholePNG(std::span<const std::uint8_t> file);

} // namespace Quillary::CompleteFile
