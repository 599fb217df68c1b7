#include "tests/Reports/PlainSQLReports.h"

#include <fmt/format.h>

namespace Quillary {

namespace {

// Every integer division below cuts towards zero, as SQLite does it.

/// What a document's figures are made from, and the figures: TaxLine(document, rate, base, tax), Net(document, net).
constexpr const char* figures[] = {
    // A sub-line counts with its top-level line.
    "CREATE TEMP VIEW Priced AS SELECT l.document, CASE WHEN d.taxExempt THEN 0 ELSE l.vatBasisPoints END AS rate, "
    "sign(l.quantityThousandths * l.unitPriceMinorUnits) * "
    "((abs(l.quantityThousandths * l.unitPriceMinorUnits) + 500) / 1000) AS amount, l.unitPriceMinorUnits <> 0 AS "
    "priced "
    "FROM LineItem l JOIN Document d ON d.id = l.document WHERE l.parent = 0 OR l.parent IN "
    "(SELECT t.id FROM LineItem t WHERE t.document = l.document AND t.parent = 0)",
    "CREATE TEMP TABLE LineBase AS SELECT document, rate, sum(amount) AS base, max(priced) AS priced FROM Priced "
    "GROUP BY document, rate",
    "CREATE INDEX temp.LineBase_document ON LineBase (document)",
    "CREATE TEMP VIEW Subtotal AS SELECT d.id AS document, coalesce((SELECT sum(base) FROM LineBase b "
    "WHERE b.document = d.id), 0) AS subtotal FROM Document d",
    "CREATE TEMP VIEW Uncapped AS SELECT s.document, s.subtotal, coalesce((SELECT sum(CASE WHEN c.kindRaw = 1 "
    "THEN c.amountMinorUnits ELSE sign(s.subtotal * c.basisPoints) * ((abs(s.subtotal * c.basisPoints) + 5000) / "
    "10000) "
    "END) FROM Discount c WHERE c.document = s.document), 0) AS discount FROM Subtotal s",
    "CREATE TEMP VIEW Discounted AS SELECT document, subtotal, CASE WHEN subtotal >= 0 AND discount > subtotal "
    "THEN subtotal ELSE discount END AS discount FROM Uncapped",
    // Largest remainder: shares are cut so that every rest has the sign of the discount; units left over go to the
    // largest rests, the lower rate first.
    "CREATE TEMP VIEW Exact AS SELECT b.document, b.rate, b.base, b.priced, t.discount, abs(t.subtotal) AS divisor, "
    "t.discount * b.base * sign(t.subtotal) AS product FROM LineBase b JOIN Discounted t USING (document) "
    "WHERE t.discount <> 0 AND t.subtotal <> 0",
    "CREATE TEMP VIEW Cut AS SELECT *, CASE WHEN discount > 0 THEN (product - (product % divisor + divisor) % divisor) "
    "/ divisor ELSE (product + (divisor - product % divisor) % divisor) / divisor END AS share FROM Exact",
    "CREATE TEMP VIEW Ranked AS SELECT *, discount - sum(share) OVER (PARTITION BY document) AS leftover, "
    "row_number() OVER (PARTITION BY document ORDER BY abs(product - share * divisor) DESC, rate) AS place FROM Cut",
    "CREATE TEMP VIEW Spread AS SELECT document, rate, share + (place <= abs(leftover)) * sign(leftover) AS share "
    "FROM Ranked",
    "CREATE TEMP VIEW Parts AS SELECT document, rate, base AS amount, priced FROM LineBase "
    "UNION ALL SELECT document, rate, -share, 0 FROM Spread "
    "UNION ALL SELECT f.document, CASE WHEN d.taxExempt THEN 0 ELSE f.vatBasisPoints END, f.amountMinorUnits, 0 "
    "FROM Fee f JOIN Document d ON d.id = f.document",
    "CREATE TEMP VIEW Based AS SELECT p.document, p.rate, sum(p.amount) AS base, max(p.priced) AS priced, d.taxExempt "
    "FROM Parts p JOIN Document d ON d.id = p.document GROUP BY p.document, p.rate",
    "CREATE TEMP TABLE TaxLine AS SELECT document, rate, base, CASE WHEN taxExempt THEN 0 ELSE sign(base * rate) * "
    "((abs(base * rate) + 5000) / 10000) END AS tax FROM Based WHERE base <> 0 OR (priced AND NOT taxExempt)",
    "CREATE INDEX temp.TaxLine_document ON TaxLine (document)",
    "CREATE TEMP TABLE Net AS SELECT t.document, t.subtotal - t.discount + coalesce((SELECT sum(f.amountMinorUnits) "
    "FROM Fee f WHERE f.document = t.document), 0) AS net FROM Discounted t",
    "CREATE INDEX temp.Net_document ON Net (document)",
    // Who a client is: persons by their own name first, organisations by theirs.
    "CREATE TEMP VIEW Written AS SELECT id, uuid, kindRaw, trim(name) AS company, trim(trim(firstName) || ' ' || "
    "trim(lastName)) AS person, trim(email) AS email, trim(number) AS number FROM Client",
    "CREATE TEMP VIEW Named AS SELECT id, uuid, coalesce(nullif(CASE kindRaw WHEN 1 THEN person ELSE company END, ''), "
    "nullif(CASE kindRaw WHEN 1 THEN company ELSE person END, ''), nullif(email, ''), number) AS name FROM Written",
};

std::string cell(const std::string& expression)
{
    const std::string guarded =
        fmt::format("(CASE WHEN substr({0}, 1, 1) IN ('=', '+', '-', '@') THEN '''' ELSE '' END || {0})", expression);
    return fmt::format("CASE WHEN instr({0}, ',') + instr({0}, '\"') THEN '\"' || replace({0}, '\"', '\"\"') || '\"' "
                       "ELSE {0} END",
                       guarded);
}

std::string money(const std::string& amount)
{
    return fmt::format("printf('%s%d.%02d', CASE WHEN ({0}) < 0 THEN '-' ELSE '' END, abs({0}) / 100, abs({0}) % 100)",
                       amount);
}

std::string day(const std::string& instant)
{
    return fmt::format("coalesce(date({} / 1000 + 19800, 'unixepoch'), '')", instant);
}

std::string in(const DateRange& range, const std::string& instant)
{
    return fmt::format("({0} >= {1} AND {0} < {2})",
                       instant,
                       range.start.time_since_epoch().count(),
                       range.end.time_since_epoch().count());
}

constexpr const char* typeNames =
    "CASE d.kindRaw WHEN 0 THEN 'Invoice' WHEN 1 THEN 'Quote' WHEN 2 THEN 'Credit Note' ELSE 'Recurring Invoice' END";

} // namespace

PlainSQLReports::PlainSQLReports(Connection& connection)
    : m_connection(connection)
{
    for (const char* statement : figures) {
        m_connection.execute(statement);
    }
}

/// Every row is a line.
std::string PlainSQLReports::lines(const std::string& sql)
{
    std::string text;
    Statement statement(m_connection, sql);
    while (statement.step()) {
        text.append(statement.text(0)).append("\r\n");
    }
    return text;
}

/// Contribution(document, date, rate, net, tax): the rate is NULL where there is none.
void PlainSQLReports::countTax(const DateRange& range, bool byPayment, const std::string& currency)
{
    const std::string wholly =
        byPayment ? fmt::format("SELECT d.id AS document, d.paidAt AS date, 1 AS paid, 1 AS total FROM Document d "
                                "WHERE d.kindRaw = 2 AND d.statusRaw = 2 AND {} AND d.currencyCode = '{}'",
                                in(range, "d.paidAt"),
                                currency)
                  : fmt::format("SELECT d.id AS document, d.issueDate AS date, 1 AS paid, 1 AS total FROM Document d "
                                "WHERE d.kindRaw IN (0, 2) AND {} AND d.currencyCode = '{}'",
                                in(range, "d.issueDate"),
                                currency);
    const std::string partly =
        fmt::format("SELECT d.id, max(p.date), sum(p.amountMinorUnits), d.cachedTotalMinorUnits FROM Document d "
                    "JOIN Payment p ON p.document = d.id WHERE d.kindRaw = 0 AND {} AND d.currencyCode = '{}' "
                    "AND d.cachedTotalMinorUnits <> 0 GROUP BY d.id HAVING sum(p.amountMinorUnits) <> 0",
                    in(range, "p.date"),
                    currency);
    m_connection.execute("DROP TABLE IF EXISTS temp.Contribution");
    const auto share = [](const std::string& amount) {
        return fmt::format("sign(paid * {0}) * ((abs(paid * {0}) + abs(total) / 2) / abs(total))", amount);
    };
    m_connection.execute(fmt::format(
        "CREATE TEMP TABLE Contribution AS WITH Counted AS ({0}{1}) "
        "SELECT c.document, c.date, t.rate, {2} AS net, {3} AS tax FROM Counted c JOIN Document d ON d.id = c.document "
        "JOIN TaxLine t ON t.document = c.document WHERE NOT d.taxExempt "
        "UNION ALL SELECT c.document, c.date, NULL, {4}, 0 FROM Counted c JOIN Document d ON d.id = c.document "
        "JOIN Net n ON n.document = c.document "
        "WHERE d.taxExempt OR NOT EXISTS (SELECT 1 FROM TaxLine t WHERE t.document = c.document)",
        wholly,
        byPayment ? " UNION ALL " + partly : "",
        share("t.base"),
        share("t.tax"),
        share("n.net")));
}

std::string PlainSQLReports::tax(const DateRange& range, bool byPayment, const std::string& currency)
{
    countTax(range, byPayment, currency);
    const std::string sums = money("net") + " || ',' || " + money("tax") + " || ',' || " + money("net + tax");
    return fmt::format("Tax,Rate %,Net ({0}),VAT ({0}),Gross ({0})\r\n", currency) +
           lines("SELECT CASE WHEN rate IS NULL THEN 'No VAT,' WHEN rate % 100 = 0 THEN 'VAT,' || (rate / 100) "
                 "ELSE 'VAT,' || rtrim(printf('%d.%02d', rate / 100, rate % 100), '0') END || ',' || " +
                 sums +
                 " FROM (SELECT rate, sum(net) AS net, sum(tax) AS tax FROM Contribution GROUP BY rate) "
                 "ORDER BY rate IS NULL, rate DESC") +
           lines("SELECT 'Total,,' || " + sums +
                 " FROM (SELECT coalesce(sum(net), 0) AS net, coalesce(sum(tax), 0) AS tax FROM Contribution)");
}

std::string PlainSQLReports::taxDocuments(const DateRange& range, bool byPayment, const std::string& currency)
{
    countTax(range, byPayment, currency);
    return fmt::format(
               "Number,Type,{1},Client,Net ({0}),VAT ({0}),Gross ({0})\r\n", currency, byPayment ? "Paid on" : "Date") +
           lines(fmt::format("SELECT {} || ',' || {} || ',' || {} || ',' || {} || ',' || {} || ',' || {} || ',' || {} "
                             "FROM (SELECT document, date, sum(net) AS net, sum(tax) AS tax FROM Contribution "
                             "GROUP BY document) c JOIN Document d ON d.id = c.document "
                             "LEFT JOIN Named n ON n.id = d.client ORDER BY d.issueDate, d.id",
                             cell("d.number"),
                             typeNames,
                             day("c.date"),
                             cell("coalesce(n.name, '')"),
                             money("net"),
                             money("tax"),
                             money("net + tax")));
}

std::string PlainSQLReports::aging(Instant today, const std::string& currency)
{
    m_connection.execute("DROP TABLE IF EXISTS temp.Owed");
    m_connection.execute(
        fmt::format("CREATE TEMP TABLE Owed AS SELECT CASE WHEN n.id IS NULL THEN 'No client' ELSE n.name END AS "
                    "client, n.id AS key, "
                    "cachedTotalMinorUnits + cachedLateFeesMinorUnits - cachedPaidMinorUnits AS balance, "
                    "coalesce(({} / 1000 + 19800) / 86400 - (dueDate / 1000 + 19800) / 86400, 0) AS days "
                    "FROM Document d LEFT JOIN Named n ON n.id = d.client "
                    "WHERE kindRaw = 0 AND statusRaw = 1 AND currencyCode = '{}' AND balance > 0",
                    today.time_since_epoch().count(),
                    currency));
    std::string columns = cell("client") + " || ',' || count(*)";
    for (const char* bucket :
         {"days < 1", "days BETWEEN 1 AND 30", "days BETWEEN 31 AND 60", "days BETWEEN 61 AND 90", "days > 90", "1"}) {
        columns += " || ',' || " + money(fmt::format("coalesce(sum(balance) FILTER (WHERE {}), 0)", bucket));
    }
    return fmt::format("Client,Invoices,Not due yet ({0}),1–30 days ({0}),31–60 days ({0}),61–90 days ({0}),"
                       "Over 90 days ({0}),Total ({0})\r\n",
                       currency) +
           lines("SELECT " + columns + " FROM Owed GROUP BY key ORDER BY sum(balance) DESC, client") +
           lines("SELECT " + columns + " FROM (SELECT 'Total' AS client, balance, days FROM Owed)");
}

std::string PlainSQLReports::clients(const DateRange& range, const std::string& currency)
{
    const std::string counted =
        fmt::format("kindRaw IN (0, 2) AND statusRaw BETWEEN 1 AND 4 AND currencyCode = '{}'", currency);
    m_connection.execute("DROP TABLE IF EXISTS temp.Figures");
    m_connection.execute(fmt::format(
        "CREATE TEMP TABLE Figures AS WITH Figure AS ("
        "SELECT client AS key, 1 AS documents, cachedNetMinorUnits AS net, cachedTotalMinorUnits AS gross, 0 AS paid, "
        "0 AS open FROM Document WHERE {0} AND {1} "
        "UNION ALL SELECT client, 0, 0, 0, (SELECT coalesce(sum(amountMinorUnits), 0) FROM Payment p "
        "WHERE p.document = d.id AND {2}), CASE WHEN statusRaw = 1 THEN max(0, cachedTotalMinorUnits + "
        "cachedLateFeesMinorUnits - cachedPaidMinorUnits) ELSE 0 END FROM Document d WHERE {0} AND kindRaw = 0) "
        "SELECT coalesce(n.name, 'No client') AS client, sum(documents) AS documents, sum(net) AS net, "
        "sum(gross) AS gross, sum(paid) AS paid, sum(open) AS open FROM Figure f LEFT JOIN Named n ON n.id = f.key "
        "GROUP BY n.id HAVING sum(documents) OR sum(paid) <> 0 OR sum(open) <> 0",
        counted,
        in(range, "issueDate"),
        in(range, "p.date")));
    const auto line = [](const std::string& client, const std::string& from) {
        return "SELECT " + client + " || ',' || documents || ',' || " + money("net") + " || ',' || " + money("gross") +
               " || ',' || " + money("paid") + " || ',' || " + money("open") + " FROM " + from;
    };
    return fmt::format("Client,Documents,Net ({0}),Gross ({0}),Paid ({0}),Open now ({0})\r\n", currency) +
           lines(line(cell("client"), "Figures ORDER BY gross DESC, client")) +
           lines(line("'Total'",
                      "(SELECT sum(documents) AS documents, sum(net) AS net, sum(gross) AS gross, sum(paid) AS paid, "
                      "sum(open) AS open FROM Figures)"));
}

std::string PlainSQLReports::invoices(const DateRange& range, const std::string& currency, Instant today)
{
    const std::string from = fmt::format(
        "Document d WHERE kindRaw IN (0, 2) AND currencyCode = '{}' AND {}", currency, in(range, "issueDate"));
    const std::string balance = "(cachedTotalMinorUnits + cachedLateFeesMinorUnits - cachedPaidMinorUnits)";
    const std::string open = fmt::format("CASE WHEN kindRaw = 0 AND statusRaw = 1 THEN max(0, {}) ELSE 0 END", balance);
    const std::int64_t dayLength = 86'400'000;
    const std::int64_t shift = 19'800'000;
    const std::int64_t startOfToday = (today.time_since_epoch().count() + shift) / dayLength * dayLength - shift;
    const std::string status =
        fmt::format("CASE statusRaw WHEN 2 THEN iif(kindRaw = 2, 'Refunded', 'Paid') WHEN 3 THEN 'Accepted' "
                    "WHEN 4 THEN 'Declined' WHEN 1 THEN CASE WHEN kindRaw = 0 AND dueDate < {} THEN 'Overdue' "
                    "WHEN kindRaw = 0 AND cachedPaidMinorUnits > 0 AND {} > 0 THEN 'Partly Paid' ELSE 'Sent' END "
                    "ELSE 'Draft' END",
                    startOfToday,
                    balance);
    const auto sums = [&](const std::string& function) {
        const auto sum = [&](const std::string& amount) {
            return " || ',' || " + money(fmt::format("{}({})", function, amount));
        };
        return sum("cachedNetMinorUnits") + sum("cachedTotalMinorUnits - cachedNetMinorUnits") +
               sum("cachedTotalMinorUnits") + sum("cachedPaidMinorUnits") + sum(open);
    };
    return fmt::format("Number,Type,Date,Due date,Client,Status,Net ({0}),VAT ({0}),Gross ({0}),Paid ({0}),"
                       "Open now ({0})\r\n",
                       currency) +
           lines("SELECT " + cell("d.number") + " || ',' || " + typeNames + " || ',' || " + day("issueDate") +
                 " || ',' || " + day("dueDate") + " || ',' || " +
                 cell("coalesce((SELECT name FROM Named n WHERE n.id = d.client), '')") + " || ',' || " + status +
                 sums("") + " FROM " + from + " ORDER BY issueDate, id") +
           lines("SELECT 'Total,,,,,'" + sums("sum") + " FROM " + from);
}

} // namespace Quillary
