#include "QuillaryCore/Store/Observers.h"

#include "tests/Store/Shelf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

namespace {

using namespace Shelf;
using testing::ElementsAre;
using testing::IsEmpty;

class ObserversTest : public testing::Test
{
protected:
    FixedClock clock{Instant{}};
    CountingUUIDSource uuids{1};
    Store store{Store::Location::inMemory(), records(), history(), clock, uuids};
    Context context{store, clock, uuids};
    std::vector<std::string> told;

    /// Writes down what it is told: "changed Book +1 ~2 -3".
    ChangeObserver note(std::string name)
    {
        return [this, name](const ChangeSet& changes) {
            std::string line = name;
            for (const char* entity : {"Author", "Book", "Chapter"}) {
                const RecordChanges& of = changes.of(entity);
                line += of.isEmpty() ? "" : std::string(" ") + entity;
                for (const auto& [sign, keys] : {std::pair("+", of.inserted), {"~", of.changed}, {"-", of.deleted}}) {
                    for (const std::int64_t key : keys) {
                        line += std::string(" ") + sign + std::to_string(key);
                    }
                }
            }
            told.push_back(line);
        };
    }

    std::vector<std::string> taken() { return std::exchange(told, {}); }
};

TEST_F(ObserversTest, toldOnceWhatChangedAndWhatWasSaved)
{
    const Subscription changed = context.onChanged(note("changed"));
    const Subscription saved = context.onSaved(note("saved"));
    Author& author = context.insert<Author>();
    Book& book = context.insert<Book>();
    book.author = author.ref;
    EXPECT_THAT(taken(), IsEmpty()) << "nobody is told in the middle of a change";
    context.tellChanges();
    EXPECT_THAT(taken(), ElementsAre("changed Author +1 Book +1"));
    book.pages = 1;
    book.pages = 2;
    context.tellChanges();
    context.tellChanges();
    EXPECT_THAT(taken(), ElementsAre("changed Book ~1"));
    context.erase(context.insert<Chapter>());
    context.save();
    EXPECT_THAT(taken(), ElementsAre("saved Author +1 Book +1")) << "observers of changes know it all already";
    context.erase(author);
    context.save();
    EXPECT_THAT(taken(), ElementsAre("changed Author -1 Book ~1", "saved Author -1 Book ~1"));
    context.edit(book).pages = 3;
    context.tellChanges();
    context.rollback();
    EXPECT_THAT(taken(), ElementsAre("changed Book ~1", "changed Book ~1")) << "there, and back again";
    context.save();
    EXPECT_THAT(taken(), IsEmpty());
}

TEST_F(ObserversTest, scopesAreToldWhenTheOutermostEnds)
{
    Book& book = context.insert<Book>();
    context.save();
    const Subscription changed = context.onChanged(note("changed"));
    const Subscription saved = context.onSaved(note("saved"));
    context.edit(book).title = "pending";
    auto outer = context.beginScope("Outer");
    auto inner = context.beginScope("Inner");
    context.insert<Book>();
    inner.commit();
    EXPECT_THAT(taken(), IsEmpty());
    outer.commit();
    EXPECT_THAT(taken(), ElementsAre("changed Book +2 ~1", "saved Book +2")) << "the pending edit isn't saved";
    context.undo();
    EXPECT_THAT(taken(), ElementsAre("changed Book -2", "saved Book -2"));
    {
        const auto failing = context.beginScope("Failing");
        context.insert<Book>();
    }
    EXPECT_THAT(taken(), IsEmpty()) << "nothing has changed in the end";
}

TEST_F(ObserversTest, mayEndWhileTheyAreTold)
{
    std::optional<Subscription> first;
    std::optional<Subscription> second;
    Subscription third;
    first = context.onSaved([&](const ChangeSet&) {
        told.emplace_back("first");
        first.reset();                          // itself
        second.reset();                         // one that would be next
        third = context.onSaved(note("third")); // one that comes too late for this time
    });
    second = context.onSaved(note("second"));
    context.insert<Book>();
    context.save();
    EXPECT_THAT(taken(), ElementsAre("first"));
    context.insert<Book>();
    context.save();
    EXPECT_THAT(taken(), ElementsAre("third Book +2"));
}

TEST_F(ObserversTest, mayOutliveTheContext)
{
    Subscription subscription;
    {
        Store other(Store::Location::inMemory(), records(), history(), clock, uuids);
        Context brief(other, clock, uuids);
        subscription = brief.onChanged(note("brief"));
    }
    subscription.end();
    EXPECT_THAT(taken(), IsEmpty());
}

} // namespace

} // namespace Quillary
