#include "QuillaryCore/Foundation/JSON.h"
#include "tests/Letters/MailReader.h"
#include "tests/Quillary/RunProgram.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {
namespace {

namespace fs = std::filesystem;

/// A library with one invoice that has been overdue for years, sent to a client with an address.
class LettersCommandTest : public testing::Test
{
protected:
    LettersCommandTest()
    {
        run("call update_business_profile --name Hof --country DE --vat-id DE136695976 --address-line 'Weg 1' "
            "--postal-code 10115 --city Berlin --email hof@hof.example");
        run("call create_client --name 'Café Müller' --email info@mueller.example --address-line 'Weg 2' "
            "--postal-code 10115 --city Berlin --country DE --language de");
        run("call create_document --kind invoice --client müller --issue-date 2024-01-10 --service-date invoice_date "
            "--add-lines 'title=Design; quantity=10; unit=hour; unit_price=100'");
        run("call mark_document_sent --document INV-2024-001");
        fs::create_directory(folder / "out");
    }

    /// What a command that must work prints.
    std::string run(const std::string& arguments)
    {
        const Answer answer = quillary(folder, arguments);
        EXPECT_EQ(answer.status, 0) << arguments << "\n" << answer.output;
        return answer.output;
    }

    /// A member of what a command prints as JSON, as text.
    std::string member(const std::string& arguments, std::string_view key)
    {
        const std::string output = run(arguments + " --output json");
        const std::optional<JSON> data = JSON::parse(output);
        const JSON* value = data ? data->find(key) : nullptr;
        return value == nullptr ? "missing in " + output : value->text().value_or(value->pretty());
    }

    /// The same of the only overdue invoice.
    std::string overdue(std::string_view key)
    {
        std::string output = run("overdue --output json");
        const std::optional<JSON> data = JSON::parse(output);
        const JSON* list = data ? data->find("invoices") : nullptr;
        if (list == nullptr || list->array() == nullptr || list->array()->size() != 1) {
            return output;
        }
        const JSON* value = list->array()->front().find(key);
        return value == nullptr ? output : value->text().value_or(value->pretty());
    }

    [[nodiscard]] std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder / "out")) {
            names.push_back(entry.path().filename().string());
        }
        std::ranges::sort(names);
        return names;
    }

    TempFolder folder;
};

TEST_F(LettersCommandTest, remindsStepByStep)
{
    EXPECT_EQ(overdue("amount_due"), "1190.00");
    EXPECT_EQ(overdue("next"), "remind");
    EXPECT_EQ(overdue("next_level"), "1");
    EXPECT_EQ(member("remind INV-2024-001 --dry-run", "recorded"), "false");
    EXPECT_EQ(overdue("last_level"), "null");

    const std::string told = run("remind inv-2024-001 --fee 5,50 --pdf out --mail out");
    EXPECT_NE(told.find("1.195,50\u00A0€"), std::string::npos) << told;
    EXPECT_NE(told.find("Nothing has been sent."), std::string::npos) << told;
    const std::string name = "Zahlungserinnerung INV-2024-001 - Café Müller";
    EXPECT_EQ(files(), (std::vector{name + ".eml", name + ".pdf"}));
    const MailReader mail(folder.read("out/" + name + ".eml"));
    EXPECT_EQ(mail.fault(), "");
    EXPECT_EQ(mail.header("X-Unsent"), "1");
    EXPECT_EQ(mail.header("To"), "Café Müller <info@mueller.example>");
    EXPECT_EQ(mail.header("Subject"), "Zahlungserinnerung zur Rechnung INV-2024-001");
    ASSERT_EQ(mail.parts().size(), 2U);
    EXPECT_NE(mail.parts()[0].content.find("1.195,50\u00A0€"), std::string::npos);
    EXPECT_EQ(mail.parts()[1].fileName, name + ".pdf");
    EXPECT_EQ(mail.parts()[1].content, folder.read("out/" + name + ".pdf"));
    EXPECT_TRUE(mail.parts()[1].content.starts_with("%PDF"));

    EXPECT_EQ(overdue("amount_due"), "1195.50");
    EXPECT_EQ(overdue("next"), "wait") << "the day that the reminder asks to pay by has not come";
    EXPECT_EQ(member("remind INV-2024-001 --again --pdf out", "recorded"), "false");
    EXPECT_EQ(member("remind INV-2024-001", "level"), "2");
    EXPECT_EQ(member("remind INV-2024-001 --undo", "level"), "2");
    EXPECT_EQ(overdue("last_level"), "1");
    EXPECT_EQ(files().size(), 3U);
}

TEST_F(LettersCommandTest, recordsNothingWhenALetterCantBeWritten)
{
    struct Case
    {
        std::string arguments;
        std::string sentence; ///< a part of it
    };
    const Case cases[] = {
        {"remind INV-2024-001 --pdf out --mail nowhere", "nowhere"}, // the letter is written first, and goes again
        {"remind INV-2024-001 --mail out --to hof@", "“hof@” is no email address."},
        {"remind INV-2024-001 --level 4 --pdf out", "The level of a reminder is 1, 2 or 3"},
        {"remind INV-2024-001 --fee -1 --pdf out", "A late fee can't be negative."},
        {"remind INV-2024-001 --fee much --pdf out", "The fee must be an amount"},
        {"remind INV-2024-001 --pay-by 2024-02-30 --pdf out", "The day to pay by must be a date"},
        {"remind INV-2024-001 --pay-by 2024-02-28 --pdf out", "The day to pay by has passed."},
        {"remind INV-2024-001 --again --pdf out", "No reminder of Invoice INV-2024-001"},
        {"remind INV-2024-001 --undo", "No reminder of Invoice INV-2024-001"},
        {"remind INV-2024-001 --again", "Where to?"},
        {"remind 9", "There's no document with the id or number “9”. `quillary document list` lists them."},
        {"email INV-2024-001 --mail nowhere", "nowhere"},
    };
    for (const Case& row : cases) {
        const Answer answer = quillary(folder, row.arguments);
        EXPECT_EQ(answer.status, 1) << row.arguments;
        EXPECT_NE(answer.output.find(row.sentence), std::string::npos) << row.arguments << "\n" << answer.output;
        EXPECT_EQ(std::ranges::count(answer.output, '\n'), 1) << answer.output;
    }
    EXPECT_TRUE(files().empty());
    EXPECT_EQ(overdue("last_level"), "null");
    run("call record_payment --document INV-2024-001");
    EXPECT_NE(quillary(folder, "remind INV-2024-001").output.find("It is paid."), std::string::npos);
    EXPECT_EQ(run("overdue"), "No invoice is overdue.\n");
}

TEST_F(LettersCommandTest, writesWithTheWordsThatWereSet)
{
    EXPECT_NE(run("email-template list de").find("Rechnung {number} von {business}"), std::string::npos);
    const std::string kept = run("email-template set invoice de --subject '{NUMBER} {when}'");
    EXPECT_NE(kept.find("{when}"), std::string::npos) << kept;
    EXPECT_EQ(member("email-template show invoice german", "customized"), "true");
    const std::string told = run("email INV-2024-001 --mail out --to 'Eva <eva@x.example>, info@MUELLER.example'");
    EXPECT_NE(told.find("{when}"), std::string::npos) << told;
    const MailReader mail(folder.read("out/Rechnung INV-2024-001 - Café Müller.eml"));
    EXPECT_EQ(mail.header("Subject"), "INV-2024-001 {when}");
    EXPECT_EQ(mail.header("To"), "eva@x.example, Café Müller <info@MUELLER.example>");
    run("email-template restore invoice de");
    EXPECT_EQ(member("email-template show invoice de", "subject"), "Rechnung {number} von {business}");
    EXPECT_EQ(quillary(folder, "email-template set invoice de --subject ' '").output, "An email needs a subject.\n");
    EXPECT_EQ(quillary(folder, "email-template show poem de").status, 1);
}

} // namespace
} // namespace Quillary
