#include "QuillaryUI/Printing/CompleteFile.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Quillary::CompleteFile {
namespace {

constexpr std::uint8_t markerStart = 0xFF;
constexpr std::uint8_t startOfImage = 0xD8;
constexpr std::uint8_t endOfImage = 0xD9;
constexpr std::uint8_t startOfScan = 0xDA;

/// Marks that stand alone or within a scan's data: stuffed bytes, restarts, fill bytes, TEM.
bool hasNoLength(std::uint8_t marker)
{
    return marker <= 0x01 || (marker >= 0xD0 && marker <= startOfImage) || marker == markerStart;
}

} // namespace

bool isWholeJPEG(std::span<const std::uint8_t> file)
{
    bool isInScan = false;
    std::size_t at = 0;
    while (at + 1 < file.size()) {
        const std::uint8_t marker = file[at + 1];
        if (file[at] != markerStart || (isInScan && hasNoLength(marker))) {
            ++at;
            continue;
        }
        if (marker == endOfImage) {
            return true;
        }
        if (hasNoLength(marker)) {
            at += marker == markerStart ? 1 : 2;
            continue;
        }
        if (at + 3 >= file.size()) {
            return false;
        }
        at += 2 + std::size_t(file[at + 2]) * 256 + file[at + 3];
        isInScan = isInScan || marker == startOfScan;
    }
    return false;
}

bool isWholePNG(std::span<const std::uint8_t> file)
{
    constexpr std::size_t signature = 8;
    constexpr std::size_t aroundData = 12; // length, type and check sum of a chunk
    constexpr std::array<std::uint8_t, 4> end{'I', 'E', 'N', 'D'};
    std::size_t at = signature;
    while (at + aroundData <= file.size()) {
        const std::span<const std::uint8_t> head = file.subspan(at, 8);
        if (std::equal(end.begin(), end.end(), head.begin() + 4)) {
            return true;
        }
        const std::size_t length =
            (std::size_t(head[0]) << 24) + (std::size_t(head[1]) << 16) + (std::size_t(head[2]) << 8) + head[3];
        at += aroundData + length;
    }
    return false;
}

} // namespace Quillary::CompleteFile
