#include "QuillaryCore/Assistant/Access/ActivityLog.h"

#include "QuillaryCore/Foundation/FileLock.h"
#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Quillary {

namespace {

/// Twice as much as the longest entries in the largest number could take.
constexpr std::size_t largestFile = 64'000'000;

} // namespace

ActivityLog::ActivityLog(std::filesystem::path file, std::size_t kept)
    : m_file(std::move(file))
    , m_kept(kept)
{
}

std::vector<std::string> ActivityLog::lines() const
{
    if (!fileStamp(m_file)) {
        return {};
    }
    const std::string text = readFile(m_file, largestFile);
    std::vector<std::string> result;
    for (const std::string_view line : split(text, '\n')) {
        if (!line.empty()) {
            result.emplace_back(line);
        }
    }
    return result;
}

void ActivityLog::append(const ActivityEntry& entry)
{
    const FileLock lock(m_file);
    const auto stamp = fileStamp(m_file);
    if (m_countedSize != (stamp ? stamp->size : 0)) {
        m_lineCount = lines().size(); // the first time, and when another program has appended
    }
    if (m_lineCount + 1 > 2 * m_kept) {
        compact();
    }
    m_countedSize.reset();
    m_countedSize = appendLine(m_file, entry.json().dump());
    ++m_lineCount;
}

void ActivityLog::compact()
{
    std::string text;
    const std::vector<ActivityEntry> entries = last(m_kept);
    for (const ActivityEntry& entry : entries) {
        text += entry.json().dump() + "\n";
    }
    replaceFile(m_file, text);
    m_lineCount = entries.size();
}

std::vector<ActivityEntry> ActivityLog::last(std::size_t count) const
{
    const std::vector<std::string> all = lines();
    std::vector<ActivityEntry> result;
    for (auto line = all.rbegin(); line != all.rend() && result.size() < count; ++line) {
        if (auto entry = ActivityEntry::read(*line)) {
            result.push_back(std::move(*entry));
        }
    }
    std::ranges::reverse(result);
    return result;
}

} // namespace Quillary
