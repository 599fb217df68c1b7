#include "QuillaryCore/Store/Store.h"

#include "QuillaryCore/Store/Interruption.h"
#include "QuillaryCore/Store/LibraryTables.h"
#include "tests/Store/ChildProcess.h"
#include "tests/Store/Shelf.h"
#include "tests/Support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <thread>

namespace Quillary {

namespace {

using namespace Shelf;
using testing::HasSubstr;
using Reason = StoreError::Reason;
namespace fs = std::filesystem;

class StoreTest : public testing::Test
{
protected:
    FixedClock clock{Instant{std::chrono::milliseconds(1'600'000'000'123)}};
    RandomUUIDSource uuids;
    TempFolder temp;

    std::unique_ptr<Store> open(const fs::path& folder)
    {
        return std::make_unique<Store>(Store::Location::directory(folder), records(), history(), clock, uuids);
    }

    /// A library with one book.
    UUID makeLibrary(const fs::path& folder)
    {
        const auto store = open(folder);
        Context context(*store, clock, uuids);
        context.insert<Book>().title = "saved";
        context.save();
        return store->uuid();
    }

    /// Every file below a folder with its bytes.
    static std::map<std::string, std::string> files(const fs::path& folder)
    {
        std::map<std::string, std::string> found;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (entry.is_regular_file() && entry.path().filename() != LibraryLock::fileName) {
                std::ifstream stream(entry.path(), std::ios::binary);
                found[entry.path().string()] = std::string(std::istreambuf_iterator<char>(stream), {});
            }
        }
        return found;
    }

    /// What opening fails with; the message also names the folder.
    StoreError failure(const fs::path& folder)
    {
        try {
            open(folder);
        } catch (const StoreError& error) {
            EXPECT_THAT(error.message(), HasSubstr(temp.path().string()));
            return error;
        }
        return {Reason::failed, "it opens"};
    }
};

TEST_F(StoreTest, makesWhatIsMissingAndFindsItAgain)
{
    const fs::path folder = temp / "a/b/Åäö # 100% ?";
    const UUID uuid = makeLibrary(folder);
    const auto rights = fs::status(folder / "Library.sqlite").permissions();
    EXPECT_EQ(rights, fs::perms::owner_read | fs::perms::owner_write) << "what is in it is nobody else's business";
    EXPECT_FALSE(fs::exists(folder / "Library.sqlite-wal")) << "a closed library is one file";
    const auto store = open(folder);
    EXPECT_EQ(store->uuid(), uuid);
    EXPECT_EQ(store->upgradeBackup(), std::nullopt);
    EXPECT_EQ(store->recordName(uuid), std::nullopt);
    Context context(*store, clock, uuids);
    ASSERT_EQ(context.count<Book>(""), 1);
    EXPECT_EQ(context.first<Book>("")->title, "saved");
    EXPECT_EQ(store->connection().text("PRAGMA integrity_check"), "ok");
    EXPECT_EQ(store->connection().text("PRAGMA journal_mode"), "wal");
    EXPECT_EQ(store->connection().integer("PRAGMA synchronous"), 2);
}

TEST_F(StoreTest, inMemoryWritesNothing)
{
    Store store(Store::Location::inMemory(), records(), history(), clock, uuids);
    EXPECT_EQ(store.location().file(), "/dev/null");
    Context context(store, clock, uuids);
    context.insert<Book>();
    context.save();
    EXPECT_EQ(context.count<Book>(""), 1);
    EXPECT_FALSE(store.isReadOnly());
}

TEST_F(StoreTest, refusesOtherFilesAndLeavesThemAsTheyAre)
{
    struct Case
    {
        const char* name;
        std::function<void(const fs::path& file)> make;
        Reason reason;
    };
    const auto sqlite = [](const fs::path& file, const char* sql) {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
        ASSERT_EQ(sqlite3_close(database), SQLITE_OK);
    };
    const Case cases[] = {
        {"a text", [](const fs::path& file) { std::ofstream(file) << std::string(5000, 'x'); }, Reason::notALibrary},
        {"a short text", [](const fs::path& file) { std::ofstream(file) << "x"; }, Reason::notALibrary},
        {"another program's database",
         [&](const fs::path& file) { sqlite(file, "CREATE TABLE Book (id INTEGER PRIMARY KEY)"); },
         Reason::notALibrary},
        {"a later version",
         [&](const fs::path& file) {
             makeLibrary(file.parent_path());
             sqlite(file, "UPDATE LibraryInformation SET value = 2 WHERE name = 'schemaVersion'");
         },
         Reason::newerLibrary},
        {"tables that nobody made",
         [&](const fs::path& file) {
             makeLibrary(file.parent_path());
             sqlite(file, "ALTER TABLE Book ADD COLUMN more TEXT");
         },
         Reason::unknownSchema},
        {"a damaged page",
         [&](const fs::path& file) {
             makeLibrary(file.parent_path());
             std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
             stream.seekp(100);
             stream << std::string(200, '\xff');
         },
         Reason::notALibrary},
        {"a folder in its place", [](const fs::path& file) { fs::create_directory(file); }, Reason::noAccess},
    };
    int number = 0;
    for (const Case& each : cases) {
        const fs::path folder = temp / std::to_string(++number);
        fs::create_directory(folder);
        each.make(folder / Store::fileName);
        const auto before = files(folder);
        EXPECT_EQ(failure(folder).reason(), each.reason) << each.name;
        EXPECT_TRUE(files(folder) == before) << each.name;
    }
    EXPECT_EQ(failure(temp / "1/Library.sqlite/x").reason(), Reason::noAccess) << "a file where a folder should be";
}

TEST_F(StoreTest, anUnfinishedNewFileIsFinished)
{
    temp.write("empty/Library.sqlite", "");
    open(temp / "empty");
    fs::create_directory(temp / "header");
    {
        const Connection connection(temp / "header/Library.sqlite", Connection::Access::readWrite);
    }
    ASSERT_GT(fs::file_size(temp / "header/Library.sqlite"), 0U);
    open(temp / "header");
    EXPECT_EQ(open(temp / "header")->connection().integer("SELECT count(*) FROM Book"), 0);
}

TEST_F(StoreTest, bringsTheIndexesOfAnOlderProgramUpToDate)
{
    const char* statements = "SELECT group_concat(sql, '; ') FROM (SELECT sql FROM sqlite_master ORDER BY name)";
    makeLibrary(temp / "library");
    const auto asMade = open(temp / "library")->connection().text(statements);
    {
        Connection older(temp / "library/Library.sqlite", Connection::Access::readWrite);
        older.execute("DROP INDEX Book_author");
        older.execute("DROP INDEX Book_shelf");
        older.execute("CREATE INDEX Book_shelf ON Book (shelf)");
    }
    {
        Store reader = Store::openReadOnly(Store::Location::directory(temp / "library"), records(), history());
        EXPECT_NE(reader.connection().text(statements), asMade) << "a reader writes nothing";
    }
    EXPECT_EQ(open(temp / "library")->connection().text(statements), asMade);
    {
        // Nothing can be made under a name that is taken: the library opens all the same.
        Connection foreign(temp / "library/Library.sqlite", Connection::Access::readWrite);
        foreign.execute("DROP INDEX Book_author");
        foreign.execute("CREATE VIEW Book_author AS SELECT 1");
    }
    const auto store = open(temp / "library");
    EXPECT_EQ(store->connection().integer("SELECT count(*) FROM Book"), 1);
    EXPECT_FALSE(store->lastFailure()) << "a slower library is no failure";
    EXPECT_FALSE(store->connection().isInTransaction());
}

TEST_F(StoreTest, onlyOneProgramWritesAndOthersRead)
{
    const auto store = open(temp / "library");
    const StoreError error = failure(temp / "library");
    EXPECT_EQ(error.reason(), Reason::inUse);
    EXPECT_THAT(error.message(), HasSubstr("is open in another Quillary. Close it there, then try again."));

    Context context(*store, clock, uuids);
    Store reader = Store::openReadOnly(Store::Location::directory(temp / "library"), records(), history());
    Context beside(reader, clock, uuids);
    context.insert<Book>();
    EXPECT_EQ(context.count<Book>(""), 1);
    EXPECT_EQ(beside.count<Book>(""), 0) << "pending changes are seen by their own context only";
    context.save();
    EXPECT_EQ(beside.count<Book>(""), 1);
    EXPECT_TRUE(reader.isReadOnly());
    beside.insert<Book>();
    try {
        beside.save();
        ADD_FAILURE() << "a reader wrote";
    } catch (const StoreError& readOnly) {
        EXPECT_EQ(readOnly.reason(), Reason::readOnly);
    }
    beside.rollback();
    EXPECT_EQ(beside.count<Book>(""), 1);
}

TEST_F(StoreTest, aProgramThatDiesGivesTheLibraryBack)
{
    makeLibrary(temp / "library");
    const int status = ChildProcess::run([&] {
        const auto store = open(temp / "library");
        ChildProcess::die();
    });
    EXPECT_EQ(status, ChildProcess::killed);
    open(temp / "library");
}

TEST_F(StoreTest, saysWhatCannotBeWritten)
{
    struct Case
    {
        const char* name;
        std::function<void(const fs::path& folder)> forbid;
        const char* sentence;
    };
    const auto readOnly = fs::perms::owner_read | fs::perms::others_read | fs::perms::group_read;
    const auto readOnlyFolder = readOnly | fs::perms::owner_exec | fs::perms::others_exec | fs::perms::group_exec;
    const Case cases[] = {
        {"file",
         [&](const fs::path& folder) { fs::permissions(folder / Store::fileName, readOnly); },
         "Library.sqlite” can’t be written. Check that you may write to this file and its folder"},
        {"folder",
         [&](const fs::path& folder) { fs::permissions(folder, readOnlyFolder); },
         "can’t be changed, because its folder is read-only. Choose a folder that you may write to."},
        {"folder around",
         [&](const fs::path& folder) {
             fs::remove_all(folder);
             fs::permissions(folder.parent_path(), readOnlyFolder);
         },
         "library” can’t be made. Choose a place for the library where you may write."},
    };
    int number = 0;
    for (const Case& each : cases) {
        const fs::path folder = temp / std::to_string(++number) / "library";
        makeLibrary(folder);
        ChildProcess::letOthersWrite(temp.path());
        each.forbid(folder);
        const auto before = files(temp.path());
        const std::string sentence = ChildProcess::answerWithoutPrivileges([&] { return failure(folder).message(); });
        EXPECT_THAT(sentence, HasSubstr(each.sentence)) << each.name;
        EXPECT_TRUE(files(temp.path()) == before) << each.name;
        fs::permissions(folder.parent_path(), fs::perms::all);
    }
}

TEST_F(StoreTest, readsFromAPlaceWhereNothingCanBeWritten)
{
    const fs::path folder = temp / "library";
    makeLibrary(folder);
    ChildProcess::letOthersWrite(temp.path());
    fs::permissions(folder,
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
    const std::string title = ChildProcess::answerWithoutPrivileges([&] {
        Store reader = Store::openReadOnly(Store::Location::directory(folder), records(), history());
        return Context(reader, clock, uuids).first<Book>("")->title;
    });
    EXPECT_EQ(title, "saved");
}

TEST_F(StoreTest, whatNobodyAwaitsIsEnded)
{
    const auto endless = [](Connection& connection) {
        return connection.integer(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT count(*) FROM n");
    };
    const auto library = open(temp.path());
    const std::unique_ptr<Connection> reader = library->openReader();
    std::atomic<bool> isWanted = false;
    {
        const Interruption interruption(*reader, isWanted);
        std::jthread other([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            isWanted = true;
        });
        EXPECT_THROW(endless(*reader), StoreError);
        EXPECT_THROW(endless(*reader), StoreError) << "a read that begins later went on";
    }
    EXPECT_EQ(reader->integer("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 100000) "
                              "SELECT count(*) FROM n"),
              100'000);
}

TEST_F(StoreTest, keysAreNeverHandedOutTwice)
{
    const fs::path folder = temp / "library";
    std::int64_t last = 0;
    {
        const auto store = open(folder);
        Context context(*store, clock, uuids);
        context.insert<Book>();
        const Book& second = context.insert<Book>();
        last = second.ref.key();
        context.save();
        context.erase(second);
        context.save();
    }
    const auto store = open(folder);
    Context context(*store, clock, uuids);
    EXPECT_GT(context.insert<Book>().ref.key(), last);
}

} // namespace

} // namespace Quillary
