#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Reports/AgingReport.h"
#include "QuillaryCore/Reports/ClientReport.h"
#include "QuillaryCore/Reports/InvoiceList.h"
#include "QuillaryCore/Reports/ReportCSV.h"
#include "QuillaryCore/Reports/ReportData.h"
#include "QuillaryCore/Reports/ReportPeriod.h"
#include "QuillaryCore/Reports/TaxReport.h"
#include "QuillaryCore/Tabular/CSVWriter.h"
#include "tests/Reports/MixedLibrary.h"
#include "tests/Reports/PlainSQLReports.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>

namespace Quillary {
namespace {

struct ReadOnlyLibrary
{
    explicit ReadOnlyLibrary(const std::filesystem::path& folder)
        : store(Store::openReadOnly(Store::Location::directory(folder), DataModel::records(), DataModel::history()))
        , context(store, clock, uuids)
    {
    }

    FixedClock clock{MixedLibrary::today};
    CountingUUIDSource uuids;
    Store store;
    Context context;
};

/// A library of five years that was made once and is only read.
class ReportsAgainstSQLTest : public testing::TestWithParam<std::uint32_t>
{
protected:
    ReportsAgainstSQLTest()
    {
        MixedLibrary(GetParam()).make(folder.path(), 800);
        before = files();
        library = std::make_unique<ReadOnlyLibrary>(folder.path());
        context = &library->context;
    }

    void TearDown() override
    {
        EXPECT_FALSE(library->store.lastFailure());
        library.reset();
        EXPECT_TRUE(files() == before) << "a report changed the library";
    }

    /// Every file of the library with its bytes, but for the memory that readers share.
    [[nodiscard]] std::map<std::string, std::string> files() const
    {
        std::map<std::string, std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            const std::string name = entry.path().filename().string();
            const std::string bytes = folder.read(name);
            if (!name.ends_with("-shm") && !bytes.empty()) {
                found[name] = bytes;
            }
        }
        return found;
    }

    static std::string csv(const ReportTable& table)
    {
        return CSVWriter::string(table.header, table.rows, CSVFormat::standard());
    }

    TempFolder folder;
    Calendar calendar{"Asia/Kolkata"};
    std::map<std::string, std::string> before;
    std::unique_ptr<ReadOnlyLibrary> library;
    Context* context = nullptr;
};

TEST_P(ReportsAgainstSQLTest, agreesToTheByte)
{
    TempFolder copy;
    copy.write("Library.sqlite", folder.read("Library.sqlite"));
    Connection connection(copy / "Library.sqlite", Connection::Access::readWrite);
    PlainSQLReports plain(connection);
    const CalendarDate today = calendar.date(MixedLibrary::today);
    for (const char* words : {"all", "2024", "2026-Q1", "2025-07", "last-12-months", "2030"}) {
        const DateRange range = ReportPeriod::parse(words, today)->range(calendar);
        for (const std::string currency : {"EUR", "USD"}) {
            SCOPED_TRACE(std::string(words) + " " + currency);
            for (const ReportBasis basis : allReportBases) {
                const bool byPayment = basis == ReportBasis::paid;
                const TaxReport tax = TaxReport::make(*context, range, basis, currency);
                EXPECT_EQ(csv(ReportCSV::tax(tax, "VAT")), plain.tax(range, byPayment, currency));
                EXPECT_EQ(csv(ReportCSV::taxDocuments(tax, "VAT", calendar)),
                          plain.taxDocuments(range, byPayment, currency));
            }
            const auto list = InvoiceList::make(*context, range, currency, MixedLibrary::today, calendar);
            if (!list.rows.empty()) { // SQL adds up nothing to nothing
                EXPECT_EQ(csv(ReportCSV::invoices(list, "VAT", calendar)),
                          plain.invoices(range, currency, MixedLibrary::today));
            }
            EXPECT_EQ(csv(ReportCSV::clients(ClientReport::make(*context, range, currency))),
                      plain.clients(range, currency));
            EXPECT_EQ(csv(ReportCSV::aging(AgingReport::make(*context, MixedLibrary::today, calendar, currency))),
                      plain.aging(MixedLibrary::today, currency));
        }
    }
}

TEST_P(ReportsAgainstSQLTest, addsUpTheDocumentsOwnFigures)
{
    const DateRange range =
        ReportPeriod::parse("2023-05..2026-02", calendar.date(MixedLibrary::today))->range(calendar);
    const DocumentKind kinds[] = {DocumentKind::invoice, DocumentKind::creditNote};
    std::int64_t net = 0;
    std::int64_t gross = 0;
    std::int64_t open = 0;
    for (const Document* document : ReportData::documents(*context, kinds, "EUR")) {
        if (document->issueDate && range.contains(*document->issueDate)) {
            const Totals::Result totals = calculateTotals(*context, *document);
            net += totals.net;
            gross += totals.total;
        }
        if (kind(*document) == DocumentKind::invoice && status(*document) == DocumentStatus::sent) {
            open += std::max<std::int64_t>(0, cachedAmountDueMinorUnits(*document));
        }
    }
    const TaxReport tax = TaxReport::make(*context, range, ReportBasis::invoiced, "EUR");
    EXPECT_EQ(tax.total().net, net);
    EXPECT_EQ(tax.total().gross(), gross);
    const InvoiceList list = InvoiceList::make(*context, range, "EUR", MixedLibrary::today, calendar);
    EXPECT_EQ(list.total().net, net);
    EXPECT_EQ(list.total().gross, gross);
    EXPECT_EQ(AgingReport::make(*context, MixedLibrary::today, calendar, "EUR").total(), open);
    EXPECT_EQ(ClientReport::make(*context, range, "EUR").total().open, open);
    for (const ReportBasis basis : allReportBases) {
        const TaxReport report = TaxReport::make(*context, range, basis, "EUR");
        std::int64_t entries = 0;
        for (const TaxReport::Entry& entry : report.entries) {
            entries += entry.gross();
        }
        EXPECT_EQ(entries, report.total().gross()) << rawText(basis);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ReportsAgainstSQLTest, testing::Values(1U, 2U, 3U));

} // namespace
} // namespace Quillary
