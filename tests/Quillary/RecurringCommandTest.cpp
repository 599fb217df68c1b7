#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "tests/Quillary/RunProgram.h"
#include "tests/QuillaryChannel/HelperProcess.h"
#include "tests/Support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>

namespace Quillary {
namespace {

using testing::HasSubstr;
using testing::Not;

/// A user's home, in whose library a monthly template has waited for five dates, as one left alone for months.
struct RecurringCommandTest : testing::Test
{
    RecurringCommandTest()
    {
        inLibrary([this](Context& context) {
            makeFirstBusiness(context, Locale("de_DE"));
            Client& client = context.insert<Client>();
            client.name = "Acme";
            addTemplate(context, "Support {month_year}", client.ref);
        });
    }

    void addTemplate(Context& context, const std::string& title, Ref<Client> client) const
    {
        const CalendarDate today = calendar.date(clock.now());
        const std::chrono::year_month first = today.year() / today.month() - std::chrono::months(4);
        Document& recurring = context.insert<Document>();
        recurring.kindRaw = static_cast<std::int16_t>(DocumentKind::recurring);
        recurring.title = title;
        recurring.client = client;
        recurring.currencyCode = "EUR";
        recurring.issueDate = calendar.storedDay(first / 1);
        recurring.nextIssueDate = recurring.issueDate;
        recurring.recurrenceUnitRaw = 1;
        recurring.recurrenceInterval = 1;
        recurring.recurrenceAnchorDay = 1;
        LineItem& line = context.insert<LineItem>();
        line.document = recurring.ref;
        line.title = "Hosting";
        line.quantityThousandths = 1000;
        line.unitPriceMinorUnits = 5000;
    }

    void inLibrary(const std::function<void(Context&)>& work)
    {
        Store store(Store::Location::directory(folder / ".local/share/quillary"),
                    DataModel::records(),
                    DataModel::history(),
                    clock,
                    uuids);
        Context context(store, clock, uuids);
        work(context);
        context.save();
    }

    std::int64_t invoices()
    {
        std::int64_t count = 0;
        inLibrary([&](Context& context) { count = context.count<Document>("kindRaw = 0"); });
        return count;
    }

    [[nodiscard]] Answer run(const std::string& arguments) const { return quillary(folder, arguments); }

    SystemClock clock;
    RandomUUIDSource uuids;
    Calendar calendar{"UTC"};
    TempFolder folder;
};

TEST_F(RecurringCommandTest, aLibraryLeftAloneWakesUpRight)
{
    EXPECT_THAT(run("recurring").output, HasSubstr("Every month on the 1st  Active"));
    EXPECT_EQ(run("--show-recurring").output, run("recurring list").output);
    const Answer dry = run("recurring run --dry-run");
    EXPECT_THAT(dry.output, HasSubstr("-01  Acme    Support {month_year}"));
    EXPECT_THAT(dry.output, HasSubstr("-001  "));
    EXPECT_EQ(invoices(), 0);
    const Answer made = run("recurring run");
    EXPECT_EQ(made.status, 0) << made.output;
    EXPECT_THAT(made.output, HasSubstr("-001"));
    EXPECT_THAT(made.output, Not(HasSubstr("{")));
    EXPECT_EQ(invoices(), 5);
    EXPECT_EQ(run("recurring run").output, "No recurring invoice is due.\n");
    const Answer listed = run("recurring --output json");
    EXPECT_THAT(listed.output, HasSubstr("\"made\": 5"));
    EXPECT_THAT(listed.output, HasSubstr("\"state\": \"active\""));
}

TEST_F(RecurringCommandTest, skipsWhatPassedInAPauseUnlessAsked)
{
    EXPECT_THAT(run("recurring pause acme").output, HasSubstr("is paused. Dates that pass meanwhile are skipped"));
    EXPECT_EQ(run("recurring run").output, "No recurring invoice is due.\n");
    EXPECT_EQ(run("recurring resume support --make-up").status, 0);
    EXPECT_THAT(run("recurring run --dry-run --output json").output, HasSubstr("\"is_complete\": true"));
    EXPECT_EQ(run("recurring pause support").status, 0);
    EXPECT_THAT(run("recurring resume support").output,
                HasSubstr("dates that passed were skipped.\nSchedule:       Every month on the 1st\n"));
    EXPECT_EQ(run("recurring pause nobody").output,
              "There's no recurring invoice “nobody”. “quillary recurring” lists them.\n");
    inLibrary([this](Context& context) { addTemplate(context, "Support plus", {}); });
    const Answer unclear = run("recurring pause support");
    EXPECT_EQ(unclear.status, 1);
    EXPECT_THAT(unclear.output, HasSubstr("fits several recurring invoices. Which one? "));
}

TEST_F(RecurringCommandTest, makesChangesAndDeletesTemplates)
{
    EXPECT_EQ(run("recurring delete support").output,
              "“Support {month_year}” is deleted. The invoices that were made from it stay.\n");
    const Answer model =
        run("call create_document --kind invoice --client Acme --issue-date 2199-01-31 --title Hosting "
            "--add-lines '[{\"title\": \"Hosting\", \"unit_price\": 50}]'");
    ASSERT_EQ(model.status, 0) << model.output;
    struct Case
    {
        std::string arguments;
        int status;
        std::string_view told;
    };
    const Case cases[] = {
        {"create INV-2199-001 --count 12 --title 'Hosting {year}'",
         0,
         "“Hosting {year}” was made from Invoice INV-2199-001.\n"
         "Schedule:       Every month on the 31st, 0 of 12 made\n"
         "State:          Active\n"
         "Invoices:       drafts\n"
         "Service period: No service period\n"
         "Next dates:     2199-02-28, 2199-03-31, 2199-04-30, 2199-05-31, 2199-06-30\n"},
        {"create INV-2199-001 --unit week --day 3", 1, "A schedule of weeks has no day of the month"},
        {"create INV-2199-001 --start tomorrow", 1, "“tomorrow” is no day; write it as YYYY-MM-DD."},
        {"create INV-2199-001 --sent --draft", 2, "--sent"},
        {"edit hosting", 1, "Change what?"},
        {"edit hosting --interval two", 2, "--interval"},
        {"edit hosting --sent --service-period previous --until 2199-06-01 --output json", 0, R"("creates": "sent")"},
        {"list --output json", 0, R"("service_period": "previous")"},
        {"edit hosting --unit quarter --no-end --next 2199-05-31", 0, "Every quarter on the 31st\n"},
        {"edit hosting --unit fortnight", 1, "“fortnight” is no unit; there are week, month, quarter and year."},
        {"pause hosting --output json", 0, R"("next_dates": [)"},
        {"delete hosting --output json", 0, R"("id": ")"},
        {"list", 0, "There are no recurring invoices."},
    };
    for (const auto& [arguments, status, told] : cases) {
        const Answer answer = run("recurring " + arguments);
        EXPECT_EQ(answer.status, status) << arguments << ": " << answer.output;
        EXPECT_THAT(answer.output, HasSubstr(told)) << arguments;
    }
}

TEST_F(RecurringCommandTest, namesTheTemplateThatStandsStill)
{
    inLibrary([this](Context& context) { addTemplate(context, "Lost", {}); });
    const Answer dry = run("recurring run --dry-run");
    EXPECT_EQ(dry.status, 1);
    EXPECT_THAT(dry.output, HasSubstr("-005  "));
    EXPECT_THAT(dry.output, HasSubstr("“Lost”: the invoice of "));
    EXPECT_EQ(invoices(), 0);
    const Answer made = run("recurring run");
    EXPECT_EQ(made.status, 1);
    EXPECT_THAT(made.output, HasSubstr("“Lost”: the invoice of "));
    EXPECT_EQ(invoices(), 5);
    EXPECT_EQ(run("recurring edit lost --client acme").status, 0);
    EXPECT_EQ(run("recurring run").status, 0) << "it was mended";
    EXPECT_EQ(invoices(), 10);
}

TEST_F(RecurringCommandTest, theServiceCatchesUpWhenItStarts)
{
    const std::filesystem::path socket = folder / "assistants.socket";
    HelperProcess server({.command = {QUILLARY_PROGRAM, "serve"},
                          .environment = {"HOME=" + folder.path().string(),
                                          "LC_ALL=de_DE.UTF-8",
                                          "QUILLARY_ASSISTANT_SOCKET=" + socket.string()}});
    for (int tries = 0; tries < 2000 && !std::filesystem::exists(socket); ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_EQ(run("recurring run").output, "No recurring invoice is due.\n") << "the service was there first";
    kill(server.id(), SIGTERM);
    EXPECT_EQ(server.statusWithin(std::chrono::seconds(20)), 0);
    EXPECT_THAT(server.complaint(), HasSubstr("Made the recurring invoice "));
    EXPECT_EQ(invoices(), 5);
}

} // namespace
} // namespace Quillary
