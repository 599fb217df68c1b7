// However bytes arrive, the same lines come of them: those that splitting the whole at its newlines gives.

#include "QuillaryCore/Assistant/Session/LineBuffer.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

using namespace Quillary;

namespace {

/// The first byte decides about the sizes of the pieces; the length of a line is a matter of its own test.
std::size_t pieceSize(std::uint8_t seed, std::size_t at)
{
    return 1 + (seed * (at + 1)) % 37;
}

void collect(LineBuffer& buffer, std::vector<std::string>& lines)
{
    while (auto line = buffer.next()) {
        precondition(!line->isTooLong, "no line of an input is too long");
        lines.push_back(std::move(line->text));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::vector<std::string_view> expected = split(bytes, '\n');
    const std::string_view rest = expected.back();
    expected.pop_back();
    std::erase_if(expected, [](std::string_view line) { return line.find_first_not_of(" \r") == std::string::npos; });

    LineBuffer buffer;
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = pieceSize(data[0], at);
        buffer.append(bytes.substr(at, length));
        at += length;
        if (at % 3 != 0) {
            collect(buffer, lines);
        }
        if (at % 7 == 0) {
            buffer = LineBuffer(buffer.take()); // handed to another process
        }
    }
    collect(buffer, lines);
    precondition(std::ranges::equal(lines, expected), "each line comes out once and in order");
    precondition(buffer.take().pending == rest, "what has no newline yet is kept");
    return 0;
}
