#include "QuillaryCore/Tabular/DelimiterDetection.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace Quillary {

namespace {

constexpr std::size_t sampleLines = 20;

std::string_view withoutBlanks(std::string_view line)
{
    const std::size_t begin = std::min(line.find_first_not_of(" \t"), line.size());
    return line.substr(begin, line.find_last_not_of(" \t") + 1 - begin);
}

/// Where the line that a text begins with ends: at a line break outside quotes, or with the text.
std::size_t lineSize(std::string_view text)
{
    std::size_t position = text.find_first_of("\r\n\"");
    while (position != std::string_view::npos && text[position] == '"') {
        position = text.find('"', position + 1);
        if (position != std::string_view::npos) {
            position = text.find_first_of("\r\n\"", position + 1);
        }
    }
    return std::min(position, text.size());
}

std::vector<std::string_view> firstLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty() && lines.size() < sampleLines) {
        const std::size_t size = lineSize(text);
        if (const std::string_view line = withoutBlanks(text.substr(0, size)); !line.empty()) {
            lines.push_back(line);
        }
        text.remove_prefix(std::min(size + 1, text.size()));
    }
    return lines;
}

std::uint64_t countOutsideQuotes(std::string_view line, char candidate)
{
    std::uint64_t count = 0;
    bool isQuoted = false;
    for (const char byte : line) {
        if (byte == '"') {
            isQuoted = !isQuoted;
        } else if (byte == candidate && !isQuoted) {
            ++count;
        }
    }
    return count;
}

/// 0 when the candidate occurs nowhere.
std::uint64_t score(const std::vector<std::string_view>& lines, char candidate)
{
    std::map<std::uint64_t, std::uint64_t> linesPerCount;
    std::uint64_t used = 0;
    for (const std::string_view line : lines) {
        if (const std::uint64_t count = countOutsideQuotes(line, candidate); count > 0) {
            ++linesPerCount[count];
            ++used;
        }
    }
    std::uint64_t mode = 0;
    std::uint64_t linesOfMode = 0;
    for (const auto& [count, sharing] : linesPerCount) {
        if (sharing >= linesOfMode) { // of counts that are equally common the largest: the most columns
            mode = count;
            linesOfMode = sharing;
        }
    }
    return used * 10'000 + linesOfMode * 100 + mode;
}

} // namespace

char likeliestDelimiter(std::string_view text, std::span<const char> candidates)
{
    const std::vector<std::string_view> lines = firstLines(text);
    char best = candidates.front();
    std::uint64_t bestScore = 0;
    for (const char candidate : candidates) {
        if (const std::uint64_t reached = score(lines, candidate); reached > bestScore) {
            best = candidate;
            bestScore = reached;
        }
    }
    return best;
}

} // namespace Quillary
