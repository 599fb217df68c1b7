#include "QuillaryCore/Assistant/Session/LineBuffer.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {
namespace {

constexpr std::string_view tooLong = "(too long)";

std::vector<std::string> linesOf(LineBuffer& buffer)
{
    std::vector<std::string> lines;
    while (auto line = buffer.next()) {
        lines.push_back(line->isTooLong ? std::string(tooLong) : std::move(line->text));
    }
    return lines;
}

/// Every line that comes out when the bytes arrive in pieces of one size.
std::vector<std::string> linesInPieces(std::string_view bytes, std::size_t size)
{
    LineBuffer buffer;
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size(); at += size) {
        buffer.append(bytes.substr(at, size));
        for (std::string& line : linesOf(buffer)) {
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

TEST(LineBufferTest, cutsTheSameLinesHoweverTheBytesArrive)
{
    const std::string_view bytes = "{\"a\":1}\n\n \r \r\n{}\r\nä\n\t\nhalf";
    const std::vector<std::string> expected = {"{\"a\":1}", "{}\r", "ä", "\t"};
    for (std::size_t size = 1; size <= bytes.size(); ++size) {
        EXPECT_EQ(linesInPieces(bytes, size), expected) << size;
    }
}

TEST(LineBufferTest, tellsOnceOfALineThatIsTooLongAndSkipsIt)
{
    const std::string longest(LineBuffer::longestLine, 'a');
    const std::string bytes = "1\n" + longest + "\n2\n" + longest + "b\n3\n" + longest + longest + "\n4\n";
    const std::vector<std::string> expected = {"1", longest, "2", std::string(tooLong), "3", std::string(tooLong), "4"};
    for (const std::size_t size : {std::size_t{65536}, LineBuffer::longestLine + 1, bytes.size()}) {
        EXPECT_TRUE(linesInPieces(bytes, size) == expected) << size; // not printed: it is large
    }
}

TEST(LineBufferTest, anotherBufferGoesOnWhereOneStopped)
{
    LineBuffer first;
    first.append("1\n2\n{\"ha");
    EXPECT_EQ(first.next()->text, "1");
    LineBuffer second(first.take());
    second.append("lf\"}\n");
    EXPECT_EQ(linesOf(second), (std::vector<std::string>{"2", "{\"half\"}"}));

    LineBuffer skipping;
    skipping.append(std::string(LineBuffer::longestLine + 1, 'a'));
    EXPECT_EQ(linesOf(skipping), std::vector<std::string>{std::string(tooLong)});
    LineBuffer next(skipping.take());
    next.append("still the long one\n5\n");
    EXPECT_EQ(linesOf(next), std::vector<std::string>{"5"});
}

} // namespace
} // namespace Quillary
