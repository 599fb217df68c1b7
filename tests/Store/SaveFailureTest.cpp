#include "QuillaryCore/Store/Context.h"
#include "tests/Store/FullDisk.h"
#include "tests/Store/Shelf.h"
#include "tests/Support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Quillary {

namespace {

using namespace Shelf;
using testing::HasSubstr;

/// A library on a disk that becomes full, seen by the context that writes it and by a reader of the file.
class SaveFailureTest : public testing::Test
{
protected:
    SaveFailureTest()
    {
        book.title = "saved";
        context.save();
        // A small cache, so that a large change reaches the disk before it is committed.
        store.connection().execute("PRAGMA cache_size = 10");
        // The failures are those of writing; waiting for the disk after each would only take time.
        store.connection().execute("PRAGMA synchronous = OFF");
    }

    std::vector<std::string> titlesInFile()
    {
        std::vector<std::string> titles;
        Statement statement(*reader, "SELECT title FROM Book ORDER BY id");
        while (statement.step()) {
            titles.emplace_back(statement.text(0));
        }
        return titles;
    }

    void insertChapters(int count)
    {
        for (int number = 0; number < count; ++number) {
            auto& chapter = context.insert<Chapter>();
            chapter.book = book.ref;
            chapter.title = std::string(500, 'x');
        }
    }

    TempFolder temp;
    FixedClock clock{Instant{}};
    CountingUUIDSource uuids{1};
    Store store{Store::Location::directory(temp / "library"), records(), history(), clock, uuids};
    Context context{store, clock, uuids};
    std::unique_ptr<Connection> reader = store.openReader();
    Book& book = context.insert<Book>();
};

TEST_F(SaveFailureTest, aFullDiskKeepsEverythingPendingUntilThereIsRoom)
{
    for (const int chapters : {1, 200}) {
        int failures = 0;
        for (int writes = 0; failures == writes; ++writes) { // until that many writes are enough
            context.edit(book).title = "changed";
            insertChapters(chapters);
            try {
                const FullDisk disk(writes);
                context.save();
            } catch (const StoreError& error) {
                EXPECT_EQ(error.reason(), StoreError::Reason::diskFull) << error.details();
                EXPECT_THAT(error.message(), HasSubstr("is full. Nothing was saved by this step."));
                ++failures;
                EXPECT_EQ(titlesInFile(), std::vector<std::string>{"saved"}) << writes;
                EXPECT_TRUE(context.hasChanges());
                EXPECT_EQ(book.title, "changed");
                EXPECT_EQ(context.count<Chapter>(""), chapters);
                context.save(); // there is room again
            }
            EXPECT_EQ(titlesInFile(), std::vector<std::string>{"changed"}) << writes;
            EXPECT_FALSE(context.hasChanges());
            EXPECT_EQ(store.connection().text("PRAGMA integrity_check"), "ok");
            for (const Chapter* chapter : context.fetch<Chapter>("")) {
                context.erase(*chapter);
            }
            context.edit(book).title = "saved";
            context.save();
        }
        EXPECT_GT(failures, 0);
    }
}

TEST_F(SaveFailureTest, aFullDiskTakesAScopeBackAndLeavesWhatIsPending)
{
    auto& pending = context.insert<Book>();
    pending.title = "pending";
    for (int writes = 0;; ++writes) {
        bool isCommitted = false;
        {
            const FullDisk disk(writes);
            auto scope = context.beginScope("Tool");
            context.edit(book).title = "of the tool";
            try {
                insertChapters(300);
                EXPECT_EQ(context.count<Chapter>("title <> ''"), 300); // may be what finds the disk full
                scope.commit();
                isCommitted = true;
            } catch (const StoreError& error) {
                EXPECT_EQ(error.reason(), StoreError::Reason::diskFull) << error.details();
            }
        }
        if (isCommitted) {
            break;
        }
        ASSERT_LT(writes, 1000);
        EXPECT_EQ(titlesInFile(), std::vector<std::string>{"saved"}) << writes;
        EXPECT_EQ(book.title, "saved") << writes;
        EXPECT_EQ(context.count<Chapter>(""), 0) << writes;
        EXPECT_EQ(context.count<Book>("title = 'pending'"), 1) << writes;
    }
    EXPECT_EQ(titlesInFile(), std::vector<std::string>{"of the tool"});
    context.save();
    EXPECT_EQ(titlesInFile(), (std::vector<std::string>{"of the tool", "pending"}));
    EXPECT_EQ(context.count<Chapter>(""), 300);
    EXPECT_EQ(store.connection().text("PRAGMA integrity_check"), "ok");
}

TEST_F(SaveFailureTest, aFullDiskWhileOpeningLeavesNothingBehind)
{
    int failures = 0;
    for (int writes = 0;; writes += 3) {
        const std::filesystem::path folder = temp / std::to_string(writes);
        const auto makeAndClose = [&] {
            Store made(Store::Location::directory(folder), records(), history(), clock, uuids);
        };
        try {
            const FullDisk disk(writes);
            makeAndClose();
        } catch (const StoreError& error) {
            EXPECT_EQ(error.reason(), StoreError::Reason::diskFull) << error.details();
            EXPECT_FALSE(std::filesystem::exists(folder / Store::fileName)) << writes;
            if (++failures % 4 == 1) {
                makeAndClose(); // there is room again
            }
            continue;
        }
        makeAndClose();
        break;
    }
    EXPECT_GT(failures, 2);
}

TEST_F(SaveFailureTest, aFailedReadIsRemembered)
{
    EXPECT_FALSE(store.lastFailure());
    store.connection().execute("ALTER TABLE Author RENAME TO Lost");
    EXPECT_THROW(context.fetch<Author>("name = ?", "x"), StoreError);
    ASSERT_TRUE(store.lastFailure());
    EXPECT_THAT(store.lastFailure()->details(), HasSubstr("no such table"));
    store.forgetFailure();
    EXPECT_FALSE(store.lastFailure());
}

} // namespace

} // namespace Quillary
