#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Model/TimeEntryBilling.h"
#include "tests/Assistant/AssistantLibrary.h"

#include <fmt/format.h>

namespace Quillary {
namespace {

using std::chrono::minutes;

class TimeOperationsTest : public testing::Test
{
protected:
    TimeOperationsTest()
    {
        Business& business = library.context.edit(*library.context.find(library.business));
        business.hourlyRateMinorUnits = 9000;
        business.timeRoundingMinutes = 15;
        Client& acme = library.context.insert<Client>();
        acme.name = "Acme";
        client = acme.ref;
        Project& site = library.context.insert<Project>();
        site.name = "Website";
        project = site.ref;
        library.context.save();
    }

    TimeEntry& add(minutes length, Ref<Project> of, bool isBillable = true)
    {
        TimeEntry& entry = library.context.insert<TimeEntry>();
        entry.start = library.clock.now() - std::chrono::hours(5);
        entry.end = *entry.start + length;
        entry.client = client;
        entry.project = of;
        entry.isBillable = isBillable;
        return entry;
    }

    std::int64_t unbilled() { return library.context.count<TimeEntry>("invoiceID IS NULL"); }

    AssistantLibrary library;
    Ref<Client> client;
    Ref<Project> project;
};

TEST_F(TimeOperationsTest, addsUpWhatIsUnbilled)
{
    EXPECT_EQ(library.call("get_unbilled_time", "{}").text, "There is no unbilled time.");
    add(minutes(50), project);       // rounded to an hour
    add(minutes(20), project);       // to half an hour
    add(minutes(10), {});            // to a quarter
    add(minutes(60), {}, false);     // never billed
    add(minutes(0), {}).end.reset(); // still running
    TimeEntry& nobodys = add(minutes(60), {});
    nobodys.client = {};
    library.context.save();
    const ToolResult result = library.call("get_unbilled_time", "{}");
    EXPECT_EQ(result.text,
              fmt::format("Acme [{}]: 1.75 h, 157.50 EUR\n"
                          "   Website [{}]: 1.5 h × 90.00 = 135.00, 2 entries\n"
                          "   Without a project: 0.25 h × 90.00 = 22.50, 1 entry\n"
                          "   A timer is running: 5:00 h so far, not counted until it is stopped.\n"
                          "Without a client: 1 h, 90.00 EUR\n"
                          "   Without a project: 1 h × 90.00 = 90.00, 1 entry\n"
                          "Together: 2.75 h, 247.50 EUR",
                          library.context.find(client)->uuid->text(),
                          library.context.find(project)->uuid->text()));
    library.context.edit(*library.context.find(client)).hourlyRateMinorUnits = 10000;
    library.context.save();
    const JSON one = library.data("get_unbilled_time", R"({"client":"acme"})");
    EXPECT_EQ(member(one, "totals"), R"([{"currency":"EUR","hours":1.75,"value":175.00}])");
}

TEST_F(TimeOperationsTest, billsEachEntryOnceAndFreesItWithItsLine)
{
    add(minutes(50), project);
    add(minutes(10), {});
    add(minutes(0), {}).end.reset();
    library.context.save();
    const JSON made = library.data("create_document", R"({"kind":"invoice","client":"Acme","add_unbilled_time":true})");
    EXPECT_EQ(member(made, "net"), "112.50");
    EXPECT_EQ(unbilled(), 1) << "the running one";
    EXPECT_EQ(library.context.count<TimeEntryBilling>(""), 2);
    EXPECT_EQ(library.context.first<LineItem>("sortIndex = 0")->title, "Website");
    EXPECT_EQ(library.context.first<LineItem>("sortIndex = 0")->unit, "hour");
    EXPECT_EQ(library.refusal("create_document", R"({"kind":"invoice","client":"Acme","add_unbilled_time":true})"),
              "Acme has no unbilled time.");

    const std::string id = *made.find("id")->string();
    library.data("update_document", fmt::format(R"({{"document":"{}","remove_lines":[1]}})", id));
    EXPECT_EQ(unbilled(), 2);
    EXPECT_EQ(library.context.count<TimeEntryBilling>(""), 1);
    // A call that fails later takes back the billing as well.
    library.refusal("update_document",
                    fmt::format(R"({{"document":"{}","add_unbilled_time":true,"discount_percent":101}})", id));
    EXPECT_EQ(unbilled(), 2);
    library.data("discard_document", fmt::format(R"({{"document":"{}"}})", id));
    EXPECT_EQ(unbilled(), 3);
    EXPECT_EQ(library.context.count<TimeEntryBilling>(""), 0);
}

TEST_F(TimeOperationsTest, billsNobodyElseForTheTime)
{
    // The time went along to the other client, its price in their currency.
    add(minutes(60), project);
    library.data("create_client", R"({"name":"Zeta","currency":"USD"})");
    const JSON made = library.data("create_document", R"({"kind":"invoice","client":"Acme","add_unbilled_time":true})");
    const std::string id = *made.find("id")->string();
    const auto with = [&](std::string_view change) {
        return fmt::format(R"({{"document":"{}",{}}})", id, change);
    };
    EXPECT_EQ(
        library.refusal("update_document", with(R"("client":"Zeta")")),
        "The client can't become Zeta: line 1 (“Website”) bills tracked time of Acme. Remove such lines first, in "
        "a call of its own (remove_lines), then change the client.");
    EXPECT_EQ(library.refusal("update_document", with(R"("currency":"USD")")),
              "The currency can't become USD: line 1 (“Website”) bills tracked time, which is priced in EUR. Give its "
              "price in USD in the same call (change_lines with unit_price), remove the line first, or set “currency” "
              "to EUR.");
    library.data("update_document", with(R"("remove_lines":[1])"));
    EXPECT_EQ(unbilled(), 1);
    EXPECT_EQ(member(library.data("update_document", with(R"("client":"Zeta")")), "currency"), "\"USD\"");
}

TEST_F(TimeOperationsTest, refusesWhereTimeCantBeBilled)
{
    add(minutes(60), {});
    library.context.save();
    const std::pair<std::string_view, std::string_view> cases[] = {
        {R"({"kind":"quote","client":"Acme","add_unbilled_time":true})",
         "“add_unbilled_time” belongs to invoices: a quote bills nothing."},
        {R"({"kind":"invoice","add_unbilled_time":true})", "“add_unbilled_time” needs a client."},
        {R"({"kind":"invoice","client":"Acme","currency":"CHF","add_unbilled_time":true})",
         "The hourly rate is in EUR, this document in CHF. Set the document's currency to EUR, or add the hours with "
         "add_lines and their price."},
    };
    for (const auto& [arguments, sentence] : cases) {
        EXPECT_EQ(library.refusal("create_document", arguments), sentence);
    }
    EXPECT_EQ(unbilled(), 1);
}

} // namespace
} // namespace Quillary
