#include "QuillaryCore/Store/LogKeeper.h"

#include "tests/Store/Shelf.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

namespace Quillary {

namespace {

using namespace Shelf;
namespace fs = std::filesystem;

constexpr std::size_t largePage = 4'000;

class LogKeeperTest : public testing::Test
{
protected:
    FixedClock clock{Instant{std::chrono::milliseconds(1'600'000'000'123)}};
    RandomUUIDSource uuids;
    TempFolder temp;
    Store store{Store::Location::directory(temp.path()), records(), history(), clock, uuids};

    void saveBooks(int count)
    {
        Context context(store, clock, uuids);
        for (int i = 0; i < count; ++i) {
            context.insert<Book>().cover = Bytes(largePage);
        }
        context.save();
    }

    /// The books that are in the file itself, whatever its log has.
    [[nodiscard]] std::int64_t booksInFile() const
    {
        const fs::path copy = temp.path() / "copy.sqlite";
        fs::copy_file(store.location().file(), copy, fs::copy_options::overwrite_existing);
        Connection connection(copy, Connection::Access::immutable);
        return connection.integer("SELECT count(*) FROM Book").value_or(-1);
    }
};

TEST_F(LogKeeperTest, movesALongLogIntoTheFileAndLeavesAShortOne)
{
    {
        const LogKeeper keeper(store);
        saveBooks(500);
    }
    EXPECT_EQ(booksInFile(), 0) << "not worth it yet";
    {
        const LogKeeper keeper(store);
        saveBooks(600);
    }
    EXPECT_EQ(booksInFile(), 1'100);
}

TEST_F(LogKeeperTest, letsNoLogGrowWithoutEnd)
{
    const auto reader = store.openReader(); // holds what comes in the log, so that the worker can't empty it
    reader->execute("BEGIN");
    ASSERT_EQ(reader->integer("SELECT count(*) FROM Book"), 0);
    const LogKeeper keeper(store);
    saveBooks(17'000);
    EXPECT_EQ(booksInFile(), 0) << "a reader still needs the file as it was";
    reader->execute("COMMIT");
    saveBooks(1);
    EXPECT_GE(booksInFile(), 17'000);
}

} // namespace

} // namespace Quillary
