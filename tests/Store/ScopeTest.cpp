#include "QuillaryCore/Store/Scope.h"

#include "tests/Store/Shelf.h"
#include "tests/Support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace Quillary {

namespace {

using namespace Shelf;
using testing::ElementsAre;
using testing::IsEmpty;

class ScopeTest : public testing::Test
{
protected:
    FixedClock clock{Instant{}};
    CountingUUIDSource uuids{1};
    Store store{Store::Location::inMemory(), records(), history(), clock, uuids};
    Context context{store, clock, uuids};

    Book& insertBook(std::string title)
    {
        auto& book = context.insert<Book>();
        book.title = std::move(title);
        return book;
    }

    /// A book that is saved already, outside of any scope.
    const Book& savedBook(std::string title)
    {
        Book& book = insertBook(std::move(title));
        context.save();
        return book;
    }

    /// The titles that the file has.
    std::vector<std::string> savedTitles()
    {
        std::vector<std::string> titles;
        EXPECT_FALSE(store.connection().isInTransaction()) << "the file is looked at after a save or rollback";
        Statement statement(store.connection(), "SELECT title FROM Book ORDER BY id");
        while (statement.step()) {
            titles.emplace_back(statement.text(0));
        }
        return titles;
    }
};

TEST_F(ScopeTest, aFailedScopeTakesNothingAlong)
{
    const Book& book = savedBook("saved");
    context.edit(book).title = "half typed";
    const auto fail = [&] {
        const auto scope = context.beginScope("Tool");
        context.edit(book).title = "of the tool";
        context.erase(insertBook("gone"));
        insertBook("also gone");
        EXPECT_EQ(context.count<Book>(""), 2);
        throw std::runtime_error("the tool fails");
    };
    EXPECT_THROW(fail(), std::runtime_error);
    EXPECT_EQ(book.title, "half typed");
    EXPECT_EQ(context.count<Book>(""), 1);
    context.save();
    EXPECT_THAT(savedTitles(), ElementsAre("half typed"));
}

TEST_F(ScopeTest, nestedScopesEndByThemselves)
{
    const Book& book = savedBook("0");
    auto outer = context.beginScope("Outer");
    context.edit(book).title = "1";
    {
        const auto inner = context.beginScope("Inner");
        context.edit(book).title = "2";
        insertBook("taken back");
        EXPECT_EQ(context.count<Book>("title = '2'"), 1);
    }
    EXPECT_EQ(book.title, "1");
    EXPECT_EQ(context.count<Book>(""), 1);
    auto inner = context.beginScope("Inner");
    context.edit(book).pages = 2;
    inner.commit();
    EXPECT_EQ(store.connection().isInTransaction(), true); // nothing is saved before the outermost is
    outer.commit();
    EXPECT_EQ(store.connection().integer("SELECT pages FROM Book WHERE title = '1'"), 2);
    context.undo(); // one step, under the outer name
    EXPECT_EQ(book.title, "0");
    EXPECT_EQ(book.pages, 0);
    EXPECT_EQ(context.undoName(), std::nullopt);
}

TEST_F(ScopeTest, undoAndRedoSayWhatTheyWouldDo)
{
    const Book& book = savedBook("before");
    auto rename = context.beginScope("Rename");
    context.edit(book).title = "after";
    rename.commit();
    auto insert = context.beginScope("Insert");
    insertBook("new");
    insert.commit();
    EXPECT_EQ(context.undoName(), "Insert");
    context.undo();
    context.undo();
    EXPECT_THAT(savedTitles(), ElementsAre("before")) << "what is undone is undone in the file";
    EXPECT_EQ(context.undoName(), std::nullopt);
    EXPECT_EQ(context.redoName(), "Rename");
    context.redo();
    context.redo();
    EXPECT_THAT(savedTitles(), ElementsAre("after", "new"));
    EXPECT_EQ(context.redoName(), std::nullopt);
    context.undo();
    auto other = context.beginScope("Other");
    insertBook("other");
    other.commit(Scope::Undo::impossible);
    EXPECT_EQ(context.redoName(), std::nullopt) << "what was undone is overtaken";
    EXPECT_EQ(context.undoName(), "Rename");
}

TEST_F(ScopeTest, whatLeftTheHouseStaysInTheScopesAroundIt)
{
    const Book& book = savedBook("before");
    auto rename = context.beginScope("Rename");
    context.edit(book).title = "after";
    rename.commit();
    for (const bool isInnerKept : {true, false}) {
        auto outer = context.beginScope("Send all");
        insertBook("changed");
        auto middle = context.beginScope("Send one");
        auto inner = context.beginScope("Send");
        insertBook("sent");
        inner.commit(Scope::Undo::impossible);
        isInnerKept ? middle.commit() : middle.rollback();
        outer.commit();
        EXPECT_EQ(context.undoName(), isInnerKept ? "Rename" : "Send all") << "what was taken back has left nothing";
    }
}

TEST_F(ScopeTest, undoLeavesAloneWhatWasChangedSince)
{
    const Book& book = savedBook("before");
    auto scope = context.beginScope("Rename");
    context.edit(book).title = "after";
    scope.commit();
    context.edit(book).pages = 5; // another field, pending
    context.undo();
    EXPECT_EQ(book.title, "before");
    EXPECT_EQ(book.pages, 5);
    EXPECT_EQ(store.connection().integer("SELECT pages FROM Book"), 0) << "the pending field stays unsaved";
    context.redo();
    context.edit(book).title = "typed over";
    try {
        context.undo();
        ADD_FAILURE() << "a later value was overwritten";
    } catch (const UndoError& error) {
        EXPECT_EQ(error.reason(), UndoError::Reason::changedSince);
        EXPECT_EQ(error.message(), "“Rename” can’t be undone, because what it changed has been changed again since.");
    }
    EXPECT_EQ(book.title, "typed over");
    EXPECT_EQ(context.undoName(), "Rename");
}

TEST_F(ScopeTest, undoNeitherOrphansNorDangles)
{
    auto insert = context.beginScope("New author");
    const Author& author = context.insert<Author>();
    insert.commit();
    Book& book = insertBook("by the author");
    book.author = author.ref;
    context.save();
    EXPECT_THROW(context.undo(), UndoError);
    ASSERT_NE(context.find(author.ref), nullptr);
    EXPECT_EQ(context.find(author.ref), &author);
    EXPECT_FALSE(context.hasChanges());

    auto clear = context.beginScope("Clear");
    context.edit(book).author = {};
    clear.commit();
    context.erase(author);
    context.save();
    EXPECT_THROW(context.undo(), UndoError) << "the author that the book would refer to again is gone";
    EXPECT_FALSE(book.author);
}

TEST_F(ScopeTest, aRefusedScopeIsNotSavedAndDoesNotPoisonTheNext)
{
    {
        auto scope = context.beginScope("Number");
        insertBook("wrong number");
        context.refuseSaving("The last number couldn’t be read.");
        try {
            scope.commit();
            ADD_FAILURE() << "saved a figure made after a failed read";
        } catch (const StoreError& error) {
            EXPECT_EQ(error.reason(), StoreError::Reason::refused);
            EXPECT_EQ(error.message(), "The last number couldn’t be read.");
        }
    }
    auto scope = context.beginScope("Again");
    insertBook("right number");
    scope.commit();
    EXPECT_THAT(savedTitles(), ElementsAre("right number"));
    context.refuseSaving("No.");
    insertBook("pending");
    EXPECT_THROW(context.save(), StoreError);
    context.rollback();
    context.save();
}

TEST_F(ScopeTest, theHistoryIsBounded)
{
    const Book& book = savedBook("");
    for (std::size_t step = 0; step < UndoHistory::maximumSteps + 10; ++step) {
        auto scope = context.beginScope(std::to_string(step));
        context.edit(book).pages = static_cast<int>(step) + 1;
        scope.commit();
    }
    std::size_t undone = 0;
    while (context.undoName()) {
        context.undo();
        ++undone;
    }
    EXPECT_EQ(undone, UndoHistory::maximumSteps);
    EXPECT_EQ(book.pages, 10);
}

using ScopeDeathTest = ScopeTest;

TEST_F(ScopeDeathTest, stopsOnMisuse)
{
    auto outer = context.beginScope("Outer");
    auto inner = context.beginScope("Inner");
    EXPECT_DEATH(outer.commit(), "innermost scope ends first");
    EXPECT_DEATH(context.save(), "its commit saves");
    EXPECT_DEATH(context.rollback(), "the scope that is rolled back");
    EXPECT_DEATH(context.undo(), "inside a scope");
    inner.commit();
    EXPECT_DEATH(inner.rollback(), "ends once");
}

} // namespace

} // namespace Quillary
