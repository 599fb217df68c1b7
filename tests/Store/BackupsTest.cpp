#include "QuillaryCore/Store/Backups.h"

#include "QuillaryCore/Store/DataMigration.h"
#include "QuillaryCore/Store/LibraryFile.h"
#include "QuillaryCore/Store/StoreError.h"
#include "tests/Store/OldLibraries.h"
#include "tests/Support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>

namespace Quillary {

namespace {

namespace fs = std::filesystem;
using OldLibraries::contents;
using OldLibraries::history;
using OldLibraries::names;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Reason = StoreError::Reason;

/// Ten to midnight in London, ten to one on the next day in Berlin.
constexpr Instant now = std::chrono::sys_days(std::chrono::year{2026} / 11 / 20) + std::chrono::hours(23) +
                        std::chrono::minutes(50) + std::chrono::milliseconds(7'900);

class BackupsTest : public testing::Test
{
protected:
    TempFolder temp;
    fs::path folder = temp / "library";
    fs::path store = folder / LibraryFile::storeName;
    fs::path kept = folder / LibraryFile::backupsFolderName;
    Backups backups{folder, history(), Calendar("Europe/Berlin")};

    void SetUp() override { fs::create_directory(folder); }

    [[nodiscard]] std::optional<fs::path> restore(const fs::path& file) const
    {
        const LibraryLock lock(folder);
        return backups.restore(file, now, lock);
    }

    static void change(const fs::path& library, const char* statement = "UPDATE Client SET fullName = 'changed'")
    {
        Connection(library, Connection::Access::readWrite).execute(statement);
    }

    /// Changes one number of an order in its row or in its index: every row is still there and can be read, and only a
    /// check of the whole file finds that the two differ.
    static void damage(const fs::path& file)
    {
        std::ifstream input(file, std::ios::binary);
        std::string bytes{std::istreambuf_iterator<char>(input), {}};
        bytes.replace(bytes.rfind("RE-150"), 6, "RE-151");
        std::ofstream(file, std::ios::binary) << bytes;
    }
};

StoreError failure(const std::function<void()>& action)
{
    try {
        action();
    } catch (const StoreError& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was refused";
    return {Reason::failed, ""};
}

TEST_F(BackupsTest, holdWhatIsSavedWhileTheLibraryIsInUse)
{
    const auto open = OldLibraries::make(store, 4); // everything is still in the log
    open->begin();
    open->execute("DELETE FROM Client");
    const fs::path backup = backups.makeNow(now);
    open->rollback();
    EXPECT_EQ(backup, kept / "Quillary Backup 2026-11-21 00.50.07.sqlite");
    EXPECT_EQ(contents(backup), contents(store));
    EXPECT_NE(Connection(backup, Connection::Access::readOnly).text("SELECT name FROM sqlite_master"), std::nullopt);
    EXPECT_EQ(names(kept).size(), 1U); // one file by itself: reading it makes none beside it
    EXPECT_EQ(backups.makeNow(now), kept / "Quillary Backup 2026-11-21 00.50.07 (2).sqlite");
    EXPECT_EQ(names(kept).size(), 2U);
}

TEST_F(BackupsTest, areReadByNobodyWhoCannotReadTheLibrary)
{
    OldLibraries::make(store, 4);
    fs::permissions(store, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(backups.makeNow(now)).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(BackupsTest, areMadeOnceADay)
{
    OldLibraries::makeAndCrash(store, 4);
    constexpr std::chrono::minutes halfHour(30);
    EXPECT_EQ(backups.makeDaily(now), kept / "Quillary Auto Backup 2026-11-21.sqlite");
    EXPECT_EQ(backups.makeDaily(now + halfHour), std::nullopt); // a new day in London only
    EXPECT_EQ(backups.makeDaily(now - halfHour * 2), kept / "Quillary Auto Backup 2026-11-20.sqlite");
    EXPECT_EQ(backups.makeDaily(now + std::chrono::days(1)), kept / "Quillary Auto Backup 2026-11-22.sqlite");
    EXPECT_THAT(names(folder), ElementsAre("Backups", "Library.sqlite"));
}

TEST_F(BackupsTest, areKeptForTwoWeeksAndAMonthEach)
{
    OldLibraries::make(store, 4);
    fs::create_directory(kept);
    std::ofstream(kept / "Quillary Auto Backup 2026-10-01 (2).sqlite") << "a person's own copy";
    for (int day = 0; day < 30; ++day) {
        std::ofstream(kept /
                      BackupName{BackupKind::automatic,
                                 std::chrono::local_days(std::chrono::year{2026} / 10 / 22) + std::chrono::days(day)}
                          .text())
            << "old";
    }
    ASSERT_TRUE(backups.makeDaily(now));
    const auto left = names(kept);
    EXPECT_EQ(left.size(), 16U); // today, 13 days before, the end of October, and what isn't ours
    EXPECT_THAT(left, testing::Contains("Quillary Auto Backup 2026-10-31.sqlite"));
    EXPECT_THAT(left, testing::Contains("Quillary Auto Backup 2026-10-01 (2).sqlite"));
    EXPECT_THAT(left, testing::Contains("Quillary Auto Backup 2026-11-08.sqlite"));
}

TEST_F(BackupsTest, areNotMadeOfNothing)
{
    EXPECT_EQ(backups.makeDaily(now), std::nullopt);
    EXPECT_THAT(failure([&] { static_cast<void>(backups.makeNow(now)); }).message(), HasSubstr("nothing to back up"));
    EXPECT_THAT(names(folder), IsEmpty());
}

TEST_F(BackupsTest, ofADamagedLibraryReplaceNoGoodOne)
{
    OldLibraries::make(store, 4, 300);
    ASSERT_TRUE(backups.makeDaily(now));
    damage(store);
    const StoreError error = failure([&] { static_cast<void>(backups.makeDaily(now + std::chrono::days(1))); });
    EXPECT_EQ(error.reason(), Reason::notALibrary);
    EXPECT_THAT(error.message(), HasSubstr("Library.sqlite” is damaged and can’t be read. Restore a backup"));
    EXPECT_THAT(names(kept), ElementsAre("Quillary Auto Backup 2026-11-21.sqlite"));
}

TEST_F(BackupsTest, areListedTheNewestFirst)
{
    EXPECT_THAT(backups.list(), IsEmpty());
    fs::create_directories(kept / "Quillary Backup 2026-11-21 10.00.00.sqlite"); // a folder is none
    const char* files[] = {"Backups/Quillary Backup 2026-03-01 10.00.00.sqlite",
                           "Backups/Quillary Backup 2026-03-01 10.00.00 (2).sqlite",
                           "Backups/Quillary Auto Backup 2026-03-02.sqlite",
                           "Library before upgrade 2026-03-01 23.59.59.sqlite",
                           "Backups/Backup-making.sqlite",
                           "Backups/notes.txt"};
    for (const char* file : files) {
        std::ofstream(folder / file) << "12345";
    }
    std::vector<fs::path> found;
    for (const Backups::Entry& entry : backups.list()) {
        EXPECT_EQ(entry.bytes, 5U);
        found.push_back(entry.file);
    }
    EXPECT_THAT(found, ElementsAre(folder / files[2], folder / files[3], folder / files[0], folder / files[1]));
}

TEST_F(BackupsTest, areRestoredAndTheLibraryIsKept)
{
    OldLibraries::makeAndCrash(store, 4);
    const std::string first = contents(store);
    const fs::path backup = backups.makeNow(now);
    {
        const auto changed = OldLibraries::make(store, 4, 9);
        change(store);
    }
    OldLibraries::makeAndCrash(folder / "other.sqlite", 4, 9); // what a crash leaves: changes in the log only
    fs::rename(folder / "other.sqlite", store);
    fs::rename(folder / "other.sqlite-wal", folder / "Library.sqlite-wal");
    fs::remove(folder / "other.sqlite-shm");
    const std::string second = contents(store);
    ASSERT_NE(first, second);
    const fs::path before = kept / "Quillary Before Restore 2026-11-21 00.50.07.sqlite";
    EXPECT_EQ(restore(backup.filename()), before);
    EXPECT_EQ(contents(store), first);
    EXPECT_EQ(contents(before), second);
    EXPECT_THAT(names(folder), ElementsAre("Backups", "Library.lock", "Library.sqlite"));
    EXPECT_TRUE(restore(before)); // and back again
    EXPECT_EQ(contents(store), second);
    EXPECT_EQ(names(kept).size(), 3U);
}

TEST_F(BackupsTest, areRestoredWhereThereIsNoLibrary)
{
    OldLibraries::make(temp / "elsewhere.sqlite", 4);
    EXPECT_EQ(restore(temp / "elsewhere.sqlite"), std::nullopt);
    EXPECT_EQ(contents(store), contents(temp / "elsewhere.sqlite"));
    EXPECT_EQ(fs::status(store).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(BackupsTest, ofOlderVersionsAreUpgradedWhenOpened)
{
    OldLibraries::makeAndCrash(temp / "old.sqlite", 1); // with its log beside it
    const std::string before = contents(temp / "old.sqlite");
    OldLibraries::make(store, 4);
    EXPECT_TRUE(restore(temp / "old.sqlite"));
    EXPECT_EQ(contents(store), before);
    EXPECT_TRUE(DataMigration::upgradeIfNeeded(store, now, history()));
    EXPECT_EQ(DataMigration::writtenWith(store, history()), 4);
}

TEST_F(BackupsTest, areRefusedWithASentenceAndTheLibraryStays)
{
    OldLibraries::make(store, 4, 300);
    const std::string before = temp.read("library/Library.sqlite");
    temp.write("text.sqlite", "hello");
    temp.write("empty.sqlite", "");
    OldLibraries::make(temp / "newer.sqlite", 4);
    change(temp / "newer.sqlite", "UPDATE LibraryInformation SET value = 5 WHERE name = 'schemaVersion'");
    OldLibraries::make(temp / "unknown.sqlite", 4);
    change(temp / "unknown.sqlite", "DROP TABLE Note");
    OldLibraries::make(temp / "damaged.sqlite", 4, 300);
    damage(temp / "damaged.sqlite");
    struct Case
    {
        fs::path file;
        Reason reason;
        const char* words;
    };
    const Case cases[] = {
        {temp / "text.sqlite", Reason::notALibrary, "isn’t a Quillary library"},
        {temp / "empty.sqlite", Reason::notALibrary, "is empty"},
        {temp / "newer.sqlite", Reason::newerLibrary, "newer Quillary"},
        {temp / "unknown.sqlite", Reason::unknownSchema, "no version of Quillary"},
        {temp / "damaged.sqlite", Reason::notALibrary, "damaged.sqlite” is damaged"},
        {temp / "missing.sqlite", Reason::noAccess, "There is no backup"},
        {temp.path(), Reason::noAccess, "There is no backup"},
        {store, Reason::inUse, "is the library itself"},
    };
    for (const auto& [file, reason, words] : cases) {
        const StoreError error = failure([&] { static_cast<void>(restore(file)); });
        EXPECT_EQ(error.reason(), reason) << file;
        EXPECT_THAT(error.message(), HasSubstr(words)) << file;
        EXPECT_TRUE(temp.read("library/Library.sqlite") == before) << file;
    }
    EXPECT_THAT(names(kept), IsEmpty());
}

TEST_F(BackupsTest, areNotRestoredUnderAnOpenStore)
{
    OldLibraries::make(temp / "other.sqlite", 4, 9);
    const auto open = OldLibraries::make(store, 4);
    const std::string before = contents(store);
    EXPECT_EQ(failure([&] { static_cast<void>(restore(temp / "other.sqlite")); }).reason(), Reason::inUse);
    EXPECT_EQ(contents(store), before);
    EXPECT_THAT(names(kept), IsEmpty());
}

TEST_F(BackupsTest, replaceALibraryThatCannotBeReadAndKeepIt)
{
    OldLibraries::make(temp / "good.sqlite", 4);
    const std::function<void()> faults[] = {
        [&] {
            std::ofstream(store) << "not a database at all";
            std::ofstream(folder / "Library.sqlite-wal") << "nor a log";
        },
        [&] {
            OldLibraries::make(store, 4, 300);
            damage(store);
        },
    };
    for (const auto& spoil : faults) {
        LibraryFile::removeWithCompanions(store);
        fs::remove_all(kept);
        spoil();
        const std::string bytes = temp.read("library/Library.sqlite");
        const std::string log = temp.read("library/Library.sqlite-wal");
        const fs::path before = kept / "Quillary Before Restore 2026-11-21 00.50.07.sqlite";
        EXPECT_EQ(restore(temp / "good.sqlite"), before);
        EXPECT_EQ(contents(store), contents(temp / "good.sqlite"));
        EXPECT_FALSE(LibraryFile::hasLog(store));
        const std::string keptName = fs::relative(before, temp.path()).string();
        const std::string keptBytes = temp.read(keptName);
        EXPECT_EQ(keptBytes.size(), bytes.size());
        constexpr std::size_t header = 100; // says how the file is used, and changes with it
        EXPECT_TRUE(bytes.size() < header || keptBytes.substr(header) == bytes.substr(header));
        EXPECT_EQ(temp.read(keptName + "-wal"), log);
    }
}

} // namespace

} // namespace Quillary
