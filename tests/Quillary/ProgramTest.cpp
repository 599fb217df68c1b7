#include "tests/Quillary/RunProgram.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace Quillary {
namespace {

TEST(ProgramTest, makesAnInvoiceFromThreeCommands)
{
    const TempFolder folder;
    EXPECT_EQ(quillary(folder, "call update_business_profile --name Hof --country DE --vat-id DE136695976").status, 0);
    EXPECT_EQ(quillary(folder, "call create_client --name Acme --email a@acme.example").status, 0);
    const Answer made = quillary(folder,
                                 "call --output json create_document --kind invoice --client acme --add-lines "
                                 "'title=Design; quantity=2.5; unit=hour; unit_price=90' --reverse-charge=false");
    EXPECT_EQ(made.status, 0) << made.output;
    EXPECT_NE(made.output.find("\"total\": 267.75"), std::string::npos) << made.output;
    EXPECT_TRUE(std::filesystem::exists(folder.path() / ".local/share/quillary/Library.sqlite"));

    const Answer saved = quillary(folder, "call export_document_pdf --document \"$(date +INV-%Y-001)\" --folder .");
    EXPECT_EQ(saved.status, 0) << saved.output;
    const Answer again = quillary(folder, "call export_document_pdf --document \"$(date +INV-%Y-001)\" --folder .");
    EXPECT_NE(again.output.find(" (2).pdf"), std::string::npos) << again.output;

    const Answer preview =
        quillary(folder, "call preview_document --document \"$(date +INV-%Y-001)\" --image page.png");
    EXPECT_EQ(preview.status, 0) << preview.output;
    EXPECT_TRUE(std::filesystem::file_size(folder.path() / "page.png") > 10'000);
}

TEST(ProgramTest, answersMistakesWithOneSentenceAndAStatus)
{
    TempFolder folder;
    folder.write("notes/Library.sqlite",
                 "this is a shopping list, not a library, and longer than a header of SQLite is");
    struct Case
    {
        std::string arguments;
        int status;
        std::string sentence;
    };
    const Case cases[] = {
        {"call create_document", 1, "“kind” is missing: What to make.\n"},
        {"call find_clients --json '{'", 1, "The arguments given with --json aren't readable as JSON.\n"},
        {"call find_clients --limit many", 1, "“limit” must be a plain number such as 12.5.\n"},
        {"call get_document --document nothing",
         1,
         "There's no document with the id or number “nothing”. find_documents lists them.\n"},
        {"call record_payment --document 1",
         1,
         "There's no document with the id or number “1”. find_documents lists them.\n"},
        {"call export_document_pdf --document 1 --folder /nowhere",
         1,
         "There's no document with the id or number “1”. find_documents lists them.\n"},
        {"make-example missing.json", 1, "Couldn't open missing.json: No such file or directory.\n"},
        {"--initialize-cloudkit-schema",
         1,
         "This build of Quillary mirrors to no cloud, so there is no schema to initialize.\n"},
        {"call fly", 2, ""},
        {"--nonsense", 2, ""},
    };
    for (const Case& example : cases) {
        const Answer answer = quillary(folder, example.arguments);
        EXPECT_EQ(answer.status, example.status) << example.arguments << "\n" << answer.output;
        if (!example.sentence.empty()) {
            EXPECT_EQ(answer.output, example.sentence) << example.arguments;
        }
    }
    const Answer foreign = quillary(folder, "--library notes call find_clients");
    EXPECT_EQ(foreign.status, 1) << foreign.output;
    EXPECT_TRUE(folder.read("notes/Library.sqlite").starts_with("this is a shopping list"));
}

TEST(ProgramTest, takesTextInBracketsAsItStands)
{
    const TempFolder folder;
    const Answer made = quillary(folder, "call create_client --name '[Acme] a, [b]' --city '[1, 2]'");
    EXPECT_NE(made.output.find("Acme"), std::string::npos) << made.output;
    const Answer found = quillary(folder, "call --output json find_clients");
    EXPECT_NE(found.output.find("\"[Acme] a, [b]\""), std::string::npos) << found.output;
    EXPECT_NE(found.output.find("\"[1, 2]\""), std::string::npos) << found.output;
}

TEST(ProgramTest, saysWhenItsAnswerDidNotArrive)
{
    const TempFolder folder;
    EXPECT_EQ(quillary(folder, "call find_clients 2>/dev/null > /dev/full").status, 1);
}

TEST(ProgramTest, keepsTheDayInAnotherTimeZone)
{
    const TempFolder folder;
    const std::string zones[] = {"America/Los_Angeles", "Pacific/Auckland", "Europe/Berlin"};
    const auto in = [&](const std::string& zone, const std::string& arguments) {
        return quillary(folder, arguments, "TZ=" + zone).output;
    };
    in(zones[0], "call create_document --kind invoice --issue-date 2026-12-31 --service-date 2026-12-30");
    for (const std::string& zone : zones) {
        const std::string shown = in(zone, "call --output json get_document --document INV-2026-001");
        EXPECT_NE(shown.find("\"2026-12-31\""), std::string::npos) << zone << shown;
        EXPECT_NE(shown.find("\"2026-12-30\""), std::string::npos) << zone << shown;
    }
}

TEST(ProgramTest, keepsAndRestoresBackups)
{
    const TempFolder folder;
    quillary(folder, "call create_client --name Before");
    const Answer made = quillary(folder, "backup now");
    EXPECT_EQ(made.status, 0) << made.output;
    quillary(folder, "call create_client --name After");
    const Answer listed = quillary(folder, "backup list");
    EXPECT_NE(listed.output.find("Quillary Backup"), std::string::npos) << listed.output;
    const std::string file = made.output.substr(made.output.find('/'));
    EXPECT_EQ(quillary(folder, "backup restore '" + file.substr(0, file.find(".sqlite") + 7) + "'").status, 0);
    const Answer clients = quillary(folder, "call find_clients");
    EXPECT_NE(clients.output.find("Before"), std::string::npos) << clients.output;
    EXPECT_EQ(clients.output.find("After"), std::string::npos) << clients.output;
    EXPECT_NE(quillary(folder, "backup list").output.find("Quillary Before Restore"), std::string::npos);
}

} // namespace
} // namespace Quillary
