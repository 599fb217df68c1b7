#pragma once

#include <filesystem>

namespace Quillary {

/// Where the program's own files lie. The build tree has the layout of an installation, so one rule serves both.
struct ProgramFolders
{
    std::filesystem::path modules; ///< parts that are loaded when they are needed
    std::filesystem::path data;    ///< fonts and what else is read only

    /// The folders that belong to a program file, whose own folder is the installation's folder of programs.
    [[nodiscard]] static ProgramFolders of(const std::filesystem::path& program);
};

/// Lets everything that this process draws find the typefaces of the pages: names `fonts/quillary-fonts.conf` to
/// fontconfig through the environment. Call at the start of `main`, before other threads and before any font is used. A
/// person's own FONTCONFIG_FILE stays in force, and the pages then use what it offers.
void usePageFonts(const ProgramFolders& folders);

} // namespace Quillary
