#include "QuillaryUI/Printing/ProgramFolders.h"

#include <cstdlib>
#include <system_error>

namespace Quillary {

ProgramFolders ProgramFolders::of(const std::filesystem::path& program)
{
    const std::filesystem::path folder = program.parent_path();
    return {.modules = (folder / QUILLARY_MODULES_FROM_PROGRAM).lexically_normal(),
            .data = (folder / QUILLARY_DATA_FROM_PROGRAM).lexically_normal()};
}

void usePageFonts(const ProgramFolders& folders)
{
    const std::filesystem::path file = folders.data / "fonts" / "quillary-fonts.conf";
    std::error_code ignored; // without the file the system's own fonts serve
    if (std::filesystem::exists(file, ignored)) {
        setenv("FONTCONFIG_FILE", file.c_str(), 0);
    }
}

} // namespace Quillary
