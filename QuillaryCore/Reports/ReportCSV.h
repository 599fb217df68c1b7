#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Tabular/CSVValue.h"

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

struct AgingReport;
struct ClientReport;
struct InvoiceList;
struct TaxReport;

/// A report as `CSVWriter` takes it, and as a terminal or a window can show it.
struct ReportTable
{
    std::vector<std::string> header;
    std::vector<std::vector<CSVValue>> rows;
};

/// The reports as tables. Money columns are titled with the report's currency: "Net (EUR)". `taxLabel` is the business's
/// word for tax, such as "VAT". Dates are the days on which instants fall in `calendar`.
namespace ReportCSV {

/// A line per rate, and the total.
[[nodiscard]] ReportTable tax(const TaxReport& report, std::string_view taxLabel);

/// A line per document that makes up the tax report.
[[nodiscard]] ReportTable taxDocuments(const TaxReport& report, std::string_view taxLabel, const Calendar& calendar);

/// A line per client with a column per bucket, and the total.
[[nodiscard]] ReportTable aging(const AgingReport& report);

/// A line per client, and the total.
[[nodiscard]] ReportTable clients(const ClientReport& report);

/// A line per invoice or credit note, and the total.
[[nodiscard]] ReportTable invoices(const InvoiceList& list, std::string_view taxLabel, const Calendar& calendar);

} // namespace ReportCSV

} // namespace Quillary
