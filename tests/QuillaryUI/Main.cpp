#include "QuillaryUI/Printing/ProgramFolders.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <filesystem>

int main(int argumentCount, char** arguments)
{
    testing::InitGoogleTest(&argumentCount, arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("FONTCONFIG_FILE");
    Quillary::usePageFonts(Quillary::ProgramFolders::of(std::filesystem::read_symlink("/proc/self/exe")));
    const QGuiApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
