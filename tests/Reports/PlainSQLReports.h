#pragma once

#include "QuillaryCore/Reports/DateRange.h"
#include "QuillaryCore/Store/Connection.h"

#include <string>

namespace Quillary {

/// The reports once more, as whole CSV files, by nothing but SQL over a library's file: totals, rounding, names, orders and
/// texts are written down a second time and share no line with the program. Amounts of two minor digits, tax label
/// "VAT", the zone UTC+05:30. For libraries of a few thousand documents with small amounts.
class PlainSQLReports
{
public:
    /// `connection` may make temporary views.
    explicit PlainSQLReports(Connection& connection);

    std::string tax(const DateRange& range, bool byPayment, const std::string& currency);
    std::string taxDocuments(const DateRange& range, bool byPayment, const std::string& currency);
    std::string aging(Instant today, const std::string& currency);
    std::string clients(const DateRange& range, const std::string& currency);
    std::string invoices(const DateRange& range, const std::string& currency, Instant today);

private:
    void countTax(const DateRange& range, bool byPayment, const std::string& currency);
    std::string lines(const std::string& sql);

    Connection& m_connection;
};

} // namespace Quillary
