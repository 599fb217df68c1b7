#pragma once

#include "Quillary/Commands/ReportText.h"
#include "QuillaryCore/Reports/ReportCSV.h"

#include <filesystem>
#include <string>
#include <vector>

namespace Quillary {

class AppEnvironment;

/// What was asked for, as it was typed.
struct ReportRequest
{
    enum class Kind { tax, taxDocuments, aging, clients, invoices };

    Kind kind = Kind::tax;
    std::string period;
    std::string from;
    std::string to;
    std::string basis = "invoiced"; ///< one of `ReportBasis`
    std::string currency;
};

/// A finished report with the words around it.
struct FinishedReport
{
    std::string title;    ///< "Tax report by invoice date, 1 Jul 2026 – 30 Sep 2026, EUR"
    std::string fileName; ///< without extension
    ReportTable table;
    ReportText::LastRow lastRow = ReportText::LastRow::isTotal;
    std::string bars = {};
    std::string currencyCode = {};
    std::vector<std::string> otherCurrencies = {}; ///< in which there is something to report too

    /// Reads the library as it is saved, and lets go of it: whoever reads what is printed may take long over it.
    /// Throws: `UserError`; a report that could not be read is none.
    [[nodiscard]] static FinishedReport
    make(const std::filesystem::path& library, const ReportRequest& request, AppEnvironment& environment);
};

} // namespace Quillary
