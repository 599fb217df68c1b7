#pragma once

#include "QuillaryCore/Foundation/UserError.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace Quillary {

/// No file could be placed in a folder.
class UniqueFileError : public UserError
{
public:
    enum class Reason {
        noFolder, ///< the folder isn't there
        noAccess, ///< it may not be written to
        diskFull,
        noFreeName, ///< thousands of files carry the name already
        failed,     ///< any other failure of the system
    };

    UniqueFileError(Reason reason, const std::string& message)
        : UserError(message)
        , m_reason(reason)
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }

private:
    Reason m_reason;
};

/// Reserves a name beside existing files: "name.pdf", else "name (2).pdf", "name (3).pdf" and so on.
///
/// On return an empty file of that name exists and is the caller's, whoever else looks for a name at the same time:
/// write the content beside it and rename it over the file, or remove the file. Existing files, links and folders are
/// never touched. `name` is cleaned by `FileNameFormat::sanitize` and shortened at a character's border where the file
/// system can't hold it, so the file lies in `folder` whatever `name` says. `extension` is plain letters without dot.
/// Throws: `UniqueFileError`.
[[nodiscard]] std::filesystem::path
uniqueFilePath(const std::filesystem::path& folder, std::string_view name, std::string_view extension);

/// Moves a finished file, which lies on the same file system, to a name as `uniqueFilePath` finds it. Returns where it
/// lies now. Throws: `UniqueFileError`; the finished file stays where it is.
std::filesystem::path moveToUniquePath(const std::filesystem::path& finished,
                                       const std::filesystem::path& folder,
                                       std::string_view name,
                                       std::string_view extension);

/// Writes a file under a name as `uniqueFilePath` finds it: nobody ever sees half of it. Returns where it lies.
/// Throws: `UserError`; then nothing is left of the attempt.
std::filesystem::path saveUniqueFile(const std::filesystem::path& folder,
                                     std::string_view name,
                                     std::string_view extension,
                                     std::span<const std::uint8_t> bytes);

} // namespace Quillary
