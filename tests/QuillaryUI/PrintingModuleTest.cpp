#include "QuillaryUI/Printing/PagePrinter.h"
#include "QuillaryUI/Printing/ProgramFolders.h"
#include "tests/QuillaryUI/SampleInvoice.h"
#include "tests/Support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <dlfcn.h>

namespace Quillary {
namespace {

ProgramFolders ownFolders()
{
    return ProgramFolders::of(std::filesystem::read_symlink("/proc/self/exe"));
}

bool isEngineLoaded()
{
    return dlopen("libQt6WebEngineCore.so.6", RTLD_NOLOAD | RTLD_LAZY) != nullptr;
}

TEST(PrintingModuleTest, bringsTheEngineOnlyWhenItIsLoaded)
{
    EXPECT_FALSE(isEngineLoaded());
    const std::unique_ptr<PagePrinter> printer = loadPagePrinter(ownFolders().modules);
    EXPECT_TRUE(isEngineLoaded());
    const PrintedPDF pdf = printer->printAndWait(sampleJob());
    EXPECT_EQ(pdf.pageCount, 1);
    EXPECT_FALSE(printer->pageImage(pdf.bytes, 0, 200).empty());
    EXPECT_THROW((void)printer->pageCount({'%', 'P', 'D', 'F'}), UserError); // also across the border
}

TEST(PrintingModuleTest, saysWhenAPartIsMissingOrStrange)
{
    TempFolder folder;
    for (const bool isThere : {false, true}) {
        if (isThere) {
            folder.write("libquillary-printing.so", "no library");
        }
        try {
            (void)loadPagePrinter(folder.path());
            ADD_FAILURE() << "loaded";
        } catch (const PrintError& error) {
            EXPECT_EQ(error.reason(), PrintError::Reason::moduleMissing);
            EXPECT_THAT(error.message(),
                        testing::StartsWith("Pages can't be printed because a part of Quillary is missing."));
        }
    }
}

TEST(ProgramFoldersTest, namesTheTypefacesUnlessAPersonDid)
{
    unsetenv("FONTCONFIG_FILE");
    usePageFonts(ownFolders());
    EXPECT_EQ(std::filesystem::path(getenv("FONTCONFIG_FILE")), ownFolders().data / "fonts" / "quillary-fonts.conf");
    setenv("FONTCONFIG_FILE", "mine.conf", 1);
    usePageFonts(ownFolders());
    EXPECT_STREQ(getenv("FONTCONFIG_FILE"), "mine.conf");
}

} // namespace
} // namespace Quillary
