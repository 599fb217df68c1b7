#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"
#include "tests/Model/TestLibrary.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <random>
#include <set>
#include <string>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>

namespace Quillary {
namespace {

constexpr int templates = 3;
constexpr int occurrencesOfEach = 17;
constexpr std::int64_t linesOfEach = 20;
constexpr int longestLifeMicroseconds = 60'000;
constexpr int mostKills = 400;

/// A library in a file, on the day on which 17 weekly dates of each template have passed.
struct LibraryInFile
{
    explicit LibraryInFile(const TempFolder& folder)
        : store(Store::Location::directory(folder.path()), DataModel::records(), DataModel::history(), clock, uuids)
    {
    }

    void fill()
    {
        makeFirstBusiness(context, Locale("de_DE"));
        Client& client = context.insert<Client>();
        for (int number = 0; number < templates; ++number) {
            Document& recurring = context.insert<Document>();
            recurring.kindRaw = static_cast<std::int16_t>(DocumentKind::recurring);
            recurring.client = client.ref;
            recurring.issueDate = calendar.addingDays(clock.now(), -7 * (occurrencesOfEach - 1));
            recurring.nextIssueDate = recurring.issueDate;
            for (int line = 0; line < linesOfEach; ++line) {
                context.insert<LineItem>().document = recurring.ref;
            }
        }
        context.save();
    }

    RecurringInvoices::Run run()
    {
        return RecurringInvoices::catchUp(context, clock.now(), RecurringInvoices::mostPerRun, calendar);
    }

    FixedClock clock{TestLibrary::start};
    RandomUUIDSource uuids;
    Calendar calendar{"Europe/Berlin"};
    Store store;
    Context context{store, clock, uuids};
};

/// Starts the catch-up in a process and kills it after a while. True: it was done before.
bool ranThrough(const TempFolder& folder, int lifeMicroseconds)
{
    const pid_t child = fork();
    if (child == 0) {
        std::ignore = LibraryInFile(folder).run();
        _exit(0);
    }
    usleep(static_cast<useconds_t>(lifeMicroseconds));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status);
}

/// Every invoice is whole, and its template knows of it. Returns how many there are.
std::int64_t expectWhole(const TempFolder& folder)
{
    LibraryInFile library(folder);
    Context& context = library.context;
    std::set<std::string> numbers;
    std::int64_t count = 0;
    for (const Document* recurring : RecurringInvoices::all(context)) {
        const std::vector<const Document*> made = derivedDocuments(context, *recurring);
        EXPECT_EQ(std::ssize(made), recurring->recurrenceCount);
        EXPECT_EQ(library.calendar.daysBetween(*recurring->issueDate, *recurring->nextIssueDate),
                  7 * recurring->recurrenceCount);
        count += std::ssize(made);
        for (const Document* invoice : made) {
            EXPECT_EQ(std::ssize(linesInOrder(context, *invoice)), linesOfEach);
            EXPECT_TRUE(numbers.insert(invoice->number).second) << invoice->number << " was given twice";
        }
    }
    EXPECT_EQ(context.count<Document>("kindRaw = 0"), count);
    return count;
}

TEST(RecurringKillTest, leavesExactlyWholeInvoicesHoweverOftenItIsKilled)
{
    const TempFolder folder;
    LibraryInFile(folder).fill();
    std::mt19937 random(11);
    std::uniform_int_distribution<int> life(0, longestLifeMicroseconds);
    int kills = 0;
    std::int64_t halfway = 0; // runs that were killed with a part of the invoices made
    // A busy machine gets more time after a while, so that the test comes to an end on it too.
    while (!ranThrough(folder, life(random) * (1 + kills / 20)) && kills < mostKills && !HasFailure()) {
        const std::int64_t count = expectWhole(folder);
        halfway += count > 0 && count < templates * occurrencesOfEach ? 1 : 0;
        ++kills;
    }
    EXPECT_LT(kills, mostKills);
    EXPECT_GT(halfway, 0) << "no run was killed in its middle";
    std::ignore = LibraryInFile(folder).run();
    EXPECT_EQ(expectWhole(folder), templates * occurrencesOfEach);
}

} // namespace
} // namespace Quillary
