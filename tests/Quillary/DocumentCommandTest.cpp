#include "QuillaryCore/Foundation/JSON.h"
#include "tests/Quillary/RunProgram.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace Quillary {
namespace {

class DocumentCommandTest : public testing::Test
{
protected:
    void SetUp() override
    {
        run("call create_client --name Acme --country DE");
        run("settings set invoice_number_format 'INV-{###}'");
        run("settings set credit_note_number_format 'CN-{###}'");
        run("settings set quote_number_format 'Q-{###}'");
    }

    std::string run(const std::string& arguments)
    {
        const Answer answer = quillary(folder, arguments);
        EXPECT_EQ(answer.status, 0) << arguments << "\n" << answer.output;
        return answer.output;
    }

    std::string refusal(const std::string& arguments)
    {
        const Answer answer = quillary(folder, arguments);
        EXPECT_EQ(answer.status, 1) << arguments << "\n" << answer.output;
        return answer.output;
    }

    /// A member of the answer as JSON text.
    std::string member(const std::string& arguments, const std::string& key)
    {
        const std::string output = run(arguments + " --output json");
        const std::optional<JSON> data = JSON::parse(output);
        const JSON* value = data ? data->find(key) : nullptr;
        return value == nullptr ? "no " + key + " in " + output : value->dump();
    }

    TempFolder folder;
};

TEST_F(DocumentCommandTest, followsAQuoteToItsCreditNote)
{
    run("call create_document --kind quote --client acme --add-lines 'title=Design; quantity=4; unit_price=100'");
    run("document status Q-001 sent");
    EXPECT_EQ(member("document invoice Q-001", "number"), "\"INV-001\"");
    EXPECT_EQ(member("document show Q-001", "status"), "\"accepted\"");
    EXPECT_EQ(refusal("document credit-note INV-001"),
              "Invoice INV-001 is still a draft: change it or delete it instead.\n");
    run("document status inv-001 sent");
    EXPECT_EQ(member("document pay INV-001 --amount 100 --method cash", "status"), "\"partlyPaid\"");
    EXPECT_EQ(member("document pay INV-001", "status"), "\"paid\"");
    EXPECT_EQ(member("document pay INV-001 --remove 1", "amount_due"), "100.00");
    EXPECT_EQ(member("document credit-note INV-001 --line 1=1.5", "number"), "\"CN-001\"");
    EXPECT_EQ(refusal("document credit-note INV-001 --line 1=3"),
              "Only 2.5 are left to credit of line 1 (“Design”).\n");
    EXPECT_EQ(member("document show INV-001", "left_to_credit"), "[{\"line\":1,\"quantity\":2.5}]");
    EXPECT_EQ(member("document delete CN-001", "number_is_free"), "true");
    EXPECT_EQ(member("document credit-note INV-001", "number"), "\"CN-001\"");
    EXPECT_EQ(refusal("document status INV-001 flying"),
              "“flying” is no status to set; there are sent, paid, refunded, unpaid, not-refunded, draft, accepted, "
              "declined, reopen.\n");
    EXPECT_EQ(refusal("document show 7"),
              "There's no document with the id or number “7”. `quillary document list` lists them.\n");
    EXPECT_EQ(refusal("document show find_documents"), // what the user wrote stays
              "There's no document with the id or number “find_documents”. `quillary document list` lists them.\n");
}

TEST_F(DocumentCommandTest, listsInColumnsWhatIsAskedFor)
{
    run("call create_document --kind invoice --client acme --title Website --issue-date 2025-03-07 --add-lines "
        "'title=Design; unit_price=100; tax_rate=0'");
    run("document duplicate INV-001 --date 2025-04-01");
    run("document status INV-001 sent");
    run("project add --name Relaunch");
    run("document project INV-001 relau");
    run("document tag INV-001 'big client' urgent");
    const std::string open = run("document list --status open");
    EXPECT_TRUE(
        open.starts_with("Number   Kind     Status   Date        Due, valid  Client  Title     Total     Due\n"))
        << open;
    EXPECT_NE(open.find("\nINV-001  Invoice  Overdue  2025-03-07  "), std::string::npos) << open;
    EXPECT_NE(open.find("  Acme    Website  100.00  100.00  EUR\n"), std::string::npos) << open;
    const std::pair<std::string, std::string> cases[] = {
        {"", "INV-002 INV-001 "},
        {"--period 2025-Q1", "INV-001 "},
        {"--period 2025-04-01", "INV-002 "},
        {"--tag URGENT", "INV-001 "},
        {"--project relaunch", "INV-001 "},
        {"--client acme --kind quote", ""},
        {"--text websit --status draft", "INV-002 "},
        {"--limit 1", "INV-002 "},
    };
    for (const auto& [options, numbers] : cases) {
        const std::optional<JSON> data = JSON::parse(run("document list --output json " + options));
        std::string found;
        for (const JSON& document : *data->find("documents")->array()) {
            found += *document.find("number")->string() + " ";
        }
        EXPECT_EQ(found, numbers) << options;
    }
    EXPECT_EQ(refusal("document list --status nonsense"),
              "There is no status “nonsense”; there are open, draft, sent, partlyPaid, overdue, paid, accepted, "
              "declined, expired.\n");
    EXPECT_EQ(refusal("document list --period someday"),
              "There is no period “someday”. Write for example this-quarter, last-month, 2026, 2026-Q3, 2026-07 or "
              "2026-01..2026-03.\n");
}

TEST_F(DocumentCommandTest, keepsSettingsAndShortLists)
{
    EXPECT_EQ(run("settings set invoice-number-format 'R{####}'"), "invoice_number_format: R{####}\n  next: R0001\n");
    EXPECT_EQ(refusal("settings set invoice_number_format 'R{###'"), "Every { needs a matching }.\n");
    EXPECT_EQ(refusal("settings set iban DE00"),
              "“iban” isn't a valid IBAN: its check digits or its length are wrong.\n");
    EXPECT_EQ(member("settings set show_payment_qr_code yes", "value"), "true");
    EXPECT_NE(run("settings list").find("show_payment_qr_code"), std::string::npos);
    folder.write("logo.svg",
                 "<svg xmlns='http://www.w3.org/2000/svg' width='40' height='20'><rect width='40' "
                 "height='20' fill='#c00'/></svg>");
    EXPECT_NE(run("settings set logo logo.svg").find("logo: a PNG of "), std::string::npos);
    EXPECT_EQ(member("settings set logo ''", "value"), "0");

    run("catalog add --name Apples --price 2.50 --tax-rate 7");
    const std::string catalog = run("catalog list");
    EXPECT_TRUE(catalog.starts_with("Name    Currency  Price  Unit  Tax rate  Details\n")) << catalog;
    EXPECT_TRUE(catalog.ends_with("\nApples  EUR       2.50         7\n")) << catalog;
    run("catalog edit apple --price 3");
    run("tax-rate add --name Books --rate 5.5");
    run("unit add --singular crate --plural crates");
    EXPECT_EQ(refusal("project add"), "“name” is missing.\n");
    EXPECT_EQ(refusal("unit delete 'box'"), "There's no unit “box”. `quillary unit list` lists them.\n");
    run("catalog add --name 'Apple pie' --price 9");
    EXPECT_TRUE(refusal("catalog delete appl").starts_with("“appl” fits several. Which one? Apples ["));
    run("catalog delete apples");
    EXPECT_EQ(run("preset list"), "There are none yet.\n");
}

} // namespace
} // namespace Quillary
