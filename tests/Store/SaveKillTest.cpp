#include "QuillaryCore/Store/Context.h"
#include "tests/Store/Shelf.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdint>
#include <random>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace Quillary {

namespace {

using namespace Shelf;

constexpr int kills = 250;
constexpr int longestLifeMicroseconds = 25'000;
constexpr std::size_t chaptersPerBook = 3;

/// What a process writes until it is killed: each book with its chapters and its number in the author's name, one
/// scope each, some of them undone and redone, with an edit of somebody else pending all the time.
[[noreturn]] void writeBooks(const std::filesystem::path& folder, int reports)
{
    const FixedClock clock{Instant{}};
    RandomUUIDSource uuids;
    Store store(Store::Location::directory(folder), records(), history(), clock, uuids);
    Context context(store, clock, uuids);
    if (context.count<Author>("") == 0) {
        context.insert<Author>().name = "0";
        context.save();
    }
    const Author& author = *context.first<Author>("");
    for (std::int32_t number = std::stoi(author.name) + 1;; ++number) {
        context.insert<Book>().title = "pending";
        auto scope = context.beginScope("New book");
        auto& book = context.insert<Book>();
        book.pages = number;
        for (std::size_t index = 0; index < chaptersPerBook; ++index) {
            context.insert<Chapter>().book = book.ref;
        }
        context.edit(author).name = std::to_string(number);
        scope.commit();
        if (number % 5 == 0) {
            context.undo();
            context.redo();
        }
        if (number % 3 == 0) {
            context.rollback();
        }
        if (write(reports, &number, sizeof number) != sizeof number) {
            _exit(1);
        }
    }
}

/// Starts a writer, kills it after a while and returns the last number that it reported as saved; 0: none.
std::int32_t lastSavedBeforeKill(const std::filesystem::path& folder, int lifeMicroseconds)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        return -1;
    }
    const pid_t child = fork();
    if (child == 0) {
        try {
            writeBooks(folder, ends[1]);
        } catch (const StoreError& error) {
            fprintf(stderr, "%s\n%s\n", error.what(), error.details().c_str());
        }
        _exit(1);
    }
    close(ends[1]);
    usleep(static_cast<useconds_t>(lifeMicroseconds));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << "the writer ended by itself";
    std::int32_t last = 0;
    for (std::int32_t number = 0; read(ends[0], &number, sizeof number) == sizeof number;) {
        last = number;
    }
    close(ends[0]);
    return last;
}

/// Returns the number of the last book.
std::int32_t expectWhole(const std::filesystem::path& folder, std::int32_t lastSaved)
{
    const FixedClock clock{Instant{}};
    RandomUUIDSource uuids;
    Store store(Store::Location::directory(folder), records(), history(), clock, uuids);
    Context context(store, clock, uuids);
    EXPECT_EQ(store.connection().text("PRAGMA integrity_check"), "ok");
    const Author* author = context.first<Author>("");
    const std::int32_t stored = author == nullptr ? 0 : std::stoi(author->name);
    EXPECT_GE(stored, lastSaved) << "what was reported as saved is there";
    EXPECT_LE(stored, lastSaved + 1) << "at most the one that was being saved is there without report";
    EXPECT_EQ(context.count<Book>(""), stored) << "every book has its number, and nothing pending was saved";
    EXPECT_EQ(context.count<Book>("pages BETWEEN 1 AND ?", stored), stored);
    EXPECT_EQ(store.connection().integer("SELECT count(*) FROM (SELECT count(*) AS chapters FROM Chapter GROUP BY book "
                                         "HAVING chapters = 3)"),
              stored)
        << "no book has half its chapters";
    return stored;
}

TEST(SaveKillTest, nothingSavedIsLostAndNothingIsHalf)
{
    const TempFolder temp;
    std::mt19937 random(7);
    std::uniform_int_distribution<int> life(0, longestLifeMicroseconds);
    std::int32_t mostSaved = 0;
    std::int32_t lastSaved = 0;
    for (int round = 0; round < kills && !testing::Test::HasFailure(); ++round) {
        SCOPED_TRACE(round);
        // Every few rounds with a new library, so that some are killed while they are being made.
        const std::filesystem::path folder = temp / std::to_string(round / 5);
        lastSaved = round % 5 == 0 ? 0 : lastSaved;
        // On a busy machine a save takes its time: writers then live longer, until some have saved.
        const int patience = mostSaved > 5 ? 1 : 1 + (round / 10);
        lastSaved = std::max(lastSaved, lastSavedBeforeKill(folder, patience * life(random)));
        if (std::filesystem::exists(folder)) {
            lastSaved = expectWhole(folder, lastSaved);
        }
        mostSaved = std::max(mostSaved, lastSaved);
    }
    EXPECT_GT(mostSaved, 5) << "the writers live long enough to be killed while they save";
}

} // namespace

} // namespace Quillary
