#include "QuillaryCore/Store/LibraryFile.h"

#include "QuillaryCore/Store/StoreFailure.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace Quillary::LibraryFile {

namespace fs = std::filesystem;

namespace {

/// Of a file without a folder, the working folder.
fs::path folderOf(const fs::path& file)
{
    const fs::path folder = file.parent_path();
    return folder.empty() ? "." : folder;
}

constexpr std::array companionSuffixes = {"-wal", "-shm", "-journal"};
constexpr std::size_t headerSize = 100; ///< of an SQLite file

fs::path companion(const fs::path& file, const char* suffix)
{
    fs::path result = file;
    result += suffix;
    return result;
}

/// A file descriptor, closed at the end.
class Descriptor
{
public:
    Descriptor(const fs::path& file, int flags)
        : m_value(::open(file.c_str(), flags | O_CLOEXEC, S_IRUSR | S_IWUSR))
    {
        if (m_value < 0) {
            throw systemFailure(errno, file);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { ::close(m_value); }

    [[nodiscard]] int value() const { return m_value; }

private:
    int m_value;
};

/// Renames without overwriting. Returns 0 or the error.
int renameToFreeName(const fs::path& file, const fs::path& target)
{
    if (::renameat2(AT_FDCWD, file.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return errno;
    }
    // The file system can't do it in one step. Only this program makes such names, and it holds a lock.
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(target, ignored))) {
        return EEXIST;
    }
    return ::rename(file.c_str(), target.c_str()) == 0 ? 0 : errno;
}

} // namespace

bool hasLog(const fs::path& file)
{
    std::error_code error;
    const auto size = fs::file_size(companion(file, "-wal"), error);
    return !error && size != 0;
}

bool hasJournal(const fs::path& file)
{
    std::error_code error;
    const auto size = fs::file_size(companion(file, "-journal"), error);
    return !error && size != 0;
}

void removeLeftovers(const fs::path& folder)
{
    for (const std::string_view name : {upgradingName, keepingName, restoringName}) {
        removeWithCompanions(folder / name);
    }
}

void removeWithCompanions(const fs::path& file)
{
    removeCompanions(file);
    if (::unlink(file.c_str()) != 0 && errno != ENOENT) {
        throw systemFailure(errno, file);
    }
}

void removeCompanions(const fs::path& file)
{
    for (const char* suffix : companionSuffixes) {
        const fs::path other = companion(file, suffix);
        if (::unlink(other.c_str()) != 0 && errno != ENOENT) {
            throw systemFailure(errno, other);
        }
    }
}

void createLike(const fs::path& model, const fs::path& file)
{
    removeWithCompanions(file);
    const Descriptor descriptor(file, O_WRONLY | O_CREAT | O_EXCL);
    struct stat status = {};
    if (::stat(model.c_str(), &status) == 0 && ::fchmod(descriptor.value(), status.st_mode & 0777U) != 0) {
        throw systemFailure(errno, file);
    }
}

void sync(const fs::path& file)
{
    const Descriptor descriptor(file, O_RDONLY);
    if (::fsync(descriptor.value()) != 0) {
        throw systemFailure(errno, file);
    }
}

void syncFolder(const fs::path& folder)
{
    const Descriptor descriptor(folder, O_RDONLY | O_DIRECTORY);
    // Some network file systems know no sync of a folder and write names through; they say so with EINVAL.
    if (::fsync(descriptor.value()) != 0 && errno != EINVAL) {
        throw systemFailure(errno, folder);
    }
}

void replace(const fs::path& file, const fs::path& target)
{
    if (::rename(file.c_str(), target.c_str()) != 0) {
        throw systemFailure(errno, target);
    }
    syncFolder(folderOf(target));
}

fs::path publish(const fs::path& file, const fs::path& wanted)
{
    fs::path target = wanted;
    for (int number = 2;; ++number) {
        const int error = renameToFreeName(file, target);
        if (error == 0) {
            syncFolder(folderOf(target));
            return target;
        }
        if (error != EEXIST) {
            throw systemFailure(error, target);
        }
        target = wanted.parent_path() /
                 fmt::format("{} ({}){}", wanted.stem().string(), number, wanted.extension().string());
    }
}

void copyBytes(const fs::path& file, const fs::path& target)
{
    std::error_code error;
    fs::copy_file(file, target, error);
    if (error) {
        throw systemFailure(error.value(), target);
    }
    sync(target);
}

std::string header(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::string bytes(headerSize, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

} // namespace Quillary::LibraryFile
