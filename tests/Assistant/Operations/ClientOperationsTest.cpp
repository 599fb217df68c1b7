#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "tests/Assistant/AssistantLibrary.h"

namespace Quillary {
namespace {

TEST(ClientOperationsTest, checksEveryDetail)
{
    AssistantLibrary library;
    const std::pair<std::string_view, std::string_view> cases[] = {
        {R"({"email":"a@b.example"})", "Give the client a name: “name”, or “first_name” and “last_name”."},
        {R"({"name":"  "})", "Give the client a name: “name”, or “first_name” and “last_name”."},
        {R"({"name":"A","email":"nobody"})", "“email” must be an email address such as name@example.com."},
        {R"({"name":"A","country":"Deutschland"})", "“country” must be a two-letter ISO country code such as DE."},
        {R"({"name":"A","vat_id":"DE12"})",
         "“vat_id” doesn't have the form of a VAT ID, such as ATU12345678 or DE123456789."},
        {R"({"name":"A","vat_id":"keine"})", // any word passed for the number of a country that we don't know
         "“vat_id” doesn't have the form of a VAT ID, such as ATU12345678 or DE123456789."},
        {R"({"name":"A","currency":"EURO"})", "“currency” must be an ISO currency code such as EUR."},
        {R"({"name":"A","language":"pt"})", "“language” must be one of: en, de, fr, es, nl, it."},
        {R"({"name":"A","payment_terms_days":-1})", "“payment_terms_days” must be a whole number from 0 to 3650."},
        {R"({"name":"A","hourly_rate":-1})", "“hourly_rate” can't be negative: a rate is 0 or more."},
    };
    for (const auto& [arguments, sentence] : cases) {
        EXPECT_EQ(library.refusal("create_client", arguments), sentence) << arguments;
    }
    EXPECT_EQ(library.context.count<Client>(""), 0);
    // The refused ones have used up no client number.
    EXPECT_EQ(member(library.data("create_client", R"({"name":"A"})"), "number"), "\"C-0001\"");
}

TEST(ClientOperationsTest, splitsAndJoinsThePersonsName)
{
    AssistantLibrary library;
    library.data("create_client", R"({"name":"Ana María López","is_person":true})");
    const Client* person = library.context.first<Client>("");
    EXPECT_EQ(person->firstName, "Ana María");
    EXPECT_EQ(person->lastName, "López");
    // The rest of the name was dropped.
    library.data("update_client", R"({"client":"López","name":"Eva Maria Lopez","last_name":"López"})");
    EXPECT_EQ(person->firstName + "|" + person->lastName, "Eva Maria|López");
    library.data("update_client", R"({"client":"López","name":"Ana María López"})");
    library.data("update_client", R"({"client":"López","is_person":false})");
    EXPECT_EQ(library.context.first<Client>("")->name, "Ana María López");
    library.data("update_client", R"({"client":"López","email":"ana@example.org"})");
    EXPECT_EQ(library.context.first<Client>("")->name, "Ana María López");
}

TEST(ClientOperationsTest, doesNotMakeTheSameClientTwice)
{
    AssistantLibrary library;
    library.data("create_client", R"({"name":"Schröder & Co","email":"info@s.example","vat_id":"ATU12345675"})");
    const std::pair<std::string_view, std::string_view> cases[] = {
        {R"({"name":"SCHRODER & CO"})", "give it a name that tells the two apart"},
        {R"({"name":"Other","email":"INFO@s.example"})", "add it without the email address"},
        {R"({"name":"Third","vat_id":"atu 1234 5675"})", "add it without the VAT ID"},
    };
    for (const auto& [arguments, advice] : cases) {
        const ToolResult result = library.call("create_client", arguments);
        EXPECT_FALSE(result.isError) << arguments;
        EXPECT_NE(result.text.find("Schröder & Co ["), std::string::npos) << result.text;
        EXPECT_NE(result.text.find(advice), std::string::npos) << result.text;
        EXPECT_EQ(member(*result.data, "added"), "false");
    }
    EXPECT_EQ(library.context.count<Client>(""), 1);
    // The way to insist that the answer names.
    library.data("create_client", R"({"name":"Schröder & Co, Kiel"})");
    library.data("update_client", R"({"client":"Schröder & Co, Kiel","email":"info@s.example"})");
    EXPECT_EQ(library.context.count<Client>(""), 2);
}

TEST(ClientOperationsTest, comparesWhatWasStoredInAnotherSpelling)
{
    AssistantLibrary library;
    Client& old = library.context.insert<Client>();
    old.name = "Hansa  Bau";
    old.vatID = "at.u123 45-675";
    library.context.save();
    EXPECT_EQ(member(library.data("create_client", R"({"name":"Hansa Bau"})"), "added"), "false");
    EXPECT_EQ(member(library.data("create_client", R"({"name":"H","vat_id":"ATU12345675"})"), "added"), "false");
    const JSON made = library.data("create_client", R"({"name":"Third","vat_id":"de 123.456-789"})");
    EXPECT_EQ(member(made, "vat_id"), "\"DE123456789\"");
}

TEST(ClientOperationsTest, showsInWordsAllThatTheDataHolds)
{
    AssistantLibrary library;
    const ToolResult made = library.call("create_client",
                                         R"({"name":"Ana López","is_person":true,"phone":"030 1","state":"Berlin",
                                             "tax_id":"12/345","currency":"chf","language":"fr",
                                             "payment_terms_days":30,"hourly_rate":95.5})");
    EXPECT_TRUE(made.text.ends_with("], no. C-0001, Berlin, tax no. 12/345, phone 030 1, billed in CHF, language fr, "
                                    "terms 30 days, 95.50 EUR an hour, private person, first name Ana, last name "
                                    "López"))
        << made.text;
    EXPECT_EQ(member(*made.data, "hourly_rate") + member(*made.data, "hourly_rate_currency"), "95.50\"EUR\"");
    EXPECT_EQ(member(*made.data, "is_person") + member(*made.data, "first_name"), "true\"Ana\"");
}

} // namespace
} // namespace Quillary
