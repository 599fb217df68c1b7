#include "QuillaryCore/Numbering/UniqueFilePath.h"

#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

TEST(UniqueFilePathTest, countsUpBesideWhatExists)
{
    const TempFolder folder;
    EXPECT_EQ(uniqueFilePath(folder.path(), "Invoice 1", "pdf"), folder / "Invoice 1.pdf");
    EXPECT_EQ(uniqueFilePath(folder.path(), "Invoice 1", "pdf"), folder / "Invoice 1 (2).pdf");
    fs::create_directory(folder / "Invoice 1 (3).pdf");
    fs::create_symlink("nowhere", folder / "Invoice 1 (4).pdf"); // leads out of the folder as soon as it is written to
    EXPECT_EQ(uniqueFilePath(folder.path(), "Invoice 1", "pdf"), folder / "Invoice 1 (5).pdf");
    EXPECT_EQ(uniqueFilePath(folder.path(), "Invoice 1", "png"), folder / "Invoice 1.png");
    EXPECT_FALSE(fs::exists(folder / "nowhere"));
}

TEST(UniqueFilePathTest, neverLeavesItsFolder)
{
    const TempFolder folder;
    fs::create_directory(folder / "inner");
    for (const std::string_view name : {"../outside", "/etc/outside", "..", "a/b"}) {
        EXPECT_EQ(uniqueFilePath(folder / "inner", name, "pdf").parent_path(), folder / "inner") << name;
    }
}

TEST(UniqueFilePathTest, shortensWhatTheFileSystemCanNotHold)
{
    const TempFolder folder;
    std::string name;
    for (int i = 0; i < 200; ++i) {
        name += "株"; // three bytes each: 600 in all
    }
    const std::string first = uniqueFilePath(folder.path(), name, "pdf").filename();
    const std::string second = uniqueFilePath(folder.path(), name, "pdf").filename();
    EXPECT_EQ(first, name.substr(0, std::size_t{83} * 3) + ".pdf"); // 253 of 255 bytes, no character cut
    EXPECT_EQ(second, name.substr(0, std::size_t{82} * 3) + " (2).pdf");
}

TEST(UniqueFilePathTest, twoAtOnceNeverGetOneName)
{
    const TempFolder folder;
    constexpr int eachTakes = 50;
    std::vector<std::vector<fs::path>> taken(4);
    std::vector<std::jthread> threads;
    threads.reserve(taken.size());
    for (auto& mine : taken) {
        threads.emplace_back([&folder, &mine] {
            for (int i = 0; i < eachTakes; ++i) {
                mine.push_back(uniqueFilePath(folder.path(), "Quote", "pdf"));
            }
        });
    }
    threads.clear();
    std::set<fs::path> all;
    for (const auto& mine : taken) {
        all.insert(mine.begin(), mine.end());
    }
    EXPECT_EQ(all.size(), taken.size() * eachTakes);
}

TEST(UniqueFilePathTest, movesAFinishedFile)
{
    TempFolder folder;
    folder.write("Invoice.pdf", "the user's own");
    folder.write("working", "finished");
    const fs::path placed = moveToUniquePath(folder / "working", folder.path(), "Invoice", "pdf");
    EXPECT_EQ(placed, folder / "Invoice (2).pdf");
    EXPECT_EQ(folder.read("Invoice (2).pdf"), "finished");
    EXPECT_EQ(folder.read("Invoice.pdf"), "the user's own");
    EXPECT_FALSE(fs::exists(folder / "working"));
}

TEST(UniqueFilePathTest, saysWhyAFileCanNotBePlaced)
{
    TempFolder folder;
    const fs::path missing = folder / "missing";
    try {
        static_cast<void>(uniqueFilePath(missing, "Invoice", "pdf"));
        FAIL() << "a folder is not made on the way";
    } catch (const UniqueFileError& error) {
        EXPECT_EQ(error.reason(), UniqueFileError::Reason::noFolder);
        EXPECT_EQ(error.message(), "There is no folder “" + missing.string() + "”.");
    }

    EXPECT_THROW(moveToUniquePath(folder / "no such file", folder.path(), "Invoice", "pdf"), UniqueFileError);
    EXPECT_FALSE(fs::exists(folder / "Invoice.pdf")) << "what was reserved is given back";

    const fs::path notAFolder = folder.write("file", "");
    try {
        static_cast<void>(uniqueFilePath(notAFolder, "Invoice", "pdf"));
        FAIL() << "a file is no folder";
    } catch (const UniqueFileError& error) {
        EXPECT_EQ(error.reason(), UniqueFileError::Reason::noFolder);
    }
}

} // namespace

} // namespace Quillary
