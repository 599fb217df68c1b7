#include "QuillaryCore/Foundation/Files.h"

#include "QuillaryCore/Foundation/PrivateFiles.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuse(std::string_view action, const fs::path& path, int cause)
{
    throw UserError(fmt::format("{} {}: {}.", action, path.string(), std::generic_category().message(cause)));
}

/// An open file of the system, closed with the object.
class Descriptor
{
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

    /// False where the system only now says that something was not written.
    bool close() { return m_number < 0 || ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};

/// Removes a file that did not come to its place.
class WorkingName
{
public:
    explicit WorkingName(fs::path path)
        : m_path(std::move(path))
    {
    }
    WorkingName(const WorkingName&) = delete;
    WorkingName& operator=(const WorkingName&) = delete;
    ~WorkingName()
    {
        std::error_code ignored;
        if (!m_path.empty()) {
            fs::remove(m_path, ignored);
        }
    }

    [[nodiscard]] const fs::path& path() const { return m_path; }
    void release() { m_path.clear(); }

private:
    fs::path m_path;
};

/// False with `errno` set.
bool writeAll(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return true;
}

/// A new name in a folder is safe from a power cut only when the folder itself was written. Some file systems cannot.
void syncFolder(const fs::path& folder)
{
    const Descriptor directory(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.isOpen()) {
        ::fsync(directory.number());
    }
}

fs::path replaced(const fs::path& path, std::string_view text, mode_t mode)
{
    const fs::path folder = path.parent_path();
    std::error_code failure;
    if (!folder.empty() && !fs::create_directories(folder, failure) && failure) {
        refuse("Couldn't make the folder", folder, failure.value());
    }
    // Short whatever the file's own name is: that may be as long as the file system allows already.
    const std::size_t mark = std::hash<std::string>()(path.filename().string());
    WorkingName working(folder / fmt::format(".{:x}-{}.part", mark, getpid()));
    Descriptor file(::open(working.path().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, mode));
    if (!file.isOpen() || !writeAll(file.number(), text) || ::fsync(file.number()) != 0 || !file.close() ||
        ::rename(working.path().c_str(), path.c_str()) != 0) {
        refuse("Couldn't write", path, errno);
    }
    working.release();
    syncFolder(folder);
    return path;
}

} // namespace

fs::path replaceFile(const fs::path& path, std::string_view text)
{
    constexpr mode_t everyone = 0666; // less what the user's mask takes away
    return replaced(path, text, everyone);
}

fs::path replacePrivateFile(const fs::path& path, std::string_view text)
{
    constexpr mode_t owner = 0600;
    return replaced(path, text, owner);
}

fs::path replaceFile(const fs::path& path, std::span<const std::uint8_t> bytes)
{
    // Bytes and characters are the same on their way into a file.
    return replaceFile(path, std::string(bytes.begin(), bytes.end()));
}

std::uint64_t appendLine(const fs::path& path, std::string_view line)
{
    constexpr mode_t ownerAlone = 0600;
    Descriptor file(::open(path.c_str(), O_RDWR | O_APPEND | O_CREAT | O_NOFOLLOW | O_CLOEXEC, ownerAlone));
    struct stat facts = {};
    if (!file.isOpen() || ::fstat(file.number(), &facts) != 0) {
        refuse("Couldn't open", path, errno);
    }
    char last = '\n';
    if (facts.st_size > 0 && ::pread(file.number(), &last, 1, facts.st_size - 1) < 0) {
        refuse("Couldn't read", path, errno);
    }
    const std::string text = fmt::format("{}{}\n", last == '\n' ? "" : "\n", line);
    if (!writeAll(file.number(), text) || !file.close()) {
        refuse("Couldn't write", path, errno);
    }
    return static_cast<std::uint64_t>(facts.st_size) + text.size();
}

std::optional<FileStamp> fileStamp(const fs::path& path)
{
    struct stat facts = {};
    if (::stat(path.c_str(), &facts) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) {
            return std::nullopt;
        }
        refuse("Couldn't look at", path, errno);
    }
    const auto nanoseconds = [](const timespec& time) {
        return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
    };
    return FileStamp{.device = facts.st_dev,
                     .node = facts.st_ino,
                     .modifiedNanoseconds = nanoseconds(facts.st_mtim),
                     .changedNanoseconds = nanoseconds(facts.st_ctim),
                     .size = static_cast<std::uint64_t>(facts.st_size)};
}

std::string readFile(const fs::path& path, std::size_t limit)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat facts = {};
    if (!file.isOpen() || ::fstat(file.number(), &facts) != 0) {
        refuse("Couldn't open", path, errno);
    }
    if (S_ISDIR(facts.st_mode)) {
        throw UserError(fmt::format("{} is a folder, not a file.", path.string()));
    }
    std::string text;
    std::array<char, 65536> buffer{};
    while (text.size() <= limit) {
        const ssize_t count = ::read(file.number(), buffer.data(), buffer.size());
        if (count < 0 && errno != EINTR) {
            refuse("Couldn't read", path, errno);
        }
        if (count == 0) {
            return text;
        }
        text.append(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    throw UserError(
        fmt::format("{} is too large: at most {}.",
                    path.string(),
                    limit < 1'000'000 ? fmt::format("{} bytes", limit) : fmt::format("{} MB", limit / 1'000'000)));
}

} // namespace Quillary
