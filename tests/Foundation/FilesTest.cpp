#include "QuillaryCore/Foundation/Files.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "tests/Support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

std::ptrdiff_t entries(const fs::path& folder)
{
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

/// The sentence of a refusal; empty when nothing was refused.
template <class Action>
std::string refusal(const Action& action)
{
    try {
        action();
    } catch (const UserError& error) {
        return error.message();
    }
    return "";
}

TEST(FilesTest, writesWholeFilesWithTheirFolders)
{
    const TempFolder folder;
    const fs::path path = folder / "a/b/page.html";
    EXPECT_EQ(replaceFile(path, "first, and longer"), path);
    replaceFile(path, "second");
    EXPECT_EQ(readFile(path, 100), "second");
    EXPECT_EQ(entries(folder / "a/b"), 1); // no working file is left
    replaceFile(path, std::array<std::uint8_t, 3>{0, 0xFF, 10});
    EXPECT_EQ(readFile(path, 3), std::string("\0\xFF\n", 3));
    replaceFile(path, "");
    EXPECT_EQ(readFile(path, 0), "");
    const fs::path longest = folder / std::string(255, 'x'); // the working name must fit as well
    EXPECT_EQ(replaceFile(longest, "whole"), longest);
}

TEST(FilesTest, newFilesObeyTheUsersMask)
{
    const TempFolder folder;
    const mode_t before = umask(027);
    replaceFile(folder / "page.html", "x");
    umask(before);
    EXPECT_EQ(fs::status(folder / "page.html").permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST(FilesTest, whatCannotBeWrittenIsSaidAndLeavesNothing)
{
    TempFolder folder;
    folder.write("file", "x");
    fs::create_directory(folder / "place");
    EXPECT_EQ(refusal([&] { replaceFile(folder / "file/page.html", "y"); }),
              "Couldn't make the folder " + (folder / "file").string() + ": Not a directory.");
    EXPECT_EQ(refusal([&] { replaceFile(folder / "place", "y"); }),
              "Couldn't write " + (folder / "place").string() + ": Is a directory.");
    EXPECT_EQ(entries(folder.path()), 2);
    EXPECT_EQ(refusal([] { replaceFile("/dev/full/x", "y"); }), "Couldn't make the folder /dev/full: Not a directory.");
}

TEST(FilesTest, readsNoMoreThanTheLimit)
{
    TempFolder folder;
    folder.write("file", std::string(100'000, 'x'));
    EXPECT_EQ(readFile(folder / "file", 100'000).size(), 100'000U);
    EXPECT_EQ(refusal([&] { std::ignore = readFile(folder / "file", 99'999); }),
              (folder / "file").string() + " is too large: at most 99999 bytes.");
    EXPECT_EQ(refusal([] { std::ignore = readFile("/dev/zero", 20'000'000); }),
              "/dev/zero is too large: at most 20 MB.");
}

TEST(FilesTest, whatCannotBeReadIsSaid)
{
    const TempFolder folder;
    EXPECT_EQ(refusal([&] { std::ignore = readFile(folder / "none", 10); }),
              "Couldn't open " + (folder / "none").string() + ": No such file or directory.");
    EXPECT_EQ(refusal([&] { std::ignore = readFile(folder.path(), 10); }),
              folder.path().string() + " is a folder, not a file.");
}

} // namespace

} // namespace Quillary
