#pragma once

#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Reports/DateRange.h"
#include "QuillaryCore/Store/Statement.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
struct Document;

/// What the reports have in common: which documents they look at, and how they split an amount.
///
/// Reports read one currency and never convert. They read plain columns and make no records of them, so that a report of
/// a large library costs about as much as reading its rows.
namespace ReportData {

/// The documents of these kinds in a currency. Empty when they can't be read; the store remembers the failure.
[[nodiscard]] std::vector<const Document*>
documents(Context& context, std::span<const DocumentKind> kinds, std::string_view currencyCode);

/// x × y ÷ |total|, rounded half away from zero: the part of `y` that belongs to `x` of `total`. 0 for a total of 0. The
/// sign is that of x × y, also for a negative total. A result outside 64 bits stops the program.
[[nodiscard]] std::int64_t share(std::int64_t x, std::int64_t y, std::int64_t total);

/// Runs all reads of one report on one state of the library, also when another program writes to it meanwhile.
/// False: the library could not be read; the store remembers the failure, and what was read so far is no report.
[[nodiscard]] bool readAtOnce(Context& context, const std::function<void()>& read);

/// What came in on one document within a period.
struct PaidDocument
{
    std::int64_t document = 0; ///< its key
    std::int64_t amount = 0;   ///< minor units; a sum outside 64 bits stops the program
    Instant lastPayment;
};

/// The documents with payments in a period, ascending by key; of any kind and currency.
/// Throws: `StoreError`.
[[nodiscard]] std::vector<PaidDocument> paidDocuments(Context& context, const DateRange& range);

/// Visits rows of paid documents, each with what came in on it. `sql` selects documents in the order of their keys, the
/// key first, by three values: the first and last key of a run of paid documents, and the currency. A run may hold others
/// too; they are passed over. Throws: `StoreError`.
void forEachPaid(Context& context,
                 const std::vector<PaidDocument>& paid,
                 std::string_view sql,
                 std::string_view currencyCode,
                 const std::function<void(const Statement& row, const PaidDocument& document)>& visit);

/// An invoice that was sent and on which something is owed.
struct OpenInvoice
{
    std::int64_t client = 0; ///< its key; 0 without one
    std::optional<Instant> dueDate;
    std::int64_t balance = 0; ///< total and late fees less payments; at least 1 minor unit
};

/// Visits the open invoices in a currency, client by client. Reads nothing but those: time grows with what is owed, not
/// with the library. Throws: `StoreError`.
void forEachOpenInvoice(Context& context,
                        std::string_view currencyCode,
                        const std::function<void(const OpenInvoice&)>& visit);

/// The currencies of the invoices and credit notes dated in a period, and of the open invoices; by code.
/// Throws: `StoreError`.
[[nodiscard]] std::vector<std::string> currencies(Context& context, const DateRange& range);
[[nodiscard]] std::vector<std::string> openCurrencies(Context& context);

/// Total and late fees less payments. A result outside 64 bits stops the program.
[[nodiscard]] std::int64_t
openBalance(std::int64_t totalMinorUnits, std::int64_t lateFeesMinorUnits, std::int64_t paidMinorUnits);

} // namespace ReportData

} // namespace Quillary
