#include "tests/Support/TempFolder.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

namespace Quillary {

namespace {

std::filesystem::path madeFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "quillary-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::filesystem::filesystem_error(
            "no temporary folder", name, std::error_code(errno, std::generic_category()));
    }
    return name;
}

void makeWritable(const std::filesystem::path& folder)
{
    std::error_code ignored;
    std::filesystem::permissions(
        folder, std::filesystem::perms::owner_all, std::filesystem::perm_options::add, ignored);
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
        if (entry.is_directory(ignored) && !entry.is_symlink(ignored)) {
            makeWritable(entry.path());
        }
    }
}

} // namespace

TempFolder::TempFolder()
    : m_path(madeFolder())
{
}

TempFolder::~TempFolder()
{
    std::error_code ignored;
    makeWritable(m_path);
    std::filesystem::remove_all(m_path, ignored);
}

std::filesystem::path TempFolder::write(std::string_view name, std::string_view bytes)
{
    std::filesystem::path file = m_path / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) {
        throw std::filesystem::filesystem_error(
            "a test file was not written", file, std::make_error_code(std::errc::io_error));
    }
    return file;
}

std::string TempFolder::read(std::string_view name) const
{
    std::ifstream stream(m_path / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

} // namespace Quillary
