#include "QuillaryCore/Reports/ClientReport.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Reports/ClientRows.h"
#include "QuillaryCore/Reports/ReportData.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <tuple>

namespace Quillary {

namespace {

using ReportData::PaidDocument;
using Row = ClientReport::Row;

void merge(Row& row, const Row& other)
{
    row.documents += other.documents;
    row.net = checkedAdd(row.net, other.net);
    row.gross = checkedAdd(row.gross, other.gross);
    row.paid = checkedAdd(row.paid, other.paid);
    row.open = checkedAdd(row.open, other.open);
}

class Reader
{
public:
    Reader(Context& context, const DateRange& range, std::string_view currencyCode)
        : m_context(context)
        , m_range(range)
        , m_currencyCode(currencyCode)
    {
    }

    void addDocuments()
    {
        m_context.query(
            "SELECT client, cachedNetMinorUnits, cachedTotalMinorUnits FROM Document WHERE issueDate >= ?1 "
            "AND issueDate < ?2 AND kindRaw IN (0, 2) AND statusRaw IN (1, 2, 3, 4) AND currencyCode = ?3",
            [this](const Statement& statement) {
                Row& row = m_rows.of(statement.integer(0));
                row.documents += 1;
                row.net = checkedAdd(row.net, statement.integer(1));
                row.gross = checkedAdd(row.gross, statement.integer(2));
            },
            m_range.start,
            m_range.end,
            m_currencyCode);
    }

    void addPayments()
    {
        ReportData::forEachPaid(m_context,
                                ReportData::paidDocuments(m_context, m_range),
                                "SELECT id, client FROM Document WHERE id BETWEEN ?1 AND ?2 AND kindRaw = 0 "
                                "AND statusRaw IN (1, 2, 3, 4) AND currencyCode = ?3 ORDER BY id",
                                m_currencyCode,
                                [this](const Statement& statement, const PaidDocument& paid) {
                                    Row& row = m_rows.of(statement.integer(1));
                                    row.paid = checkedAdd(row.paid, paid.amount);
                                });
    }

    void addOpen()
    {
        ReportData::forEachOpenInvoice(m_context, m_currencyCode, [this](const ReportData::OpenInvoice& invoice) {
            Row& row = m_rows.of(invoice.client);
            row.open = checkedAdd(row.open, invoice.balance);
        });
    }

    [[nodiscard]] std::vector<Row> finished() const
    {
        std::vector<Row> rows = m_rows.named(m_context, merge);
        std::erase_if(rows, [](const Row& row) { return row.documents == 0 && row.paid == 0 && row.open == 0; });
        std::ranges::stable_sort(rows, [](const Row& left, const Row& right) {
            return std::tie(right.gross, left.client) < std::tie(left.gross, right.client);
        });
        return rows;
    }

private:
    Context& m_context;
    DateRange m_range;
    std::string_view m_currencyCode;
    ClientRows<Row> m_rows;
};

} // namespace

ClientReport::Row ClientReport::total() const
{
    Row sum;
    sum.client = "Total";
    for (const Row& row : rows) {
        merge(sum, row);
    }
    return sum;
}

ClientReport ClientReport::make(Context& context, const DateRange& range, std::string_view currencyCode)
{
    ClientReport report{std::string(currencyCode), {}};
    std::ignore = ReportData::readAtOnce(context, [&] {
        Reader reader(context, range, currencyCode);
        reader.addDocuments();
        reader.addPayments();
        reader.addOpen();
        report.rows = reader.finished();
    });
    return report;
}

} // namespace Quillary
