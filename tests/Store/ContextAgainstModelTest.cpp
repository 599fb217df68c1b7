#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/LibraryTables.h"
#include "tests/Store/PlainLibrary.h"
#include "tests/Support/TempFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace Quillary {

namespace {

using namespace Shelf;

/// Does everything that a context can do, in random order, to a context and to plain maps, and compares the two: what
/// the context shows, and what a second connection sees in the file.
class RandomLife
{
public:
    RandomLife(const std::filesystem::path& folder, unsigned seed)
        : m_random(seed)
        , m_uuids(seed)
        , m_store(Store::Location::directory(folder), records(), history(), m_clock, m_uuids)
        , m_context(std::make_unique<Context>(m_store, m_clock, m_uuids))
        , m_reader(m_store.openReader())
        , m_subscription(m_context->onChanged([this](const ChangeSet& changes) { follow(changes); }))
    {
        // Only the order of writes is looked at here, not what a power failure leaves.
        m_store.connection().execute("PRAGMA synchronous = OFF");
    }

    void run(int steps)
    {
        for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
            takeStep();
            if (pick(3) == 0) {
                compare();
            }
        }
        endScopes();
        m_context->save();
        m_saved = m_now;
        compare();
    }

    [[nodiscard]] const std::string& log() const { return m_log; }

private:
    struct Level
    {
        PlainLibrary before;
        Scope scope;
    };

    struct Step
    {
        PlainLibrary before;
        PlainLibrary after;
    };

    std::size_t pick(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random); }

    template <class T>
    const T* any()
    {
        const Rows<T>& rows = m_now.of<T>();
        if (rows.empty()) {
            return nullptr;
        }
        return m_context->find(Ref<T>(std::next(rows.begin(), static_cast<std::ptrdiff_t>(pick(rows.size())))->first));
    }

    template <class T>
    Ref<T> anyRef()
    {
        const T* record = pick(4) == 0 ? nullptr : any<T>();
        return record == nullptr ? Ref<T>() : record->ref;
    }

    template <class T>
    std::optional<UUID> anyUUID()
    {
        const T* record = pick(4) == 0 ? nullptr : any<T>();
        return record == nullptr ? std::nullopt : record->uuid;
    }

    void change(Author& author) { author.name = fmt::format("name {}", pick(5)); }
    void change(Book& book)
    {
        switch (pick(4)) {
        case 0:
            book.title = fmt::format("title {}", pick(5));
            break;
        case 1:
            book.pages = static_cast<std::int32_t>(pick(5));
            break;
        case 2:
            book.author = anyRef<Author>();
            break;
        default:
            book.translator = anyRef<Author>();
        }
    }
    void change(Chapter& chapter)
    {
        if (pick(2) == 0) {
            chapter.book = anyRef<Book>();
        } else if (const auto parent = anyRef<Chapter>(); parent.key() < chapter.ref.key()) {
            chapter.parent = parent;
        }
    }
    void change(Review& review)
    {
        review.text = fmt::format("text {}", pick(5));
        review.bookID = anyUUID<Book>();
        review.authorID = anyUUID<Author>();
    }

    /// Changes a record now, and perhaps again later through the same reference.
    template <class T>
    void changeAndKeep(T& record)
    {
        change(record);
        m_now.of<T>()[record.ref.key()] = record;
        m_late.emplace_back([this, &record] {
            if (m_now.of<T>().contains(record.ref.key())) {
                change(record);
                m_now.of<T>()[record.ref.key()] = record;
            }
        });
    }

    template <class T>
    void insert()
    {
        m_log += fmt::format("insert {}\n", T::entityName);
        changeAndKeep(m_context->insert<T>());
    }

    template <class T>
    void edit()
    {
        if (const T* record = any<T>()) {
            m_log += fmt::format("edit {} {}\n", T::entityName, record->ref.key());
            changeAndKeep(m_context->edit(*record));
        }
    }

    void erase()
    {
        m_late.clear(); // a deleted record is gone
        if (const Author* author = pick(3) == 0 ? any<Author>() : nullptr) {
            m_log += fmt::format("erase author {}\n", author->ref.key());
            m_now.eraseAuthor(author->ref.key());
            m_context->erase(*author);
        } else if (const Chapter* chapter = pick(2) == 0 ? any<Chapter>() : nullptr) {
            m_log += fmt::format("erase chapter {}\n", chapter->ref.key());
            m_now.eraseChapter(chapter->ref.key());
            m_context->erase(*chapter);
        } else if (const Book* book = any<Book>()) {
            m_log += fmt::format("erase book {}\n", book->ref.key());
            m_now.eraseBook(book->ref.key());
            m_context->erase(*book);
        }
    }

    void takeStep()
    {
        switch (pick(20)) {
        case 0:
        case 1:
            insert<Author>();
            break;
        case 2:
        case 3:
            insert<Book>();
            break;
        case 4:
        case 5:
            insert<Chapter>();
            break;
        case 6:
            insert<Review>();
            break;
        case 7:
        case 8:
            edit<Book>();
            break;
        case 9:
            edit<Chapter>();
            break;
        case 10:
            edit<Author>();
            edit<Review>();
            break;
        case 11:
        case 12:
            erase();
            break;
        case 13:
            if (!m_late.empty()) {
                m_log += "late change\n";
                m_late[pick(m_late.size())]();
            }
            break;
        case 14:
            lookAround();
            break;
        case 15:
            beginScope();
            break;
        case 16:
            endScope();
            break;
        case 17:
            saveOrRollback();
            break;
        case 18:
            undoOrRedo();
            break;
        default:
            m_log += "forget\n";
            m_context->forgetUnchanged();
        }
    }

    void saveOrRollback()
    {
        if (!m_scopes.empty()) {
            return;
        }
        m_late.clear();
        if (pick(2) == 0) {
            m_log += "save\n";
            m_context->save();
            m_saved = m_now;
        } else {
            m_log += "rollback\n";
            m_context->rollback();
            m_now = m_saved;
        }
    }

    void beginScope()
    {
        if (m_scopes.size() < 3) {
            m_log += "begin\n";
            m_late.clear();
            m_scopes.push_back({m_now, m_context->beginScope("Scope")});
        }
    }

    void endScope()
    {
        if (m_scopes.empty()) {
            return;
        }
        m_late.clear();
        Level level = std::move(m_scopes.back());
        m_scopes.pop_back();
        if (pick(3) == 0) {
            m_log += "rollback scope\n";
            level.scope.rollback();
            m_now = level.before;
            return;
        }
        m_log += "commit scope\n";
        level.scope.commit();
        if (m_scopes.empty()) {
            m_saved.takeOver(level.before, m_now);
            if (!(level.before == m_now)) {
                m_done.push_back({level.before, m_now});
            }
            m_undone.clear();
        }
    }

    void endScopes()
    {
        while (!m_scopes.empty()) {
            endScope();
        }
    }

    void undoOrRedo()
    {
        const bool isUndo = pick(3) != 0;
        std::vector<Step>& from = isUndo ? m_done : m_undone;
        EXPECT_EQ(isUndo ? m_context->undoName().has_value() : m_context->redoName().has_value(), !from.empty());
        if (!m_scopes.empty() || from.empty()) {
            return;
        }
        m_late.clear();
        const Step step = from.back();
        const auto expected = isUndo ? m_now.without(step.before, step.after) : m_now.without(step.after, step.before);
        m_log += fmt::format("{} {}\n", isUndo ? "undo" : "redo", expected ? "works" : "is refused");
        bool hasWorked = true;
        try {
            isUndo ? m_context->undo() : m_context->redo();
        } catch (const UndoError&) {
            hasWorked = false;
        }
        ASSERT_EQ(hasWorked, expected.has_value()) << m_log;
        if (expected) {
            m_saved.takeOver(m_now, *expected);
            m_now = *expected;
            (isUndo ? m_undone : m_done).push_back(step);
            from.pop_back();
        }
    }

    /// Asks for what is related, and by condition.
    void lookAround()
    {
        if (const Book* book = any<Book>()) {
            compareRelated<Chapter, &Chapter::book>(*book);
        }
        std::vector<const Author*> authors = m_context->fetch<Author>("");
        if (pick(2) == 0) {
            m_context->prefetch<&Book::author, Author>(authors);
        }
        for (const Author* author : authors) {
            compareRelated<Book, &Book::author>(*author);
            compareRelated<Book, &Book::translator>(*author);
        }
        const auto few = static_cast<std::int64_t>(
            std::ranges::count_if(m_now.of<Book>(), [](const auto& row) { return row.second.pages < 3; }));
        EXPECT_EQ(m_context->count<Book>("pages < ?", 3), few) << m_log;
    }

    template <class T, auto reference, class Target>
    void compareRelated(const Target& target)
    {
        std::vector<std::int64_t> expected;
        for (const auto& [key, record] : m_now.of<T>()) {
            if (record.*reference == target.ref) {
                expected.push_back(key);
            }
        }
        std::vector<std::int64_t> found;
        for (const T* record : m_context->related<reference>(target)) {
            found.push_back(record->ref.key());
        }
        EXPECT_EQ(found, expected) << m_log;
    }

    void compare()
    {
        compare<Author>();
        compare<Book>();
        compare<Chapter>();
        compare<Review>();
        m_context->tellChanges();
        EXPECT_TRUE(m_followed == m_now) << "the observer knows something else\n" << m_log;
    }

    template <class T>
    void compare()
    {
        Rows<T> shown;
        for (const T* record : m_context->fetch<T>("")) {
            shown[record->ref.key()] = *record;
        }
        EXPECT_TRUE(shown == m_now.of<T>()) << T::entityName << " in memory\n" << m_log;
        Rows<T> stored;
        const RecordTypeOf<T> type;
        std::string columns = "id";
        for (std::size_t column = 0; column < type.columnCount(); ++column) {
            columns += ", " + type.columnName(column);
        }
        Statement statement(*m_reader, fmt::format("SELECT {} FROM {}", columns, T::entityName));
        while (statement.step()) {
            T& record = stored[statement.integer(0)];
            record.ref = Ref<T>(statement.integer(0));
            type.read(&record, statement, 1);
        }
        EXPECT_TRUE(stored == m_saved.of<T>()) << T::entityName << " in the file\n" << m_log;
    }

    /// Keeps a library up to date by what the observer is told alone.
    void follow(const ChangeSet& changes)
    {
        follow<Author>(changes);
        follow<Book>(changes);
        follow<Chapter>(changes);
        follow<Review>(changes);
    }

    template <class T>
    void follow(const ChangeSet& changes)
    {
        const RecordChanges& of = changes.of<T>();
        for (const std::int64_t key : of.deleted) {
            EXPECT_EQ(m_followed.of<T>().erase(key), 1U) << m_log;
        }
        for (const std::int64_t key : of.inserted) {
            EXPECT_FALSE(m_followed.of<T>().contains(key)) << m_log;
            m_followed.of<T>()[key] = *m_context->find(Ref<T>(key));
        }
        for (const std::int64_t key : of.changed) {
            EXPECT_FALSE(m_followed.of<T>().at(key) == *m_context->find(Ref<T>(key))) << "nothing changed\n" << m_log;
            m_followed.of<T>()[key] = *m_context->find(Ref<T>(key));
        }
    }

    std::mt19937 m_random;
    FixedClock m_clock{Instant{}};
    CountingUUIDSource m_uuids;
    Store m_store;
    std::unique_ptr<Context> m_context;
    std::unique_ptr<Connection> m_reader;
    Subscription m_subscription;
    PlainLibrary m_now;
    PlainLibrary m_saved;
    PlainLibrary m_followed;
    std::vector<Level> m_scopes;
    std::vector<std::function<void()>> m_late;
    std::vector<Step> m_done;
    std::vector<Step> m_undone;
    std::string m_log;
};

TEST(ContextAgainstModelTest, doesWhatPlainMapsDo)
{
    const TempFolder temp;
    for (unsigned seed = 1; seed <= 40 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        RandomLife life(temp / std::to_string(seed), seed);
        try {
            life.run(150);
        } catch (const StoreError& error) {
            ADD_FAILURE() << error.message() << '\n' << error.details() << '\n' << life.log();
        }
    }
}

} // namespace

} // namespace Quillary
