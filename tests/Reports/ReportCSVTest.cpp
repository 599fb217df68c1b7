#include "QuillaryCore/Reports/ReportCSV.h"

#include "QuillaryCore/Reports/AgingReport.h"
#include "QuillaryCore/Reports/ClientReport.h"
#include "QuillaryCore/Reports/InvoiceList.h"
#include "QuillaryCore/Reports/TaxReport.h"
#include "QuillaryCore/Tabular/CSVWriter.h"

#include <gtest/gtest.h>

#include <string>

namespace Quillary {
namespace {

std::string standard(const ReportTable& table)
{
    return CSVWriter::string(table.header, table.rows, CSVFormat::standard());
}

const Calendar kolkata("Asia/Kolkata");

/// 23:00 UTC on New Year's Eve: the next day where the user is.
constexpr Instant lateEvening =
    std::chrono::sys_days(CalendarDate(std::chrono::year(2025) / 12 / 31)) + std::chrono::hours(23);

TEST(ReportCSVTest, writesTheTaxReport)
{
    TaxReport report{"EUR",
                     ReportBasis::invoiced,
                     {{1900, 1900, 100'000, 19'000}, {750, 750, -5, -1}, {-1, std::nullopt, 30, 0}},
                     {}};
    EXPECT_EQ(standard(ReportCSV::tax(report, "VAT")),
              "Tax,Rate %,Net (EUR),VAT (EUR),Gross (EUR)\r\n"
              "VAT,19,1000.00,190.00,1190.00\r\n"
              "VAT,7.5,-0.05,-0.01,-0.06\r\n"
              "No VAT,,0.30,0.00,0.30\r\n"
              "Total,,1000.25,189.99,1190.24\r\n");
    report.rows.clear();
    report.currencyCode = "JPY"; // no minor digits
    const ReportTable empty = ReportCSV::tax(report, "Sales Tax");
    EXPECT_EQ(CSVWriter::string(empty.header, empty.rows, CSVFormat::excel(Locale("de_DE"))),
              "Tax;Rate %;Net (JPY);Sales Tax (JPY);Gross (JPY)\r\n"
              "Total;;0;0;0\r\n");
}

TEST(ReportCSVTest, writesTheDocumentsOfTheTaxReport)
{
    TaxReport report{"EUR",
                     ReportBasis::invoiced,
                     {},
                     {{std::nullopt, "INV-1", DocumentKind::invoice, lateEvening, "Åse, Ltd", 100, 19},
                      {std::nullopt, "-2", DocumentKind::creditNote, std::nullopt, "=A1", -100, -19}}};
    const std::string lines = "INV-1,Invoice,2026-01-01,\"Åse, Ltd\",1.00,0.19,1.19\r\n"
                              "'-2,Credit Note,,'=A1,-1.00,-0.19,-1.19\r\n";
    EXPECT_EQ(standard(ReportCSV::taxDocuments(report, "GST", kolkata)),
              "Number,Type,Date,Client,Net (EUR),GST (EUR),Gross (EUR)\r\n" + lines);
    report.basis = ReportBasis::paid;
    EXPECT_EQ(standard(ReportCSV::taxDocuments(report, "GST", kolkata)),
              "Number,Type,Paid on,Client,Net (EUR),GST (EUR),Gross (EUR)\r\n" + lines);
}

TEST(ReportCSVTest, writesTheAgingReport)
{
    const AgingReport report{
        "EUR", {{std::nullopt, "Acme", {500, 0, 0, 0, 1}, 2}, {std::nullopt, "No client", {0, 1, 2, 3, 0}, 3}}};
    EXPECT_EQ(standard(ReportCSV::aging(report)),
              "Client,Invoices,Not due yet (EUR),1–30 days (EUR),31–60 days (EUR),61–90 days (EUR),Over 90 days (EUR),"
              "Total (EUR)\r\n"
              "Acme,2,5.00,0.00,0.00,0.00,0.01,5.01\r\n"
              "No client,3,0.00,0.01,0.02,0.03,0.00,0.06\r\n"
              "Total,5,5.00,0.01,0.02,0.03,0.01,5.07\r\n");
}

TEST(ReportCSVTest, writesTheClientReport)
{
    const ClientReport report{"USD", {{std::nullopt, "Acme", 2, 100, 119, 50, 69}, {std::nullopt, "B", 1, 1, 1, 1, 0}}};
    EXPECT_EQ(standard(ReportCSV::clients(report)),
              "Client,Documents,Net (USD),Gross (USD),Paid (USD),Open now (USD)\r\n"
              "Acme,2,1.00,1.19,0.50,0.69\r\n"
              "B,1,0.01,0.01,0.01,0.00\r\n"
              "Total,3,1.01,1.20,0.51,0.69\r\n");
}

TEST(ReportCSVTest, writesTheInvoiceList)
{
    using enum DocumentKind;
    const Instant due = lateEvening + std::chrono::days(14);
    InvoiceList list{"EUR", {}};
    list.rows.push_back({{}, "INV-1", invoice, lateEvening, due, "Acme", DisplayStatus::partlyPaid, 100, 119, 19, 105});
    list.rows.push_back({{}, "CN-1", creditNote, lateEvening, {}, "", DisplayStatus::paid, -50, -50, 0, 0});
    EXPECT_EQ(standard(ReportCSV::invoices(list, "VAT", kolkata)),
              "Number,Type,Date,Due date,Client,Status,Net (EUR),VAT (EUR),Gross (EUR),Paid (EUR),Open now (EUR)\r\n"
              "INV-1,Invoice,2026-01-01,2026-01-15,Acme,Partly Paid,1.00,0.19,1.19,0.19,1.05\r\n"
              "CN-1,Credit Note,2026-01-01,,,Refunded,-0.50,0.00,-0.50,0.00,0.00\r\n"
              "Total,,,,,,0.50,0.19,0.69,0.19,1.05\r\n");
}

} // namespace
} // namespace Quillary
