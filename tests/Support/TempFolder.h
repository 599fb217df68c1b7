#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace Quillary {

/// An empty folder of a test's own, mode 0700, removed with all it holds when the object goes.
///
/// Lies in the system's folder for temporary files; its name is new for every object, so tests may run side by side.
/// Throws: `std::filesystem::filesystem_error` when it cannot be made.
class TempFolder
{
public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Removes the folder, also where a test took away the right to write in a subfolder.
    ~TempFolder();

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    /// `path() / name`
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const { return m_path / name; }

    /// Writes a file below the folder, with the folders between. Throws: as the constructor does.
    std::filesystem::path write(std::string_view name, std::string_view bytes);

    /// All bytes of a file below the folder; empty when there is no such file.
    [[nodiscard]] std::string read(std::string_view name) const;

private:
    std::filesystem::path m_path;
};

} // namespace Quillary
