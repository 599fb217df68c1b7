#include "QuillaryCore/Reports/ReportData.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/KeyRuns.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryCore/Store/StoreError.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <tuple>

namespace Quillary::ReportData {

namespace {

/// Holds one state of the library for as long as it lives. Only needed beside another program: who may write to a
/// library is the only one who does.
class Snapshot
{
public:
    explicit Snapshot(Store& store)
        : m_connection(store.isReadOnly() && !store.connection().isInTransaction() ? &store.connection() : nullptr)
    {
        if (m_connection != nullptr) {
            m_connection->execute("BEGIN");
        }
    }
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;
    ~Snapshot()
    {
        if (m_connection != nullptr) {
            m_connection->rollback();
        }
    }

private:
    Connection* m_connection;
};

struct PaymentRow
{
    std::int64_t document;
    Instant date;
    std::int64_t amount;
};

std::vector<PaymentRow> payments(Context& context, const DateRange& range)
{
    std::vector<PaymentRow> rows;
    context.query(
        "SELECT document, date, amountMinorUnits FROM Payment WHERE date >= ?1 AND date < ?2",
        [&](const Statement& row) {
            rows.push_back({row.integer(0), row.instant(1).value_or(range.start), row.integer(2)});
        },
        range.start,
        range.end);
    std::ranges::sort(rows, {}, [](const PaymentRow& row) { return std::tuple(row.document, row.date); });
    return rows;
}

} // namespace

std::vector<const Document*>
documents(Context& context, std::span<const DocumentKind> kinds, std::string_view currencyCode)
{
    std::string numbers;
    for (const DocumentKind kind : kinds) {
        numbers += fmt::format("{}{}", numbers.empty() ? "" : ", ", static_cast<int>(kind));
    }
    try {
        return context.fetch<Document>(fmt::format("kindRaw IN ({}) AND currencyCode = ?", numbers), currencyCode);
    } catch (const StoreError&) {
        return {}; // whoever shows the report asks the store for its last failure
    }
}

std::int64_t share(std::int64_t x, std::int64_t y, std::int64_t total)
{
    if (total == 0) {
        return 0;
    }
    const Int128 divisor = total < 0 ? -Int128{total} : Int128{total};
    const Int128 product = Int128{x} * y;
    const Int128 half = divisor / 2;
    const auto result = narrowed<std::int64_t>((product < 0 ? product - half : product + half) / divisor);
    precondition(result.has_value(), "a share of an amount fits 64 bits");
    return result.value_or(0);
}

bool readAtOnce(Context& context, const std::function<void()>& read)
{
    try {
        const Snapshot snapshot(context.store());
        read();
        return true;
    } catch (const StoreError&) {
        return false; // remembered by the store
    }
}

std::vector<PaidDocument> paidDocuments(Context& context, const DateRange& range)
{
    std::vector<PaidDocument> documents;
    for (const PaymentRow& row : payments(context, range)) {
        if (documents.empty() || documents.back().document != row.document) {
            documents.push_back({row.document, 0, row.date});
        }
        PaidDocument& document = documents.back();
        document.amount = checkedAdd(document.amount, row.amount);
        document.lastPayment = row.date;
    }
    return documents;
}

void forEachPaid(Context& context,
                 const std::vector<PaidDocument>& paid,
                 std::string_view sql,
                 std::string_view currencyCode,
                 const std::function<void(const Statement&, const PaidDocument&)>& visit)
{
    constexpr std::int64_t reach = 16; // documents that may lie unread between two with payments
    std::vector<std::int64_t> keys(paid.size());
    std::ranges::transform(paid, keys.begin(), &PaidDocument::document);
    auto next = paid.cbegin();
    const auto match = [&](const Statement& row) {
        const std::int64_t key = row.integer(0);
        next = std::find_if(next, paid.cend(), [key](const PaidDocument& one) { return one.document >= key; });
        if (next != paid.cend() && next->document == key) {
            visit(row, *next);
        }
    };
    forEachRun(keys, reach, [&](std::int64_t first, std::int64_t last) {
        context.query(sql, match, first, last, currencyCode);
    });
}

void forEachOpenInvoice(Context& context,
                        std::string_view currencyCode,
                        const std::function<void(const OpenInvoice&)>& visit)
{
    context.query(
        "SELECT client, dueDate, cachedTotalMinorUnits, cachedLateFeesMinorUnits, cachedPaidMinorUnits FROM Document "
        "WHERE kindRaw = 0 AND statusRaw = 1 AND currencyCode = ?1 ORDER BY client",
        [&](const Statement& row) {
            const OpenInvoice invoice{
                row.integer(0), row.instant(1), openBalance(row.integer(2), row.integer(3), row.integer(4))};
            if (invoice.balance > 0) {
                visit(invoice);
            }
        },
        currencyCode);
}

std::vector<std::string> currencies(Context& context, const DateRange& range)
{
    std::set<std::string, std::less<>> codes;
    context.query(
        "SELECT currencyCode FROM Document WHERE issueDate >= ?1 AND issueDate < ?2 AND kindRaw IN (0, 2)",
        [&](const Statement& row) {
            if (!codes.contains(row.text(0))) {
                codes.emplace(row.text(0));
            }
        },
        range.start,
        range.end);
    return {codes.begin(), codes.end()};
}

std::vector<std::string> openCurrencies(Context& context)
{
    std::vector<std::string> codes;
    context.query(
        "SELECT DISTINCT currencyCode FROM Document WHERE kindRaw = 0 AND statusRaw = 1 ORDER BY currencyCode",
        [&](const Statement& row) { codes.emplace_back(row.text(0)); });
    return codes;
}

std::int64_t openBalance(std::int64_t totalMinorUnits, std::int64_t lateFeesMinorUnits, std::int64_t paidMinorUnits)
{
    return checkedSubtract(checkedAdd(totalMinorUnits, lateFeesMinorUnits), paidMinorUnits);
}

} // namespace Quillary::ReportData
