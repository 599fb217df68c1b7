#pragma once

#include "QuillaryCore/Foundation/Instant.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
struct Discount;
struct Document;
struct Fee;
struct LineItem;
struct Payment;
struct Reminder;

/// The top-level lines (those without a parent), ascending by `sortIndex`. Here and below, equal indexes keep the order
/// in which the records were made.
[[nodiscard]] std::vector<const LineItem*> sortedItems(Context& context, const Document& document);

/// The sub-lines of a line, ascending by `sortIndex`.
[[nodiscard]] std::vector<const LineItem*> sortedChildren(Context& context, const LineItem& line);

/// Every line in print order: each top-level line followed at once by its sub-lines.
[[nodiscard]] std::vector<const LineItem*> linesInOrder(Context& context, const Document& document);

[[nodiscard]] std::vector<const Discount*> sortedDiscounts(Context& context, const Document& document);
[[nodiscard]] std::vector<const Fee*> sortedFees(Context& context, const Document& document);

/// By date, then by when they were entered; those without a date first.
[[nodiscard]] std::vector<const Payment*> sortedPayments(Context& context, const Document& document);
[[nodiscard]] std::vector<const Reminder*> sortedReminders(Context& context, const Document& document);

/// The documents made from this one (the credit notes of an invoice, the invoice made from a quote, the invoices of a
/// template), oldest first. None for a document without `uuid`.
[[nodiscard]] std::vector<const Document*> derivedDocuments(Context& context, const Document& document);

/// True for invoices, and for a document whose kind can't be read.
[[nodiscard]] bool acceptsPayments(const Document& document);

/// True for invoices and credit notes (and an unreadable kind) with a readable status other than draft.
[[nodiscard]] bool countsAsRevenue(const Document& document);

/// True when money came in and some is still owed, by the stored amounts.
[[nodiscard]] bool isPartlyPaid(const Document& document);

/// What is still owed by the stored amounts: total plus late fees less payments. Negative when overpaid.
/// Unit: minor units of the document's currency.
[[nodiscard]] std::int64_t cachedAmountDueMinorUnits(const Document& document);

/// The tags of a document. `Document::tags` holds them separated by commas; a tag contains none.
[[nodiscard]] std::vector<std::string> tagList(const Document& document);
void setTagList(Document& document, std::span<const std::string> tags);

/// Tags without white space around them, without empty ones and repeats, in the order given. Tags that a search can't
/// tell apart ("Travel" and "travel") are one; the first spelling stays. A comma inside a tag divides it.
[[nodiscard]] std::vector<std::string> cleanTags(std::span<const std::string> tags);

} // namespace Quillary
