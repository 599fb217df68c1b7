#include "QuillaryCore/Store/DataMigration.h"
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
#include <stdexcept>
#include <string>

namespace Quillary {

namespace {

namespace fs = std::filesystem;
using OldLibraries::contents;
using OldLibraries::history;
using OldLibraries::names;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr Instant now{std::chrono::hours(24)};

/// A library of version 1 as a crash left it, with its rows in the log, and what it must become.
class DataMigrationSafetyTest : public testing::Test
{
protected:
    void makeTemplate(int orders)
    {
        OldLibraries::makeAndCrash(crashed.path() / LibraryFile::storeName, 1, orders);
        putBack();
        before = contents(store);
        ASSERT_TRUE(DataMigration::upgradeIfNeeded(store, now, history()));
        after = contents(store);
    }

    /// Begins anew with the crashed library.
    void putBack()
    {
        fs::remove_all(work.path() / "library");
        fs::create_directory(work.path() / "library");
        for (const char* suffix : {"", "-wal"}) {
            const std::string name = std::string(LibraryFile::storeName) + suffix;
            fs::copy_file(crashed / name, work.path() / "library" / name);
        }
    }

    void upgrade(const DataMigration::StepHook& hook = {}) const
    {
        DataMigration::upgradeIfNeeded(store, now, history(), hook);
    }

    /// After a kill: the library is whole, old or new. Returns whether the new one is in place.
    bool expectWhole()
    {
        const bool isNew = DataMigration::writtenWith(store, history()) == 4;
        EXPECT_TRUE(contents(store) == (isNew ? after : before));
        return isNew;
    }

    /// The next start ends with the new library and the old one's backup, and with nothing else.
    void expectRecovery(bool isNew)
    {
        EXPECT_EQ(DataMigration::upgradeIfNeeded(store, now, history()).has_value(), !isNew);
        EXPECT_TRUE(contents(store) == after);
        int backups = 0;
        for (const std::string& name : names(store.parent_path())) {
            if (name != LibraryFile::storeName) {
                EXPECT_THAT(name, StartsWith("Library before upgrade 1970-01-02 00.00.00"));
                EXPECT_TRUE(contents(store.parent_path() / name) == before) << name;
                ++backups;
            }
        }
        EXPECT_GE(backups, 1);
    }

    TempFolder crashed;
    TempFolder work;
    fs::path store = work.path() / "library" / LibraryFile::storeName;
    std::string before;
    std::string after;
};

TEST_F(DataMigrationSafetyTest, survivesAKillAfterEachStep)
{
    makeTemplate(3);
    int steps = 0;
    putBack();
    upgrade([&](DataMigration::Step) { ++steps; });
    ASSERT_EQ(steps, 13); // ten kinds, and one for each of the three entities that live on
    for (int last = 1; last <= steps; ++last) {
        SCOPED_TRACE(last);
        putBack();
        int step = 0;
        const auto dieAtLast = [&](DataMigration::Step) {
            if (++step == last) {
                ChildProcess::die();
            }
        };
        ASSERT_EQ(ChildProcess::run([&] { upgrade(dieAtLast); }), ChildProcess::killed);
        const bool isNew = expectWhole();
        EXPECT_EQ(isNew, last == steps);
        expectRecovery(isNew);
    }
}

TEST_F(DataMigrationSafetyTest, survivesKillsAtAnyMoment)
{
    makeTemplate(2000);
    putBack();
    ChildProcess::Killer killer([&] { upgrade(); });
    constexpr int rounds = 40;
    constexpr int killsEach = 5; // one upgrade that was killed goes on from what the last one left
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        putBack();
        bool isNew = false;
        for (int kills = 0; kills < killsEach; ++kills) {
            killer.strike();
            isNew = expectWhole();
        }
        expectRecovery(isNew);
    }
}

TEST_F(DataMigrationSafetyTest, leavesTheOldLibraryWhenTheDiskIsFull)
{
    makeTemplate(300);
    for (int writes = 0;; ++writes) {
        SCOPED_TRACE(writes);
        putBack();
        const auto failure = failureOnFullDisk(writes, [&] { upgrade(); });
        if (!failure) {
            break;
        }
        EXPECT_EQ(failure->reason(), StoreError::Reason::diskFull) << failure->message() << failure->details();
        EXPECT_THAT(failure->message(), HasSubstr("Make room "));
        for (const std::string& name : names(store.parent_path())) {
            EXPECT_THAT(name, StartsWith("Library.sqlite"));
        }
        ASSERT_TRUE(contents(store) == before);
    }
    EXPECT_TRUE(contents(store) == after);
}

TEST_F(DataMigrationSafetyTest, leavesTheOldLibraryWhenTheUpgradeIsGivenUp)
{
    makeTemplate(3);
    const auto giveUp = [](DataMigration::Step step) {
        if (step == DataMigration::Step::newFileChecked) {
            throw std::runtime_error("given up");
        }
    };
    putBack();
    EXPECT_THROW(upgrade(giveUp), std::runtime_error);
    EXPECT_THAT(names(store.parent_path()), ElementsAre("Library.sqlite"));
    EXPECT_EQ(contents(store), before);
}

} // namespace

} // namespace Quillary
