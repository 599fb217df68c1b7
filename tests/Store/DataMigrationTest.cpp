#include "QuillaryCore/Store/DataMigration.h"

#include "QuillaryCore/Store/Fingerprint.h"
#include "QuillaryCore/Store/LibraryFile.h"
#include "QuillaryCore/Store/LibraryTables.h"
#include "QuillaryCore/Store/StoreError.h"
#include "tests/Store/OldLibraries.h"
#include "tests/Support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace Quillary {

namespace {

namespace fs = std::filesystem;
using OldLibraries::contents;
using OldLibraries::history;
using OldLibraries::names;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr Instant now = std::chrono::sys_days(std::chrono::year{2026} / 11 / 21) + std::chrono::hours(14) +
                        std::chrono::minutes(3) + std::chrono::milliseconds(22'999);
constexpr auto backupName = "Library before upgrade 2026-11-21 14.03.22.sqlite";

class DataMigrationTest : public testing::Test
{
protected:
    TempFolder folder;
    fs::path store = folder / LibraryFile::storeName;

    [[nodiscard]] std::optional<fs::path> upgrade(int version = 4) const
    {
        return DataMigration::upgradeIfNeeded(store, now, history(version));
    }

    /// The refusal, after checking that it left the folder as it was.
    StoreError refusal(const std::function<void()>& action = {})
    {
        const auto before = names(folder.path());
        const std::string bytes = folder.read(LibraryFile::storeName);
        try {
            action ? action() : static_cast<void>(upgrade());
        } catch (const StoreError& error) {
            EXPECT_EQ(names(folder.path()), before);
            EXPECT_TRUE(folder.read(LibraryFile::storeName) == bytes) << "the file was changed";
            return error;
        }
        ADD_FAILURE() << "nothing was refused";
        return {StoreError::Reason::failed, ""};
    }
};

TEST_F(DataMigrationTest, keepsEveryValueThroughThreeVersions)
{
    OldLibraries::makeAndCrash(store, 1, 2);
    const std::string before = contents(store);
    ASSERT_EQ(upgrade(), folder / backupName);
    EXPECT_THAT(names(folder.path()), ElementsAre(backupName, "Library.sqlite"));
    EXPECT_EQ(contents(folder / backupName), before);
    // By hand, from the list of what happens between the versions. "language" keeps the default that version 2 gave.
    EXPECT_EQ(contents(store),
              std::string("Client\n"
                          "  id=7  uuid=\x07" +
                          std::string(15, '\0') +
                          "  fullName=Zoë \"Z\" O'Hara  name=short  language=en  discount=32767  isVIP=0\n"
                          "  id=12  uuid=\x0c" +
                          std::string(15, '\0') +
                          "  fullName=  name=short  language=en  discount=32767  isVIP=0\n"
                          "LibraryInformation\n"
                          "  name=created  value=1234\n"
                          "  name=schemaVersion  value=4\n"
                          "  name=uuid  value=09090000-0000-0000-0000-000000000000\n"
                          "LibraryKeys\n"
                          "  entity=Client  next=40\n"
                          "  entity=Order  next=4000\n"
                          "Line\n"
                          "  id=1  uuid=NULL  text=  order=2  parent=0\n"
                          "  id=2  uuid=NULL  text=  order=2  parent=0\n"
                          "  id=3  uuid=NULL  text=first  order=2  parent=0\n"
                          "  id=4  uuid=NULL  text=  order=1  parent=0\n"
                          "  id=5  uuid=NULL  text=  order=1  parent=0\n"
                          "  id=6  uuid=NULL  text=first  order=1  parent=0\n"
                          "Note\n"
                          "Order\n"
                          "  id=1  uuid=NULL  number=RE-1  amount=-9223372036854775808  issued=NULL  picture=NULL  "
                          "customer=7\n"
                          "  id=2  uuid=NULL  number=RE-2  amount=200  issued=2  picture=") +
                  std::string("\0\1\xff'", 4) + "  customer=7\n");
}

TEST_F(DataMigrationTest, givesTheSameLibraryInOneStepAsInMany)
{
    for (int first = 1; first <= 3; ++first) {
        OldLibraries::makeAndCrash(store, first);
        EXPECT_TRUE(upgrade());
        const std::string direct = contents(store);
        OldLibraries::makeAndCrash(store, first);
        for (int version = first + 1; version <= 4; ++version) {
            EXPECT_TRUE(upgrade(version)) << version;
        }
        EXPECT_EQ(contents(store), direct) << first;
    }
}

TEST_F(DataMigrationTest, makesExactlyTheTablesOfANewLibrary)
{
    const auto tables = [](const fs::path& file) {
        Connection connection(file, Connection::Access::immutable);
        return connection.text("SELECT group_concat(sql, char(10)) FROM (SELECT sql FROM sqlite_master ORDER BY name)");
    };
    OldLibraries::make(folder / "new.sqlite", 4); // closed at once
    for (int version = 1; version <= 3; ++version) {
        OldLibraries::makeAndCrash(store, version);
        EXPECT_TRUE(upgrade());
        EXPECT_EQ(tables(store), tables(folder / "new.sqlite")) << version;
        Connection connection(store, Connection::Access::immutable);
        EXPECT_EQ(connection.text("PRAGMA integrity_check"), "ok");
        EXPECT_TRUE(LibraryTables::isLibrary(connection));
    }
}

TEST_F(DataMigrationTest, givesNewRowsTheNewDefaults)
{
    OldLibraries::makeAndCrash(store, 1);
    EXPECT_TRUE(upgrade());
    Connection connection(store, Connection::Access::readWrite);
    connection.execute("INSERT INTO Client DEFAULT VALUES");
    EXPECT_EQ(connection.text("SELECT language || discount || name FROM Client ORDER BY id DESC"), "de7short");
}

TEST_F(DataMigrationTest, upgradesWhenOnlyDefaultsOrIndexesChanged)
{
    SchemaHistory changed = history();
    changed.older.push_back(changed.current);
    changed.current.version = 5;
    changed.current.entities[0].attributes[1].defaultSQL = "'nobody'";
    changed.current.entities[1].indexes.pop_back();
    OldLibraries::makeAndCrash(store, 4);
    EXPECT_EQ(DataMigration::writtenWith(store, changed), 4);
    EXPECT_TRUE(DataMigration::upgradeIfNeeded(store, now, changed));
    EXPECT_EQ(DataMigration::writtenWith(store, changed), 5);
    Connection connection(store, Connection::Access::immutable);
    EXPECT_EQ(connection.integer("SELECT count(*) FROM sqlite_master WHERE name = 'Order_open'"), 0);
}

TEST_F(DataMigrationTest, leavesCurrentEmptyAndMissingLibrariesAlone)
{
    const std::pair<std::function<void()>, const char*> cases[] = {
        {[] {}, "missing"},
        {[&] { folder.write("Library.sqlite", ""); }, "empty"},
        {[&] { Connection(store, Connection::Access::readWrite); }, "made by SQLite, nothing written"},
        {[&] { OldLibraries::make(store, 4); }, "current"},
        {[&] { OldLibraries::makeAndCrash(store, 4); }, "current, after a crash"},
    };
    for (const auto& [prepare, what] : cases) {
        LibraryFile::removeWithCompanions(store);
        prepare();
        const std::string bytes = folder.read("Library.sqlite");
        EXPECT_EQ(upgrade(), std::nullopt) << what;
        EXPECT_TRUE(folder.read("Library.sqlite") == bytes) << what;
    }
}

TEST_F(DataMigrationTest, refusesWhatItDoesNotKnowAndLeavesItUntouched)
{
    using Reason = StoreError::Reason;
    const auto sql = [&](const char* statement) {
        return [this, statement] {
            OldLibraries::make(store, 2)->execute(statement);
        };
    };
    struct Case
    {
        const char* what;
        std::function<void()> prepare;
        Reason reason;
        const char* words;
    };
    const Case cases[] = {
        {"a text", [&] { folder.write("Library.sqlite", std::string(5000, 'x')); }, Reason::notALibrary, "isn’t a"},
        {"a short text", [&] { folder.write("Library.sqlite", "hello"); }, Reason::notALibrary, "isn’t a"},
        {"another program's database",
         [&] { Connection(store, Connection::Access::readWrite).execute("CREATE TABLE Client (id)"); },
         Reason::notALibrary,
         "isn’t a Quillary library"},
        {"a newer library",
         sql("UPDATE LibraryInformation SET value = 5 WHERE name = 'schemaVersion'"),
         Reason::newerLibrary,
         "newer Quillary (its format is 5, this Quillary knows formats up to 4)"},
        {"a column that no version has",
         sql("ALTER TABLE Customer ADD COLUMN x TEXT"),
         Reason::unknownSchema,
         "tables that no version"},
        {"a type that no version has",
         sql("ALTER TABLE Payment RENAME TO Payments"),
         Reason::unknownSchema,
         "tables that no version"},
        {"a library without its identifier",
         sql("DELETE FROM LibraryInformation WHERE name = 'uuid'"),
         Reason::notALibrary,
         "damaged"},
    };
    for (const auto& [what, prepare, reason, words] : cases) {
        LibraryFile::removeWithCompanions(store);
        prepare();
        const StoreError error = refusal();
        EXPECT_EQ(error.reason(), reason) << what;
        EXPECT_THAT(error.message(), HasSubstr(words)) << what;
    }
}

TEST_F(DataMigrationTest, refusesAFileWithAHoleInTheMiddle)
{
    OldLibraries::make(store, 1, 500);
    fs::resize_file(store, fs::file_size(store) / 2);
    EXPECT_EQ(refusal().reason(), StoreError::Reason::notALibrary);
}

TEST_F(DataMigrationTest, keepsTheLogOfALibraryThatItRefuses)
{
    OldLibraries::makeAndCrash(store, 4);
    const std::string log = folder.read("Library.sqlite-wal");
    EXPECT_THROW(DataMigration::upgradeIfNeeded(store, now, history(3)), StoreError);
    EXPECT_TRUE(folder.read("Library.sqlite-wal") == log);
}

TEST_F(DataMigrationTest, waitsForNobodyWhoHasTheLibraryOpen)
{
    const auto other = OldLibraries::make(store, 1);
    const std::string before = contents(store);
    try {
        EXPECT_TRUE(upgrade());
        FAIL() << "the library was taken from its user";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.reason(), StoreError::Reason::inUse);
    }
    EXPECT_EQ(contents(store), before);
    EXPECT_EQ(names(folder.path()).size(), 3U); // the library, its log and the log's index
}

TEST_F(DataMigrationTest, noticesAProgramThatWritesBesideIt)
{
    OldLibraries::makeAndCrash(store, 1);
    const auto interfere = [&](DataMigration::Step step) {
        if (step == DataMigration::Step::newFileChecked) {
            Connection(store, Connection::Access::readWrite).execute("DELETE FROM Customer");
        }
    };
    try {
        DataMigration::upgradeIfNeeded(store, now, history(), interfere);
        FAIL() << "the other program's change is lost";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.reason(), StoreError::Reason::inUse);
    }
    EXPECT_EQ(DataMigration::writtenWith(store, history()), 1);
}

TEST_F(DataMigrationTest, saysThatAFolderIsReadOnly)
{
    OldLibraries::make(store, 1);
    const auto asNobody = [&] {
        // The superuser may write everywhere.
        const bool isSuperuser = geteuid() == 0;
        chmod(folder.path().c_str(), 0555);
        chmod(store.c_str(), 0444);
        constexpr uid_t nobody = 65534;
        const bool isAway = isSuperuser && seteuid(nobody) == 0;
        try {
            static_cast<void>(upgrade());
        } catch (...) {
            if (isAway && seteuid(0) != 0) {
                std::abort();
            }
            throw;
        }
        if (isAway && seteuid(0) != 0) {
            std::abort();
        }
    };
    const StoreError error = refusal(asNobody);
    EXPECT_EQ(error.reason(), StoreError::Reason::readOnly) << error.message() << error.details();
}

TEST_F(DataMigrationTest, neverOverwritesAnEarlierBackup)
{
    folder.write(backupName, "an earlier one");
    OldLibraries::makeAndCrash(store, 1);
    EXPECT_EQ(upgrade(), folder / "Library before upgrade 2026-11-21 14.03.22 (2).sqlite");
    EXPECT_EQ(folder.read(backupName), "an earlier one");
}

} // namespace

} // namespace Quillary
