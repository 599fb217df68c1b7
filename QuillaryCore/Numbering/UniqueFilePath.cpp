#include "QuillaryCore/Numbering/UniqueFilePath.h"

#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Numbering/FileNameFormat.h"

#include <fmt/format.h>

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <system_error>
#include <unistd.h>

namespace Quillary {

namespace {

constexpr int maximumTries = 10'000;

UniqueFileError failure(int error, const std::filesystem::path& folder)
{
    return {UniqueFileError::Reason::failed,
            fmt::format("A file couldn't be saved in the folder “{}” ({}).",
                        repairedUTF8(folder.string()),
                        std::generic_category().message(error))};
}

UniqueFileError noNewFile(int error, const std::filesystem::path& folder)
{
    using Reason = UniqueFileError::Reason;
    const std::string where = repairedUTF8(folder.string());
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return {Reason::noFolder, fmt::format("There is no folder “{}”.", where)};
    case EACCES:
    case EPERM:
    case EROFS:
        return {Reason::noAccess, fmt::format("Files can't be saved in the folder “{}”.", where)};
    case ENOSPC:
    case EDQUOT:
        return {Reason::diskFull, fmt::format("The disk with the folder “{}” is full.", where)};
    default:
        return failure(error, folder);
    }
}

/// The longest file name that a folder takes. Unit: bytes.
std::size_t longestName(const std::filesystem::path& folder)
{
    const long limit = pathconf(folder.c_str(), _PC_NAME_MAX);
    return limit > 0 ? static_cast<std::size_t>(limit) : 255;
}

/// `stem` with its ending, cut at a character's border so that both have room in `limit` bytes.
std::string fitted(std::string_view stem, std::string_view ending, std::size_t limit)
{
    if (stem.size() + ending.size() > limit) {
        std::string_view cut;
        for (const std::string_view character : graphemes(stem)) {
            if (cut.size() + character.size() + ending.size() > limit) {
                break;
            }
            cut = stem.substr(0, cut.size() + character.size());
        }
        return FileNameFormat::sanitize(cut) += ending;
    }
    return std::string(stem) += ending;
}

/// Makes an empty file, if nothing of that name exists. Zero, or the system's error.
int createNew(const std::filesystem::path& file)
{
    // All may read and write it, as far as the user's mask allows: the file is the user's to share.
    int descriptor = -1;
    do {
        descriptor = open(file.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
    } while (descriptor < 0 && errno == EINTR);
    if (descriptor < 0) {
        return errno;
    }
    close(descriptor);
    return 0;
}

} // namespace

std::filesystem::path
uniqueFilePath(const std::filesystem::path& folder, std::string_view name, std::string_view extension)
{
    const std::string stem = FileNameFormat::sanitize(name);
    const std::size_t limit = longestName(folder);
    for (int copy = 1; copy <= maximumTries; ++copy) {
        const std::string ending = copy == 1 ? fmt::format(".{}", extension) : fmt::format(" ({}).{}", copy, extension);
        std::filesystem::path file = folder / fitted(stem, ending, limit);
        const int error = createNew(file);
        if (error == 0) {
            return file;
        }
        if (error != EEXIST) {
            throw noNewFile(error, folder);
        }
    }
    throw UniqueFileError(
        UniqueFileError::Reason::noFreeName,
        fmt::format("The folder “{}” holds too many files named “{}”.", repairedUTF8(folder.string()), stem));
}

std::filesystem::path moveToUniquePath(const std::filesystem::path& finished,
                                       const std::filesystem::path& folder,
                                       std::string_view name,
                                       std::string_view extension)
{
    std::filesystem::path file = uniqueFilePath(folder, name, extension);
    std::error_code error;
    std::filesystem::rename(finished, file, error);
    if (error) {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
        throw failure(error.value(), folder);
    }
    return file;
}

std::filesystem::path saveUniqueFile(const std::filesystem::path& folder,
                                     std::string_view name,
                                     std::string_view extension,
                                     std::span<const std::uint8_t> bytes)
{
    const std::filesystem::path path = uniqueFilePath(folder, name, extension);
    try {
        return replaceFile(path, bytes);
    } catch (const UserError&) {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
        throw;
    }
}

} // namespace Quillary
