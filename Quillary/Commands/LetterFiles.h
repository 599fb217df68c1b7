#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

namespace Quillary {

/// Files that a command writes together with what it records: all of them stay, or none. Whoever made them calls `keep`
/// when the record is saved; otherwise they go with this object.
class LetterFiles
{
public:
    LetterFiles() = default;
    LetterFiles(const LetterFiles&) = delete;
    LetterFiles& operator=(const LetterFiles&) = delete;
    ~LetterFiles();

    /// Writes a file beside those that are there (`saveUniqueFile`). Returns where it lies. Throws: `UserError`.
    std::filesystem::path save(const std::filesystem::path& folder,
                               std::string_view name,
                               std::string_view extension,
                               std::span<const std::uint8_t> bytes);

    void keep() { m_written.clear(); }

private:
    std::vector<std::filesystem::path> m_written;
};

} // namespace Quillary
