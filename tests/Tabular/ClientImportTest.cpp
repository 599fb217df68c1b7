#include "QuillaryCore/Tabular/ClientImport.h"

#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Numbering/Numbering.h"
#include "QuillaryCore/Numbering/NumberingError.h"
#include "QuillaryCore/Tabular/CSV.h"
#include "tests/Model/TestLibrary.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

class ClientImportTest : public testing::Test
{
protected:
    ClientImportTest()
    {
        business.clientNumberFormat = "C-{###}";
        auto& client = library.context.insert<Client>();
        client.number = "C-002";
        client.name = "Müller  Söhne";
        client.email = "Info@Mueller.example";
        client.vatID = "DE 136.695.976";
        library.context.save();
    }

    ClientImport preview(const std::string& text)
    {
        const CSVRows rows = CSV::parse(text, ';');
        return ClientImport(rows, ImportColumns::recognised(rows), &library.context);
    }

    /// "number name" of every client, in the order of insertion.
    std::vector<std::string> clients()
    {
        std::vector<std::string> result;
        for (const Client* client : library.context.fetch<Client>("")) {
            result.push_back(client->number + " " + displayName(*client));
        }
        return result;
    }

    TestLibrary library;
    Business business;
    const Calendar calendar{"Europe/Berlin"};
};

TEST_F(ClientImportTest, tellsNewFromKnown)
{
    const std::pair<std::string, std::string> cases[] = {
        {"c-002;Acme;;", "duplicate: Has the same number as “Müller  Söhne” in the library."},
        {";Acme;;DE136695976", "duplicate: Has the same VAT ID as “Müller  Söhne” in the library."},
        {";Acme;info@mueller.EXAMPLE;", "duplicate: Has the same email address as “Müller  Söhne” in the library."},
        {"X-1;MULLER SOHNE;;", "duplicate: Has the same name as “Müller  Söhne” in the library."},
        {"X-1;Acme;a@acme.example;", "new"},
        {";;;", "none"}, // a blank row is no row, and counts as in a spreadsheet
        {"X-2;;;", "empty"},
        {"X-1;Other;;", "duplicate: Has the same number as “Acme” in row 6."},
        {";Café Acme;A@acme.example;", "duplicate: Has the same email address as “Acme” in row 6."},
        {";Acme;;", "duplicate: Has the same name as “Acme” in row 6."},
        {"X-3;ACME;;", "new Row 6 has the same name and another number."},
        {";;info@new.example;", "new There is no name; the email address stands for it."},
        {";Beta;INFO@new.example;", "duplicate: Has the same email address as “info@new.example” in row 13."},
    };
    std::string text = "Number;Name;Email;VAT ID\n";
    for (const auto& [row, expected] : cases) {
        text += row + "\n";
    }
    const ClientImport import = preview(text);
    std::vector<std::string> shown;
    for (const ClientImport::Row& row : import.rows()) {
        std::string line(title(row.status));
        line += row.match ? ": " + sentence(*row.match) : "";
        for (const ImportWarning& warning : row.read.warnings) {
            line += " " + warning.message;
        }
        shown.push_back(std::move(line));
    }
    std::size_t place = 0;
    for (const auto& [row, expected] : cases) {
        if (expected != "none") {
            EXPECT_EQ(shown.at(place++), expected) << row;
        }
    }
    EXPECT_EQ(import.count(ImportStatus::isNew), 3U);
    EXPECT_EQ(import.count(ImportStatus::empty), 1U);
    EXPECT_EQ(clients(), std::vector<std::string>{"C-002 Müller  Söhne"}); // nothing is written by looking
}

TEST_F(ClientImportTest, importsNewClientsWithNumbers)
{
    ClientImport import = preview("Number;Name;Company;Country\n"
                                  ";Anna Schmidt;Acme;Germany\n"
                                  "C-003;Beta;;\n" // keeps its number, and nobody else gets it
                                  ";Carla Gómez;;\n"
                                  ";Müller Söhne;;\n"
                                  "old-9;Delta GmbH;;\n");
    std::vector<std::size_t> told;
    import.run(library.context, business, calendar, [&](std::size_t done, std::size_t total) {
        told.push_back(done * 100 + total);
    });
    EXPECT_EQ(told, std::vector<std::size_t>{505});
    EXPECT_FALSE(library.context.hasChanges());
    EXPECT_EQ(clients(),
              (std::vector<std::string>{
                  "C-002 Müller  Söhne", "C-001 Acme", "C-003 Beta", "C-004 Carla Gómez", "old-9 Delta GmbH"}));
    const Client* acme = library.context.first<Client>("number = 'C-001'");
    EXPECT_EQ(acme->countryCode, "DE");
    EXPECT_EQ(acme->createdAt, TestLibrary::start);
    EXPECT_TRUE(acme->uuid);
    const auto people = library.context.related<&ContactPerson::client>(*acme);
    ASSERT_EQ(people.size(), 1U);
    EXPECT_EQ(people.front()->name, "Anna Schmidt");
    EXPECT_EQ(
        Numbering::peek(library.context, NumberedKind::client, TestLibrary::start, nullptr, business, calendar).number,
        "C-005");
    library.context.undo();
    EXPECT_EQ(clients(), std::vector<std::string>{"C-002 Müller  Söhne"});
    EXPECT_TRUE(library.context.fetch<ContactPerson>("").empty());
}

TEST_F(ClientImportTest, passesManyImportedNumbersOver)
{
    std::string text = "Number;Name\n";
    for (int i = 3; i <= 15'000; ++i) {
        text += "C-" + std::string(i < 10 ? "00" : (i < 100 ? "0" : "")) + std::to_string(i) + ";Client " +
                std::to_string(i) + "\n";
    }
    ClientImport import = preview(text + ";Without\n");
    import.run(library.context, business, calendar);
    EXPECT_EQ(library.context.first<Client>("name = 'Without'")->number, "C-001");
    // More than the search for a free number would try.
    EXPECT_EQ(Numbering::assign(library.context, NumberedKind::client, TestLibrary::start, nullptr, business, calendar),
              "C-15001");
}

TEST_F(ClientImportTest, importsAllOrNothing)
{
    ClientImport import = preview("Number;Name\nX;Acme\n;Beta\n");
    business.clientNumberFormat = "no counter";
    EXPECT_THROW(import.run(library.context, business, calendar), NumberingError);
    EXPECT_FALSE(library.context.hasChanges());
    EXPECT_EQ(clients().size(), 1U);
}

TEST_F(ClientImportTest, importsTheSameListOnlyOnce)
{
    const std::string list = "Kunden-Nr.;Firma;Vorname;Nachname;E-Mail\n"
                             ";Acme;Anna;Schmidt;\n"
                             ";;Ben;Li;ben@li.example\n"
                             "K9;;;Ó Súilleabháin;\n"
                             ";\u02DC\u02DC--;;;\n"; // spaces and dashes once its marks are folded, and a name still
    preview(list).run(library.context, business, calendar);
    const ClientImport again = preview(list);
    EXPECT_EQ(again.count(ImportStatus::duplicate), 4U);
    EXPECT_EQ(again.count(ImportStatus::isNew), 0U);
}

} // namespace

} // namespace Quillary
