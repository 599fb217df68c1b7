#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/EmailTemplate.h"
#include "QuillaryCore/Model/Payment.h"
#include "tests/Assistant/AssistantLibrary.h"
#include "tests/Support/TempFolder.h"

#include <fmt/format.h>

#include <filesystem>

namespace Quillary {
namespace {

class SendingOperationsTest : public testing::Test
{
protected:
    SendingOperationsTest()
    {
        Business& business = library.context.edit(*library.context.find(library.business));
        business.name = "Studio Nord";
        business.addressLine = "Weg 1";
        business.city = "Kiel";
        business.vatID = "DE123456789";
        library.context.save();
        library.data("create_client", R"({"name":"Acme","email":"info@acme.example"})");
    }

    /// A draft over 119.00 EUR; its id.
    std::string create(std::string_view kind = "invoice", std::string_view more = {})
    {
        return *library
                    .data("create_document",
                          fmt::format(
                              R"({{"kind":"{}","client":"Acme","add_lines":[{{"title":"A","unit_price":100}}]{}}})",
                              kind,
                              more))
                    .find("id")
                    ->string();
    }

    std::string with(const std::string& id, std::string_view more = {})
    {
        return fmt::format(R"({{"document":"{}"{}}})", id, more);
    }

    std::string sent()
    {
        std::string id = create();
        library.data("mark_document_sent", with(id));
        return id;
    }

    const Document& document(const std::string& id) { return *library.context.find<Document>(*UUID::parse(id)); }

    AssistantLibrary library;
};

TEST_F(SendingOperationsTest, marksSentOnlyWhatIsReady)
{
    const std::string id = create();
    library.context.edit(*library.context.find(library.business)).vatID = "";
    library.context.save();
    EXPECT_TRUE(library.refusal("mark_document_sent", with(id)).contains("isn't ready"));
    EXPECT_EQ(status(document(id)), DocumentStatus::draft);
    library.context.edit(*library.context.find(library.business)).vatID = "DE123456789";
    library.context.save();

    const ToolResult result = library.call("mark_document_sent", with(id));
    EXPECT_EQ(member(*result.data, "status"), "\"sent\"");
    EXPECT_EQ(document(id).sentAt, library.clock.now());
    EXPECT_EQ(result.documentID, UUID::parse(id));
    EXPECT_NE(library.context.undoName(), "Mark as sent") << "what was issued isn't undone by the way";
    EXPECT_TRUE(library.call("mark_document_sent", with(id)).text.starts_with("Nothing to do"));
    EXPECT_TRUE(library.refusal("update_document", with(id, R"(,"title":"New")")).contains("no draft any more"));
    EXPECT_TRUE(library.refusal("discard_document", with(id)).contains("no draft any more"));
    EXPECT_FALSE(library.call("mark_document_sent", with(create("quote"))).isError);
}

TEST_F(SendingOperationsTest, recordsPaymentsUpToWhatIsDue)
{
    const std::string id = sent();
    EXPECT_EQ(member(library.data("record_payment", with(id, R"(,"amount":19,"method":"cash","date":"2026-03-10")")),
                     "amount_due"),
              "100.00");
    const Payment* payment = library.context.first<Payment>("");
    EXPECT_EQ(payment->method, "cash");
    EXPECT_EQ(isoText(library.calendar.date(*payment->date)), "2026-03-10");
    const std::pair<std::string_view, std::string_view> refused[] = {
        {R"(,"amount":100.01)", "100.01 EUR is 0.01 EUR more than is due on Invoice INV-2026-001 ["},
        {R"(,"amount":0)", "A payment needs an amount."},
        {R"(,"amount":-5)", "“amount” can't be negative: nothing was overpaid."},
        {R"(,"date":"2026-03-18")", "“date” is in the future"},
    };
    for (const auto& [arguments, sentence] : refused) {
        const std::string text = library.refusal("record_payment", with(id, arguments));
        EXPECT_TRUE(text.starts_with(sentence)) << text;
    }
    EXPECT_EQ(library.context.count<Payment>(""), 1);
    const ToolResult rest = library.call("record_payment", with(id));
    EXPECT_EQ(member(*rest.data, "status"), "\"paid\"");
    EXPECT_EQ(member(*rest.data, "payment"), R"({"amount":100.00,"date":"2026-03-17","method":"bankTransfer"})");
    EXPECT_TRUE(library.refusal("record_payment", with(id)).starts_with("Nothing is due on"));
    EXPECT_TRUE(library.refusal("record_payment", with(create())).contains("is still a draft. Mark it as sent first"));
    EXPECT_TRUE(library.refusal("record_payment", with(create("quote"))).contains("asks for no payment"));
}

TEST_F(SendingOperationsTest, discardsOnlyAssistantsDraftsAndGivesTheNumberBack)
{
    const std::string first = create();
    const std::string second = create();
    EXPECT_EQ(member(library.data("discard_document", with(first)), "number_is_free"), "false");
    EXPECT_EQ(member(library.data("discard_document", with(second)), "number_is_free"), "true");
    EXPECT_EQ(document(create()).number, "INV-2026-002");
    EXPECT_EQ(library.context.count<Document>(""), 1);
    Document& own = library.context.edit(*library.context.first<Document>(""));
    own.madeBy.clear();
    const std::string id = own.uuid->text();
    library.context.save();
    EXPECT_TRUE(library.refusal("discard_document", with(id)).contains("was made by the user"));
}

TEST_F(SendingOperationsTest, laysTheEmailBeforeTheUser)
{
    const std::string id = create("invoice", R"(,"language":"de")");
    const ToolResult result = library.call("email_document", with(id));
    ASSERT_TRUE(library.host.mail);
    EXPECT_EQ(library.host.mail->to, std::vector({MailAddress{"Acme", "info@acme.example"}}));
    EXPECT_EQ(library.host.mail->subject, "Rechnung INV-2026-001 von Studio Nord");
    EXPECT_EQ(library.host.mail->body,
              "Hallo Acme,\n\nanbei erhalten Sie die Rechnung INV-2026-001 über 119,00\u00A0€, zahlbar bis zum "
              "31.03.2026.\n\nVielen Dank für Ihren Auftrag!\n\nViele Grüße\nStudio Nord");
    EXPECT_EQ(library.host.mail->attachments.at(0).name, "Rechnung INV-2026-001 - Acme.pdf");
    EXPECT_EQ(library.host.mail->attachments.at(0).pdf, (Bytes{'P', 'D', 'F'}));
    EXPECT_TRUE(result.text.contains("Nothing has been sent.")) << result.text;
    EXPECT_EQ(member(*result.data, "sent"), "false");
    EXPECT_EQ(status(document(id)), DocumentStatus::draft);
}

TEST_F(SendingOperationsTest, writesWithTheUsersOwnWords)
{
    EmailTemplate& own = library.context.insert<EmailTemplate>();
    own.kindRaw = 0;
    own.languageCode = "en";
    own.subject = " {Document} {NUMBER}: {title} {foo} ";
    own.body = "{name}/{client} {{number} {amount_due} {Due_Date} {pay_by";
    Client& client = library.context.edit(*library.context.first<Client>(""));
    client.email.clear();
    ContactPerson& contact = library.context.insert<ContactPerson>();
    contact.name = "Eva {total}";
    contact.email = "eva@acme.example";
    contact.client = client.ref;
    library.context.save();
    library.data("email_document", with(create("invoice", R"(,"language":"en")")));
    EXPECT_EQ(library.host.mail->to.at(0).address, "eva@acme.example");
    EXPECT_EQ(library.host.mail->subject, "Invoice INV-2026-001:  {foo}");
    EXPECT_EQ(library.host.mail->body, "Eva {total}/Acme {INV-2026-001 €119.00 31 Mar 2026 {pay_by");
}

TEST_F(SendingOperationsTest, namesTheTruePathOfWhatItSaved)
{
    // The brackets in the client's name were round in the answer, but not in the folder.
    library.context.edit(*library.context.first<Client>("")).name = "Acme [Nord]\u202E";
    library.context.save();
    const std::string id = create();
    const TempFolder folder;
    library.host.home = folder.path();
    const std::string name = "Invoice INV-2026-001 - Acme (Nord)";
    library.data("email_document", with(id));
    EXPECT_EQ(library.host.mail->attachments.at(0).name, name + ".pdf");

    const std::string first = (folder / (name + ".pdf")).string();
    const ToolResult away = library.call("export_document_pdf", with(id));
    EXPECT_EQ(away.text, "Saved " + first + "\nThere's no downloads folder, so it lies in the home folder.");
    const std::string second = (folder / (name + " (2).pdf")).string();
    const ToolResult home = library.call("export_document_pdf",
                                         with(id, R"(,"folder":"~/./../)" + folder.path().filename().string() + "\""));
    EXPECT_EQ(home.text, "Saved " + second);
    EXPECT_EQ(member(*home.data, "path"), JSON(second).dump());
    EXPECT_TRUE(std::filesystem::exists(second));
}

TEST_F(SendingOperationsTest, saysWhyNoEmailCanBePrepared)
{
    const std::string id = create();
    library.host.failure = "The printer is gone.";
    EXPECT_EQ(library.refusal("email_document", with(id)), "The printer is gone.");
    Client& client = library.context.edit(*library.context.first<Client>(""));
    client.email = "info at acme";
    library.context.save();
    EXPECT_TRUE(library.refusal("email_document", with(id)).contains("can't be written to"));
    library.context.edit(*library.context.first<Client>("")).email = "";
    library.context.save();
    EXPECT_TRUE(library.refusal("email_document", with(id)).contains("has no email address"));
    EXPECT_FALSE(library.host.mail);
}

} // namespace
} // namespace Quillary
