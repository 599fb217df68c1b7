#include "QuillaryCore/Store/Context.h"

#include "tests/Store/Shelf.h"
#include "tests/Support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <vector>

namespace Quillary {

namespace {

using namespace Shelf;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Instant noon{std::chrono::hours(12)};

class ContextTest : public testing::Test
{
protected:
    FixedClock clock{noon};
    CountingUUIDSource uuids{1};
    Store store{Store::Location::inMemory(), records(), history(), clock, uuids};
    Context context{store, clock, uuids};

    Author& author(std::string name)
    {
        auto& inserted = context.insert<Author>();
        inserted.name = std::move(name);
        return inserted;
    }

    Book& book(std::string title, Ref<Author> writer = {})
    {
        auto& inserted = context.insert<Book>();
        inserted.title = std::move(title);
        inserted.author = writer;
        return inserted;
    }

    std::vector<std::string> titles(std::string_view condition)
    {
        std::vector<std::string> found;
        for (const Book* match : context.fetch<Book>(condition)) {
            found.push_back(match->title);
        }
        return found;
    }
};

TEST_F(ContextTest, storesEveryTypeToTheByte)
{
    auto& written = context.insert<Book>();
    written.title = std::string("a\0b ’ \xff", 9);
    written.shelf = -32768;
    written.pages = 2147483647;
    written.priceMinorUnits = INT64_MIN;
    written.cover = {0, 255, 0};
    const Ref<Book> ref = written.ref;
    const Book before = written;
    context.save();
    context.forgetUnchanged();
    const Book* read = context.find(ref);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(*read, before);
    EXPECT_EQ(read->issueDate, noon);
    EXPECT_TRUE(read->uuid);
}

TEST_F(ContextTest, conditionsMayEndInOrderAndLimit)
{
    for (const char* title : {"a", "b", "c", "order by", "limit"}) {
        book(title);
    }
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"", {"a", "b", "c", "order by", "limit"}},
        {"ORDER BY title DESC", {"order by", "limit", "c", "b", "a"}},
        {"limit 2", {"a", "b"}},             // keywords in either case
        {"title IN ('b', 'a')", {"a", "b"}}, // in the order of insertion
        {"title < 'c' ORDER BY title DESC LIMIT 1", {"b"}},
        {"title = 'order by' OR title = 'limit'", {"order by", "limit"}}, // text is no keyword
        {"id IN (SELECT id FROM Book ORDER BY id LIMIT 2) ORDER BY id DESC",
         {"b", "a"}}, // nor is what stands in brackets
        {"title > 'a' LIMIT 2 OFFSET 1", {"c", "order by"}},
    };
    for (const auto& [condition, expected] : cases) {
        EXPECT_EQ(titles(condition), expected) << condition;
        EXPECT_EQ(context.count<Book>(condition), static_cast<std::int64_t>(expected.size())) << condition;
        EXPECT_EQ(context.first<Book>(condition)->title, expected.front()) << condition;
    }
    EXPECT_EQ(context.first<Book>("title = ?", "z"), nullptr);
    EXPECT_THROW(titles("no such column"), StoreError);
}

TEST_F(ContextTest, everyTypeIsAValueOfACondition)
{
    auto& written = book("t");
    written.pages = 7;
    written.author = author("A").ref;
    const std::optional<UUID> none;
    EXPECT_EQ(context.count<Book>("uuid = ? AND issueDate = ? AND title = ? AND pages = ? AND author = ?",
                                  written.uuid,
                                  noon,
                                  std::string("t"),
                                  7U,
                                  written.author),
              1);
    EXPECT_EQ(context.count<Book>("uuid IS ?", none), 0);
    EXPECT_EQ(context.count<Author>("isAlive = ?", true), 1);
    EXPECT_EQ(context.find<Book>(*written.uuid), &written);
    EXPECT_EQ(context.find(Ref<Book>()), nullptr);
    EXPECT_EQ(context.find(Ref<Book>(999)), nullptr);
}

TEST_F(ContextTest, queriesGiveValuesAndSeePendingChanges)
{
    book("a").pages = 3;
    book("b").pages = 4;
    std::int64_t sum = 0;
    context.query(
        "SELECT title, pages FROM Book WHERE pages < ? ORDER BY title",
        [&](const Statement& row) {
            sum = sum * 10 + row.integer(1);
            // Another query, even the same one, may run meanwhile.
            EXPECT_EQ(context.count<Book>("title = ?", row.text(0)), 1);
        },
        10);
    EXPECT_EQ(sum, 34);
}

TEST_F(ContextTest, theSameQueryMayRunInsideItself)
{
    book("a");
    book("b");
    std::vector<std::string> seen;
    constexpr const char* sql = "SELECT title FROM Book ORDER BY id";
    context.query(sql, [&](const Statement& outer) {
        context.query(sql, [&](const Statement& inner) {
            seen.push_back(std::string(outer.text(0)) + std::string(inner.text(0)));
        });
    });
    EXPECT_THAT(seen, ElementsAre("aa", "ab", "ba", "bb"));
}

TEST_F(ContextTest, relatedIsTheSameLoadedOrPrefetched)
{
    constexpr int authorCount = 40;
    for (int number = 0; number < authorCount; ++number) {
        const Author& writer = author(std::to_string(number));
        for (int count = 0; count < number % 4; ++count) {
            book(std::to_string(number), writer.ref);
        }
    }
    context.save();
    // All of them in one scan, a few far apart one by one, and none twice although asked for twice.
    for (const std::size_t stride : {1U, 13U}) {
        context.forgetUnchanged();
        const auto all = context.fetch<Author>("");
        std::vector<const Author*> some;
        for (std::size_t index = 0; index < all.size(); index += stride) {
            some.insert(some.end(), {all[index], all[index]});
        }
        context.prefetch<&Book::author, Author>(some);
        EXPECT_EQ(context.count<Book>(""), 60);
        for (const Author* writer : some) {
            const auto books = context.related<&Book::author>(*writer);
            EXPECT_EQ(books.size(), std::stoul(writer->name) % 4) << writer->name;
            for (const Book* written : books) {
                EXPECT_EQ(written->title, writer->name);
            }
        }
    }
}

TEST_F(ContextTest, equalValuesModifyNothing)
{
    Book& saved = book("same");
    context.save();
    context.edit(saved).title = "other";
    EXPECT_TRUE(context.hasChanges());
    context.edit(saved).title = "same";
    EXPECT_FALSE(context.hasChanges());
    ChangeSet told;
    const Subscription changed = context.onChanged([&](const ChangeSet& changes) { told = changes; });
    context.tellChanges();
    context.save();
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(ContextTest, numbersThatDoNotFitReadAsNone)
{
    Book& damaged = book("damaged");
    context.save();
    store.connection().execute("UPDATE Book SET shelf = 70000, pages = -3000000000, uuid = x'00', author = 'x'");
    const Ref<Book> ref = damaged.ref;
    context.forgetUnchanged();
    const Book* read = context.find(ref);
    EXPECT_EQ(read->shelf, 0);
    EXPECT_EQ(read->pages, 0);
    EXPECT_EQ(read->uuid, std::nullopt);
    EXPECT_FALSE(read->author);
}

using ContextDeathTest = ContextTest;

TEST_F(ContextDeathTest, stopsOnMisuse)
{
    Book& saved = book("saved");
    context.save();
    EXPECT_DEATH(
        {
            saved.title = "nobody would save this";
            context.save();
        },
        "asked for with edit before it is changed");
    EXPECT_DEATH(
        {
            saved.title = "nor this";
            context.edit(saved);
        },
        "asked for with edit before it is changed");
    EXPECT_DEATH(context.edit(Book()), "in memory and not deleted");
    const Subscription observer = context.onChanged([&](const ChangeSet&) { context.insert<Book>(); });
    EXPECT_DEATH(
        {
            context.insert<Book>();
            context.save();
        },
        "observers don't change records");
}

} // namespace

} // namespace Quillary
