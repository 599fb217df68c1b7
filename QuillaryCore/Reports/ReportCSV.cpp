#include "QuillaryCore/Reports/ReportCSV.h"

#include "QuillaryCore/Reports/AgingReport.h"
#include "QuillaryCore/Reports/ClientReport.h"
#include "QuillaryCore/Reports/InvoiceList.h"
#include "QuillaryCore/Reports/TaxReport.h"

#include <fmt/format.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <utility>

namespace Quillary::ReportCSV {

namespace {

using Cells = std::vector<CSVValue>;

CSVValue text(std::string_view content)
{
    return CSVValue::text(std::string(content));
}

CSVValue date(std::optional<Instant> instant, const Calendar& calendar)
{
    return CSVValue::date(instant ? CSVValue::Date(calendar.date(*instant)) : std::nullopt);
}

/// "Net (EUR)"
std::string moneyTitle(std::string_view title, std::string_view currencyCode)
{
    return fmt::format("{} ({})", title, currencyCode);
}

/// Rows of one currency, whose code is checked once.
class Table
{
public:
    Table(std::string_view currencyCode, std::vector<std::string> header)
        : m_zero(Money::zero(currencyCode))
    {
        m_table.header = std::move(header);
    }

    void addMoneyTitles(std::initializer_list<std::string_view> titles)
    {
        for (const std::string_view title : titles) {
            m_table.header.push_back(moneyTitle(title, m_zero.currencyCode()));
        }
    }

    Cells& addRow()
    {
        Cells& cells = m_table.rows.emplace_back();
        cells.reserve(m_table.header.size());
        return cells;
    }

    void reserve(std::size_t rows) { m_table.rows.reserve(rows); }

    void addMoney(Cells& cells, std::initializer_list<std::int64_t> amounts) const
    {
        for (const std::int64_t amount : amounts) {
            cells.push_back(CSVValue::money({amount, m_zero.currencyCode()}));
        }
    }

    [[nodiscard]] ReportTable finished() { return std::move(m_table); }

private:
    ReportTable m_table;
    Money m_zero;
};

void addAging(const Table& table, Cells& cells, const AgingReport::Amounts& amounts, std::int64_t total)
{
    for (const std::int64_t amount : amounts) {
        table.addMoney(cells, {amount});
    }
    table.addMoney(cells, {total});
}

void addClient(Table& table, const ClientReport::Row& row)
{
    Cells& cells = table.addRow();
    cells.push_back(text(row.client));
    cells.push_back(CSVValue::number(row.documents));
    table.addMoney(cells, {row.net, row.gross, row.paid, row.open});
}

} // namespace

ReportTable tax(const TaxReport& report, std::string_view taxLabel)
{
    Table table(report.currencyCode, {"Tax", "Rate %"});
    table.addMoneyTitles({"Net", taxLabel, "Gross"});
    for (const TaxReport::Row& row : report.rows) {
        Cells& cells = table.addRow();
        cells.push_back(row.basisPoints ? text(taxLabel) : text(fmt::format("No {}", taxLabel)));
        cells.push_back(row.basisPoints ? CSVValue::percent(*row.basisPoints) : text(""));
        table.addMoney(cells, {row.net, row.tax, row.gross()});
    }
    const TaxReport::Row total = report.total();
    Cells& cells = table.addRow();
    cells.push_back(text("Total"));
    cells.push_back(text(""));
    table.addMoney(cells, {total.net, total.tax, total.gross()});
    return table.finished();
}

ReportTable taxDocuments(const TaxReport& report, std::string_view taxLabel, const Calendar& calendar)
{
    Table table(report.currencyCode,
                {"Number", "Type", report.basis == ReportBasis::paid ? "Paid on" : "Date", "Client"});
    table.addMoneyTitles({"Net", taxLabel, "Gross"});
    table.reserve(report.entries.size());
    for (const TaxReport::Entry& entry : report.entries) {
        Cells& cells = table.addRow();
        cells.push_back(text(entry.number));
        cells.push_back(text(title(entry.kind)));
        cells.push_back(date(entry.date, calendar));
        cells.push_back(text(entry.client));
        table.addMoney(cells, {entry.net, entry.tax, entry.gross()});
    }
    return table.finished();
}

ReportTable aging(const AgingReport& report)
{
    Table table(report.currencyCode, {"Client", "Invoices"});
    for (const AgingReport::Bucket bucket : AgingReport::allBuckets) {
        table.addMoneyTitles({AgingReport::title(bucket)});
    }
    table.addMoneyTitles({"Total"});
    std::int64_t invoices = 0;
    for (const AgingReport::Row& row : report.rows) {
        Cells& cells = table.addRow();
        cells.push_back(text(row.client));
        cells.push_back(CSVValue::number(row.invoices));
        addAging(table, cells, row.amounts, row.total());
        invoices += row.invoices;
    }
    Cells& cells = table.addRow();
    cells.push_back(text("Total"));
    cells.push_back(CSVValue::number(invoices));
    addAging(table, cells, report.totals(), report.total());
    return table.finished();
}

ReportTable clients(const ClientReport& report)
{
    Table table(report.currencyCode, {"Client", "Documents"});
    table.addMoneyTitles({"Net", "Gross", "Paid", "Open now"});
    for (const ClientReport::Row& row : report.rows) {
        addClient(table, row);
    }
    addClient(table, report.total());
    return table.finished();
}

ReportTable invoices(const InvoiceList& list, std::string_view taxLabel, const Calendar& calendar)
{
    Table table(list.currencyCode, {"Number", "Type", "Date", "Due date", "Client", "Status"});
    table.addMoneyTitles({"Net", taxLabel, "Gross", "Paid", "Open now"});
    table.reserve(list.rows.size() + 1);
    for (const InvoiceList::Row& row : list.rows) {
        Cells& cells = table.addRow();
        cells.push_back(text(row.number));
        cells.push_back(text(title(row.kind)));
        cells.push_back(date(row.date, calendar));
        cells.push_back(date(row.dueDate, calendar));
        cells.push_back(text(row.client));
        cells.push_back(text(title(row.status, row.kind)));
        table.addMoney(cells, {row.net, row.tax(), row.gross, row.paid, row.open});
    }
    const InvoiceList::Row total = list.total();
    Cells& cells = table.addRow();
    cells.push_back(text("Total"));
    cells.resize(6, text(""));
    table.addMoney(cells, {total.net, total.tax(), total.gross, total.paid, total.open});
    return table.finished();
}

} // namespace Quillary::ReportCSV
