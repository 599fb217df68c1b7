#include "QuillaryCore/Reports/InvoiceList.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Model/ClientNames.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Reports/ReportData.h"
#include "QuillaryCore/Store/Columns.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>

namespace Quillary {

namespace {

using Row = InvoiceList::Row;

/// Columns 1 to 10 of the query.
void read(const Statement& row, Document& document)
{
    document.uuid = row.uuid(1);
    Column<std::int16_t>::read(row, 2, document.kindRaw);
    Column<std::int16_t>::read(row, 3, document.statusRaw);
    document.number = row.text(4);
    document.issueDate = row.instant(5);
    document.dueDate = row.instant(6);
    document.cachedNetMinorUnits = row.integer(7);
    document.cachedTotalMinorUnits = row.integer(8);
    document.cachedPaidMinorUnits = row.integer(9);
    document.cachedLateFeesMinorUnits = row.integer(10);
}

std::int64_t openNow(const Document& document)
{
    const bool isOpen = kind(document) == DocumentKind::invoice && status(document) == DocumentStatus::sent;
    return isOpen ? std::max<std::int64_t>(0, cachedAmountDueMinorUnits(document)) : 0;
}

Row listed(const Document& document, Instant today, const Calendar& calendar)
{
    Row row;
    row.id = document.uuid;
    row.number = document.number;
    row.kind = kind(document).value_or(DocumentKind::invoice);
    row.date = document.issueDate;
    row.dueDate = document.dueDate;
    row.status = displayStatus(document, today, calendar);
    row.net = document.cachedNetMinorUnits;
    row.gross = document.cachedTotalMinorUnits;
    row.paid = document.cachedPaidMinorUnits;
    row.open = openNow(document);
    return row;
}

} // namespace

std::int64_t InvoiceList::Row::tax() const
{
    return checkedSubtract(gross, net);
}

InvoiceList::Row InvoiceList::total() const
{
    Row sum;
    for (const Row& row : rows) {
        sum.net = checkedAdd(sum.net, row.net);
        sum.gross = checkedAdd(sum.gross, row.gross);
        sum.paid = checkedAdd(sum.paid, row.paid);
        sum.open = checkedAdd(sum.open, row.open);
    }
    return sum;
}

InvoiceList InvoiceList::make(
    Context& context, const DateRange& range, std::string_view currencyCode, Instant today, const Calendar& calendar)
{
    InvoiceList list{std::string(currencyCode), {}};
    const auto readAll = [&] {
        std::vector<Row> rows;
        std::vector<std::int64_t> keys;
        Document document; // only what the list shows
        context.query(
            "SELECT client, uuid, kindRaw, statusRaw, number, issueDate, dueDate, cachedNetMinorUnits, "
            "cachedTotalMinorUnits, cachedPaidMinorUnits, cachedLateFeesMinorUnits FROM Document "
            "WHERE issueDate >= ?1 AND issueDate < ?2 AND kindRaw IN (0, 2) AND currencyCode = ?3 "
            "ORDER BY issueDate, id",
            [&](const Statement& row) {
                read(row, document);
                keys.push_back(row.integer(0));
                rows.push_back(listed(document, today, calendar));
            },
            range.start,
            range.end,
            currencyCode);
        const ClientNames clients(context, keys);
        for (std::size_t index = 0; index < rows.size(); ++index) {
            if (const ClientNames::Client* client = clients.find(keys[index])) {
                rows[index].client = client->name;
            }
        }
        list.rows = std::move(rows);
    };
    std::ignore = ReportData::readAtOnce(context, readAll);
    return list;
}

} // namespace Quillary
