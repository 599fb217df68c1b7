#include "QuillaryCore/Store/LibraryLock.h"
#include "tests/Quillary/RunProgram.h"
#include "tests/Support/Fixtures.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

namespace Quillary {
namespace {

/// How often a text stands in another.
int count(const std::string& text, const std::string& part)
{
    int found = 0;
    for (std::size_t place = text.find(part); place != std::string::npos; place = text.find(part, place + 1)) {
        ++found;
    }
    return found;
}

TEST(ImportCommandTest, showsAndImportsAList)
{
    TempFolder folder;
    folder.write("clients.csv",
                 "Kunden-Nr.;Firma;Ort;Rabatt;E-Mail\r\n"
                 "K-1;M\xFCller GmbH;K\xF6ln;5;info@mueller.example\r\n"
                 ";Beta;Ulm;;nobody\r\n"
                 "k-1;Other;;;\r\n"
                 ";;Ulm;;\r\n");
    const std::string expected = "clients.csv (semicolons · Windows Latin 1): Kunden-Nr. → number, Firma → company, "
                                 "Ort → city, E-Mail → email; ignored: Rabatt\n"
                                 "\n"
                                 "Row  Status     Number  Client       City  Remarks\n";
    const Answer shown = quillary(folder, "import clients clients.csv --dry-run");
    EXPECT_EQ(shown.status, 0) << shown.output;
    EXPECT_TRUE(shown.output.starts_with(expected)) << shown.output;
    for (const std::string line : {
             "  2  new        K-1     Müller GmbH  Köln\n",
             "  3  new                Beta         Ulm   “nobody” is no email address; it is kept in the notes.\n",
             "  4  duplicate  k-1     Other              Has the same number as “Müller GmbH” in row 2.\n",
             "  5  empty                           Ulm\n",
             "\nWould import 2 clients, left out 1 duplicate and 1 row without a name.\n",
         }) {
        EXPECT_NE(shown.output.find(line), std::string::npos) << line << shown.output;
    }
    EXPECT_FALSE(std::filesystem::exists(folder / ".local")) << "a dry run makes no library";

    const Answer done = quillary(folder, "import clients clients.csv --map Rabatt=notes");
    EXPECT_EQ(done.status, 0) << done.output;
    EXPECT_TRUE(done.output.ends_with("\nImported 2 clients, left out 1 duplicate and 1 row without a name.\n"))
        << done.output;
    EXPECT_EQ(count(done.output, "\n  2  new"), 0) << "what went well needs no line" << done.output;
    const Answer found = quillary(folder, "call --output json find_clients");
    EXPECT_EQ(count(found.output, "\"id\""), 2) << found.output;
    EXPECT_NE(found.output.find("Müller GmbH"), std::string::npos) << found.output;

    const Answer again = quillary(folder, "import clients clients.csv");
    EXPECT_TRUE(again.output.ends_with("\nImported 0 clients, left out 3 duplicates and 1 row without a name.\n"))
        << again.output;
}

TEST(ImportCommandTest, looksBesideWhoeverHoldsTheLibrary)
{
    TempFolder folder;
    folder.write("clients.csv", "Name\nAcme\n");
    EXPECT_EQ(quillary(folder, "--library lib call create_client --name ACME").status, 0);
    const LibraryLock lock(folder / "lib");
    const Answer shown = quillary(folder, "--library lib import clients clients.csv --dry-run");
    EXPECT_EQ(shown.status, 0) << shown.output;
    EXPECT_NE(shown.output.find("Has the same name as “ACME” in the library."), std::string::npos) << shown.output;
    const Answer refused = quillary(folder, "--library lib import clients clients.csv");
    EXPECT_EQ(refused.status, 1) << refused.output;
}

TEST(ImportCommandTest, answersMistakesWithOneSentenceAndAStatus)
{
    TempFolder folder;
    folder.write("good.csv", "Firma,Ort\nAcme,Ulm\n");
    folder.write("blank.csv", "\xEF\xBB\xBF\n;;\n");
    folder.write("picture.csv", std::string("\x89PNG\0\0", 6));
    folder.write("numbers.csv", "1,2\n3,4\n");
    struct Case
    {
        std::string arguments;
        int status;
        std::string sentence;
    };
    const Case cases[] = {
        {"clients blank.csv", 1, "The file has no rows.\n"},
        {"clients picture.csv",
         1,
         "The file isn't readable text. Save it as CSV from your spreadsheet app and try again.\n"},
        {"clients none.csv", 1, "Couldn't open none.csv: No such file or directory.\n"},
        {"clients numbers.csv",
         1,
         "No column of the file is known to name the clients. Say which one does, such as --map \"Column 1=name\". "
         "What "
         "is known: Column 1 → number; ignored: Column 2.\n"},
        {"clients good.csv --map Firma",
         1,
         "--map takes a column and a field, such as --map Firma=company, not “Firma”.\n"},
        {"clients good.csv --map Kunde=name", 1, "The file has no column “Kunde”. Its columns are: Firma, Ort.\n"},
        {"clients good.csv --map Firma=size",
         1,
         "A client has no field “size”. The fields are: ignore, number, company, name, firstName, lastName, kind, "
         "email, "
         "phone, website, street, street2, postalCode, city, state, country, vatID, taxID, currency, language, "
         "notes.\n"},
        {"clients", 2, ""},
        {"suppliers good.csv", 2, ""},
    };
    for (const Case& example : cases) {
        const Answer answer = quillary(folder, "import " + example.arguments);
        EXPECT_EQ(answer.status, example.status) << example.arguments << "\n" << answer.output;
        if (!example.sentence.empty()) {
            EXPECT_EQ(answer.output, example.sentence) << example.arguments;
        }
    }
    EXPECT_FALSE(std::filesystem::exists(folder / ".local"));
}

TEST(ImportCommandTest, readsTheSameListInEveryEncoding)
{
    const std::pair<std::string, std::string> files[] = {
        {"utf8.csv", "commas · UTF-8"},
        {"utf8-mark.csv", "semicolons · UTF-8"},
        {"utf16-little.csv", "tabs · UTF-16"},
        {"utf16-big.csv", "tabs · UTF-16"},
        {"windows-1252.csv", "semicolons · Windows Latin 1"},
        {"mac-roman.csv", "vertical bars · Mac Roman"},
    };
    std::string first;
    for (const auto& [name, how] : files) {
        const TempFolder folder;
        const Answer shown = quillary(folder, "import clients '" + fixture("clients/" + name).string() + "' --dry-run");
        EXPECT_EQ(shown.status, 0) << shown.output;
        EXPECT_NE(shown.output.find("(" + how + ")"), std::string::npos) << name << shown.output;
        const std::string rows = shown.output.substr(shown.output.find("\n\n"));
        first = first.empty() ? rows : first;
        EXPECT_EQ(rows, first) << name;
    }
    EXPECT_NE(first.find("Would import 3 clients, left out 1 duplicate.\n"), std::string::npos) << first;
}

} // namespace
} // namespace Quillary
