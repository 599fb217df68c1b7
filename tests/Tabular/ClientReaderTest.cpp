#include "QuillaryCore/Tabular/ClientReader.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Tabular/CSV.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

namespace {

using Reason = ImportWarning::Reason;

/// The only client of a list.
ReadClient read(const std::string& headings, const std::string& row)
{
    const CSVRows rows = CSV::parse(headings + "\n" + row, ';');
    ClientReader reader(ImportColumns::recognised(rows));
    return reader.read(rows[reader.columns().firstRow()]);
}

std::vector<Reason> reasons(const ReadClient& read)
{
    std::vector<Reason> result;
    result.reserve(read.warnings.size());
    for (const ImportWarning& warning : read.warnings) {
        result.push_back(warning.reason);
    }
    return result;
}

/// What the columns of a list mean: "number name - email".
std::string columnsOf(const std::string& text)
{
    const CSVRows rows = CSV::parse(text, ';');
    const ImportColumns columns = ImportColumns::recognised(rows);
    std::string result = columns.hasHeadings() ? "headings" : "none";
    for (std::size_t i = 0; i < columns.size(); ++i) {
        result.append(" ").append(rawValue(columns.field(i)));
    }
    return result;
}

TEST(ImportColumnsTest, recognisesHeadingsAndTheirAbsence)
{
    const std::pair<std::string, std::string> cases[] = {
        {"Kunden-Nr.;Firma;PLZ;Rabatt\n1;Acme;10115;5", "headings number company postalCode ignore"},
        {"Name\nAcme", "headings name"},
        {"Kundenliste;;\nStand: Mai;;\nKunde;E-Mail;Ort\nAcme;a@b.de;Ulm", "headings name email city"}, // a title
        {"Acme GmbH;info@acme.example;10115;Berlin;Deutschland\nKunde Eins;k@eins.example;80331;München;Österreich",
         "none name email postalCode city country"},
        {"1001;Acme;Hauptstr. 1\n1002;Beta;Nebenweg 2", "none number name street"},
        {"Bezeichnung;Anschreiben;Amt\nAcme;a@acme.example;DE136695976\nBeta;b@beta.example;ATU12345678",
         "headings name email vatID"}, // words that mean nothing, above what means something
        {"Acme;+49 30 123456;www.acme.example;€;firma", "none name phone website currency kind"},
        {"Acme\nBeta", "none name"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(columnsOf(text), expected) << text;
    }
}

TEST(ImportColumnsTest, takesWhatTheUserSays)
{
    const CSVRows rows = CSV::parse("Firma;Telefon;Fax;\nAcme;1;2;x", ';');
    ImportColumns columns = ImportColumns::recognised(rows);
    columns.assign("fax", "phone");
    columns.assign("4", "Notizen");
    EXPECT_EQ(columns.field(1), ClientField::ignore);
    EXPECT_EQ(columns.field(2), ClientField::phone);
    EXPECT_EQ(columns.field(3), ClientField::notes);
    const std::pair<std::string, std::string> refused[] = {
        {"Handy", "The file has no column “Handy”. Its columns are: Firma, Telefon, Fax, Column 4."},
        {"5", "The file has no column “5”. Its columns are: Firma, Telefon, Fax, Column 4."},
    };
    for (const auto& [column, sentence] : refused) {
        try {
            columns.assign(column, "phone");
            ADD_FAILURE() << column;
        } catch (const UserError& error) {
            EXPECT_EQ(error.message(), sentence);
        }
    }
    EXPECT_THROW(columns.assign("Firma", "shoe size"), UserError);
}

TEST(ClientReaderTest, readsEveryField)
{
    const ReadClient result = read("Kundennummer;Firma;Ansprechpartner;Vorname;Nachname;Typ;E-Mail;Telefon;Website;"
                                   "Straße;Adresszusatz;PLZ;Ort;Bundesland;Land;USt-IdNr.;Steuernummer;Währung;"
                                   "Sprache;Notizen;Bemerkung",
                                   "K-7;Café Übersee GmbH;;Anna;von der Heide;Firma;a@cafe.example;'+49 30 1;"
                                   "cafe.example;\"Hafen 1\r\nTor 2\";Hof;20095;Hamburg;HH;Allemagne;de 136.695.976;"
                                   "=\"0042\";Euro;Deutsch;\"eins\nzwei\";drei");
    const Client& client = result.client;
    EXPECT_EQ(client.number, "K-7");
    EXPECT_EQ(client.kindRaw, 0);
    EXPECT_EQ(client.name, "Café Übersee GmbH");
    EXPECT_EQ(client.firstName + client.lastName, "");
    EXPECT_EQ(result.contactPerson, "Anna von der Heide");
    EXPECT_EQ(client.email, "a@cafe.example");
    EXPECT_EQ(client.phone, "+49 30 1");
    EXPECT_EQ(client.website, "cafe.example");
    EXPECT_EQ(client.addressLine, "Hafen 1\nTor 2\nHof");
    EXPECT_EQ(client.postalCode + " " + client.city + " " + client.state, "20095 Hamburg HH");
    EXPECT_EQ(client.countryCode, "DE");
    EXPECT_EQ(client.vatID, "DE136695976");
    EXPECT_EQ(client.taxID, "0042");
    EXPECT_EQ(client.currencyCode, "EUR");
    EXPECT_EQ(client.languageCode, "de");
    EXPECT_EQ(client.notes, "eins\nzwei\ndrei");
    EXPECT_TRUE(result.warnings.empty());
    EXPECT_FALSE(result.isEmpty);
}

TEST(ClientReaderTest, tellsCompaniesFromPeople)
{
    struct Case
    {
        std::string headings;
        std::string row;
        std::string expected; ///< kind, name, first, last, contact person
    };
    const Case cases[] = {
        {"Name", "Anna Schmidt", "0|Anna Schmidt|||"},
        {"Name;Type", "Anna Maria Schmidt;private", "1||Anna Maria|Schmidt|"},
        {"Name;Type", "\"de la Cruz, María\";persona", "1||María|de la Cruz|"},
        {"Name;Type", "Ludwig van Beethoven;persoon", "1||Ludwig|van Beethoven|"},
        {"Company;Name", "Acme;Anna Schmidt", "0|Acme|||Anna Schmidt"},
        {"Company;Name", "Acme;acme", "0|Acme|||"},
        {"Company;Name", ";Anna Schmidt", "1||Anna|Schmidt|"}, // the list tells companies apart, and this is none
        {"Company;Name", ";Schmidt GmbH", "0|Schmidt GmbH|||"},
        {"First name;Last name", "Anna;Schmidt", "1||Anna|Schmidt|"},
        {"Last name", "Schmidt", "1|||Schmidt|"},
        {"Name;First name;Last name", "Acme;Anna;Schmidt", "0|Acme|||Anna Schmidt"},
        {"Name;First name;Last name", "Dr. Anna M. Schmidt;Anna;Schmidt", "1||Anna|Schmidt|"},
        {"Company;First name;Last name;Type", "Acme;Anna;Schmidt;individual", "1|Acme|Anna|Schmidt|"},
        {"First name;Last name;Type", "Anna;Schmidt;company", "0|Anna Schmidt|||"},
    };
    for (const Case& example : cases) {
        const ReadClient result = read(example.headings, example.row);
        const Client& client = result.client;
        EXPECT_EQ(std::to_string(client.kindRaw) + "|" + client.name + "|" + client.firstName + "|" + client.lastName +
                      "|" + result.contactPerson,
                  example.expected)
            << example.headings << " " << example.row;
    }
}

TEST(ClientReaderTest, warnsOfWhatShouldBeLookedAt)
{
    struct Case
    {
        std::string headings;
        std::string row;
        std::vector<Reason> expected;
        std::string sentence; ///< the first one
    };
    const std::string kept = "; it is kept in the notes.";
    const std::string tooLong = std::string(501, 'x') + ";Ulm";
    const Case cases[] = {
        {"Name;Email", "A;a@b.example", {}, ""},
        {"Name;Email", "A;none of it", {Reason::invalidEmail}, "“none of it” is no email address" + kept},
        {"Name;VAT", "A;DE12", {Reason::invalidVATID}, "“DE12” doesn't have the form of a VAT ID" + kept},
        {"Name;VAT", "A;exempt", {Reason::invalidVATID}, "“exempt” doesn't have the form of a VAT ID" + kept},
        {"Name;Phone",
         "A;4.93012E+11",
         {Reason::shortenedNumber},
         "“4.93012E+11” is what a spreadsheet program left of a longer number."},
        {"Name;Country", "A;Atlantis", {Reason::unknownCountry}, "“Atlantis” is no known country" + kept},
        {"Name;Currency", "A;shells", {Reason::unknownCurrency}, "“shells” is no known currency" + kept},
        {"Name;Language", "A;Polish", {Reason::unknownLanguage}, "Documents can't be written in “Polish”" + kept},
        {"Name;Kind", "A;gold", {Reason::unknownKind}, "“gold” is neither a company nor a person" + kept},
        {"Name;Email", ";a@b.example", {Reason::noName}, "There is no name; the email address stands for it."},
        {"Name;City", tooLong, {Reason::tooLong}, "Only the first 500 characters of the name are kept."},
        {"Name;Country;Email;VAT;Phone", "A;-;n/a;—;?", {}, ""}, // each says that there is nothing
    };
    for (const Case& example : cases) {
        const ReadClient result = read(example.headings, example.row);
        EXPECT_EQ(reasons(result), example.expected) << example.row;
        if (!result.warnings.empty()) {
            EXPECT_EQ(result.warnings.front().message, example.sentence);
        }
    }
    const Client mended = read("Name;Notizen;USt-ID;Land", "A;x;DE12;Atlantis").client;
    EXPECT_EQ(mended.vatID + mended.countryCode, "");
    EXPECT_EQ(mended.notes, "x\nLand: Atlantis\nUSt-ID: DE12"); // to be mended, not to be lost
    EXPECT_EQ(graphemeCount(read("Name", std::string(600, 'x')).client.name), 500U);
    EXPECT_TRUE(read("Name;City;Number", ";Ulm;7").isEmpty);
}

TEST(ClientReaderTest, mendsWhatIsWrittenTogether)
{
    const ReadClient emails = read("Name;Email", "A;\"Anna <a@b.example>; mailto:c@d.example\"");
    EXPECT_EQ(emails.client.email, "a@b.example");
    EXPECT_EQ(emails.client.notes, "Email: c@d.example");
    EXPECT_TRUE(emails.warnings.empty());
    const std::pair<std::string, std::string> codes[] = {
        {"10115 Berlin", "10115|Berlin"},
        {"1012 AB Amsterdam", "1012 AB|Amsterdam"},
        {"D-10115 Berlin", "D-10115|Berlin"},
        {"1012 AB", "1012 AB|"},
        {"SW1A 1AA", "SW1A 1AA|"},
        {"10115", "10115|"},
        {"110 11", "110 11|"},
    };
    for (const auto& [cell, expected] : codes) {
        const Client client = read("Name;PLZ;Ort", "A;" + cell + ";").client;
        EXPECT_EQ(client.postalCode + "|" + client.city, expected);
    }
    // Two columns of one field: the clearer heading counts, the other where that one is empty.
    EXPECT_EQ(read("Name;ID;Kundennummer", "A;4711;K-1").client.number, "K-1");
    EXPECT_EQ(read("Name;Mobile;Phone", "A;1;").client.phone, "1");
    EXPECT_EQ(read("Name;City", "\"A \u00A0\tB\x01\u200B\"; Ulm").client.name, "A B");
}

} // namespace

} // namespace Quillary
