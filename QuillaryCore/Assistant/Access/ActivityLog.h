#pragma once

#include "QuillaryCore/Assistant/Access/ActivityEntry.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

/// What assistants did, over restarts: a file with one entry a line, the newest last. Several programs may append, and
/// any may read meanwhile.
class ActivityLog
{
public:
    static constexpr const char* fileName = "assistants.log";

    /// Keeps the last `kept` entries at least, and never more than twice as many. A missing file is an empty log.
    explicit ActivityLog(std::filesystem::path file, std::size_t kept = 2'000);

    /// Not forced onto the disk at once: a power cut may cost the last entries, and nothing else.
    /// Throws: `UserError`.
    void append(const ActivityEntry& entry);

    /// The last entries, the newest last. Lines that are no entry, such as one that a crash tore, are passed over.
    /// Throws: `UserError`.
    [[nodiscard]] std::vector<ActivityEntry> last(std::size_t count) const;

private:
    [[nodiscard]] std::vector<std::string> lines() const;
    void compact();

    std::filesystem::path m_file;
    std::size_t m_kept;
    std::size_t m_lineCount = 0;
    std::optional<std::uint64_t> m_countedSize; ///< of the file when `m_lineCount` was its number of lines
};

} // namespace Quillary
