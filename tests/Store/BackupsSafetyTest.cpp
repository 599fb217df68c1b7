#include "QuillaryCore/Store/Backups.h"
#include "QuillaryCore/Store/LibraryFile.h"
#include "QuillaryCore/Store/StoreError.h"
#include "tests/Store/ChildProcess.h"
#include "tests/Store/FullDisk.h"
#include "tests/Store/OldLibraries.h"
#include "tests/Support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

namespace Quillary {

namespace {

namespace fs = std::filesystem;
using OldLibraries::contents;
using OldLibraries::history;
using OldLibraries::names;
using testing::AnyOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr Instant now = std::chrono::sys_days(std::chrono::year{2026} / 11 / 21);

/// A library whose rows a crash left in the log, and another one to restore.
class BackupsSafetyTest : public testing::Test
{
protected:
    void prepare(int orders)
    {
        OldLibraries::make(temp / "other.sqlite", 4, orders);
        after = contents(temp / "other.sqlite");
        OldLibraries::makeAndCrash(temp / "crashed.sqlite", 4, orders + 1);
        before = contents(temp / "crashed.sqlite");
        putBack();
    }

    void putBack()
    {
        fs::remove_all(folder);
        fs::create_directory(folder);
        fs::copy_file(temp / "crashed.sqlite", store);
        fs::copy_file(temp / "crashed.sqlite-wal", folder / "Library.sqlite-wal");
    }

    void restore(const Backups::RestoreHook& hook = {}) const
    {
        const LibraryLock lock(folder);
        static_cast<void>(backups.restore(temp / "other.sqlite", now, lock, hook));
    }

    /// After a kill: the library is whole, old or restored. Returns whether the restored one is in place.
    bool expectWhole()
    {
        const std::string found = contents(store);
        EXPECT_TRUE(found == before || found == after);
        return found == after;
    }

    /// The next restore works and leaves nothing half made; every backup that has its name is whole.
    void expectRecovery()
    {
        restore();
        EXPECT_TRUE(contents(store) == after);
        EXPECT_THAT(names(folder), ElementsAre("Backups", "Library.lock", "Library.sqlite"));
        for (const std::string& name : names(kept)) {
            EXPECT_THAT(name, StartsWith("Quillary Before Restore 2026-11-21 01.00.00"));
            const std::string backup = contents(kept / name);
            EXPECT_TRUE(backup == before || backup == after) << name;
        }
    }

    TempFolder temp;
    fs::path folder = temp / "library";
    fs::path store = folder / LibraryFile::storeName;
    fs::path kept = folder / LibraryFile::backupsFolderName;
    Backups backups{folder, history(), Calendar("Europe/Berlin")};
    std::string before;
    std::string after;
};

TEST_F(BackupsSafetyTest, survivesAKillAfterEachStep)
{
    prepare(3);
    for (int last = 0; last <= static_cast<int>(Backups::RestoreStep::inPlace); ++last) {
        putBack();
        const auto dieAtLast = [last](Backups::RestoreStep step) {
            if (static_cast<int>(step) == last) {
                ChildProcess::die();
            }
        };
        ASSERT_EQ(ChildProcess::run([&] { restore(dieAtLast); }), ChildProcess::killed);
        EXPECT_EQ(expectWhole(), last == static_cast<int>(Backups::RestoreStep::inPlace)) << last;
        expectRecovery();
    }
}

TEST_F(BackupsSafetyTest, survivesKillsAtAnyMoment)
{
    prepare(1500);
    ChildProcess::Killer killer([&] { restore(); });
    constexpr int rounds = 20;
    constexpr int killsEach = 5;
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        putBack();
        for (int kills = 0; kills < killsEach; ++kills) {
            killer.strike();
            expectWhole();
        }
        expectRecovery();
    }
}

TEST_F(BackupsSafetyTest, leavesNothingHalfDoneOnAFullDisk)
{
    prepare(100);
    const std::function<void()> actions[] = {
        [&] { static_cast<void>(backups.makeNow(now)); },
        [&] { restore(); },
    };
    for (const auto& action : actions) {
        putBack();
        // Emptied of its log: a backup whose tidying up of the log fails is a backup all the same.
        ASSERT_TRUE(Connection(store, Connection::Access::readWrite).checkpoint());
        for (int writes = 0;; ++writes) {
            SCOPED_TRACE(writes);
            const auto error = failureOnFullDisk(writes, action);
            if (!error) {
                break;
            }
            EXPECT_EQ(error->reason(), StoreError::Reason::diskFull) << error->message() << error->details();
            EXPECT_THAT(error->message(), HasSubstr("Make room and try again"));
            EXPECT_THAT(names(kept), IsEmpty());
            EXPECT_THAT(names(folder), Each(AnyOf("Backups", StartsWith("Library.sqlite"), "Library.lock")));
            ASSERT_TRUE(contents(store) == before);
        }
        EXPECT_EQ(names(kept).size(), 1U);
    }
}

} // namespace

} // namespace Quillary
