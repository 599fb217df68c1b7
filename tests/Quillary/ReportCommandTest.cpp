#include "Quillary/Commands/ReportText.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "tests/Quillary/RunProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <tuple>

namespace Quillary {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A user whose library has two sent invoices of 2025 and one in dollars, all long overdue.
class ReportCommandTest : public testing::Test
{
protected:
    ReportCommandTest()
    {
        store = std::make_unique<Store>(
            Store::Location::directory(library), DataModel::records(), DataModel::history(), clock, uuids);
        Context context(*store, clock, uuids);
        context.insert<Business>().currencyCode = "EUR";
        auto& client = context.insert<Client>();
        client.name = "=Åse & Söhne";
        insert(context, "INV-1", 100'000, 1900).client = client.ref;
        insert(context, "INV-2", 5000, 700);
        insert(context, "INV-3", 5000, 700).currencyCode = "USD";
        context.save();
        store->connection().checkpoint();
    }

    Document& insert(Context& context, const std::string& number, std::int64_t price, std::int32_t rate)
    {
        auto& document = context.insert<Document>();
        document.number = number;
        document.statusRaw = 1;
        document.currencyCode = "EUR";
        document.issueDate = clock.now();
        document.dueDate = clock.now() + std::chrono::days(14);
        auto& line = context.insert<LineItem>();
        line.document = document.ref;
        line.quantityThousandths = 1000;
        line.unitPriceMinorUnits = price;
        line.vatBasisPoints = rate;
        updateCachedTotals(context, document);
        return document;
    }

    [[nodiscard]] Answer report(const std::string& arguments) const { return quillary(folder, "report " + arguments); }

    TempFolder folder;
    std::filesystem::path library = folder / ".local/share/quillary";
    FixedClock clock{std::chrono::sys_days(CalendarDate(std::chrono::year(2025) / 3 / 7)) + std::chrono::hours(12)};
    CountingUUIDSource uuids;
    std::unique_ptr<Store> store; ///< open all the while, as in a running Quillary
};

TEST_F(ReportCommandTest, alignsTablesInTheUsersLocale)
{
    const std::string before = folder.read(".local/share/quillary/Library.sqlite");
    const Answer tax = report("tax --period 2025");
    EXPECT_EQ(tax.status, 0);
    EXPECT_EQ(tax.output,
              "Tax report by invoice date, 01.01.2025 – 31.12.2025, EUR\n"
              "\n"
              "Tax    Rate %         Net       VAT       Gross\n"
              "───────────────────────────────────────────────\n"
              "VAT        19  1.000,00\u00a0€  190,00\u00a0€  1.190,00\u00a0€\n"
              "VAT         7     50,00\u00a0€    3,50\u00a0€     53,50\u00a0€\n"
              "───────────────────────────────────────────────\n"
              "Total          1.050,00\u00a0€  193,50\u00a0€  1.243,50\u00a0€\n"
              "\n"
              "Not in this report: amounts in USD (--currency).\n");
    const Answer aging = report("aging");
    EXPECT_EQ(aging.status, 0);
    EXPECT_THAT(aging.output, HasSubstr("\n=Åse & Söhne         1       0,00\u00a0€"));
    EXPECT_THAT(aging.output,
                HasSubstr("\nOver 90 days  1.243,50\u00a0€  100  ████████████████████████████████████████\n"));
    EXPECT_THAT(report("clients --from 2025-03-07 --to 2025-03-07").output, HasSubstr("No client"));
    EXPECT_THAT(report("invoices --from 2025-03-08").output, Not(HasSubstr("INV-")));
    EXPECT_THAT(report("invoices --period 2025-Q1 --currency usd").output, HasSubstr("INV-3   Invoice  07.03.2025"));
    EXPECT_THAT(report("tax-documents --basis paid --period all").output, HasSubstr("Paid on"));
    EXPECT_TRUE(folder.read(".local/share/quillary/Library.sqlite") == before);
    EXPECT_EQ(std::filesystem::file_size(library / "Library.sqlite-wal"), 0U);
}

TEST_F(ReportCommandTest, writesFilesBesideThoseThatAreThere)
{
    EXPECT_THAT(report("tax-documents --period 2025 -o documents.csv").output, HasSubstr("Saved ./documents.csv\n"));
    const std::string first = folder.read("documents.csv");
    EXPECT_EQ(first,
              "\xEF\xBB\xBFNumber,Type,Date,Client,Net (EUR),VAT (EUR),Gross (EUR)\r\n"
              "INV-1,Invoice,2025-03-07,'=Åse & Söhne,1000.00,190.00,1190.00\r\n"
              "INV-2,Invoice,2025-03-07,,50.00,3.50,53.50\r\n");
    EXPECT_EQ(report("tax --period 2025 --format excel -o documents.csv").status, 0);
    EXPECT_EQ(folder.read("documents.csv"), first);
    EXPECT_THAT(folder.read("documents (2).csv"), HasSubstr("Total;;1050,00;193,50;1243,50\r\n"));
    std::filesystem::create_directory(folder / "out");
    EXPECT_EQ(report("aging -o out").status, 0);
    EXPECT_EQ(report("clients --period 2025 -o out/").status, 0);
    EXPECT_THAT(folder.read("out/Aging Report.csv"),
                StartsWith("\xEF\xBB\xBF"
                           "Client,Invoices,Not due yet (EUR)"));
    EXPECT_NE(folder.read("out/Client Report 2025-01-01 to 2025-12-31.csv"), "");
    EXPECT_THAT(report("aging -o -").output,
                HasSubstr("\xEF\xBB\xBF"
                          "Client,"));
    const auto files = std::distance(std::filesystem::directory_iterator(folder.path()), {});
    EXPECT_EQ(report("aging -o nowhere/report.csv").status, 1);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), files);
}

TEST_F(ReportCommandTest, answersMistakesWithASentenceAndAStatus)
{
    const std::tuple<std::string, int, std::string> cases[] = {
        {"tax --period soon",
         1,
         "There is no period “soon”. Write for example this-quarter, last-month, 2026, 2026-Q3, 2026-07, "
         "last-12-months, year-to-date or all.\n"},
        {"tax --from 7.3.2025", 1, "--from must be a day written as YYYY-MM-DD, not “7.3.2025”.\n"},
        {"invoices --from 2025-03-08 --to 2025-03-07", 1, "--from 2025-03-08 is after --to 2025-03-07.\n"},
        {"aging --currency EURO", 1, "--currency must be an ISO currency code such as EUR, not EURO.\n"},
        {"aging --period 2025", 2, ""},
        {"clients --basis paid", 2, ""},
        {"tax --basis both", 2, ""},
        {"tax --format excel", 2, ""},
        {"tax --period 2025 --from 2025-01-01", 2, ""},
        {"", 2, ""},
    };
    for (const auto& [arguments, status, sentence] : cases) {
        const Answer answer = report(arguments);
        EXPECT_EQ(answer.status, status) << arguments << "\n" << answer.output;
        EXPECT_THAT(answer.output, HasSubstr(sentence)) << arguments;
    }
    const Answer none = quillary(folder, "--library nowhere report aging");
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.output, "There is no library in “nowhere”.\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "nowhere"));
}

TEST_F(ReportCommandTest, neverShowsZerosForWhatItCouldNotRead)
{
    const std::int64_t page =
        store->connection().integer("SELECT rootpage FROM sqlite_master WHERE name = 'LineItem'").value();
    const std::int64_t size = store->connection().integer("PRAGMA page_size").value();
    store.reset();
    {
        std::fstream file(library / "Library.sqlite", std::ios::in | std::ios::out | std::ios::binary);
        file.seekp((page - 1) * size);
        file << std::string(static_cast<std::size_t>(size), '\x7F');
    }
    for (const std::string arguments : {"tax --period 2025", "tax --period 2025 -o tax.csv"}) {
        const Answer answer = report(arguments);
        EXPECT_EQ(answer.status, 1) << answer.output;
        EXPECT_THAT(answer.output, Not(HasSubstr("Total")));
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "tax.csv"));
    EXPECT_EQ(report("aging").status, 0) << "what can be read is shown";
}

TEST(ReportTextTest, drawsBarsInEighths)
{
    EXPECT_EQ(ReportText::bar(1, 2, 3), "█▌");
    EXPECT_EQ(ReportText::bar(2, 2, 3), "███");
    EXPECT_EQ(ReportText::bar(1, 1'000'000, 40), "▏") << "something is never nothing";
    EXPECT_EQ(ReportText::bar(0, 5, 40), "");
    EXPECT_EQ(ReportText::bar(0, 0, 40), "");
}

} // namespace
} // namespace Quillary
