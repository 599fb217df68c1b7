#include "QuillaryCore/Model/DocumentContents.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace Quillary {

namespace {

constexpr char tagSeparator = ',';

// Keys grow in the order in which records were made, so they decide between equals.

template <class Item>
std::vector<const Item*> sortedByIndex(std::vector<const Item*> items)
{
    std::ranges::sort(items, {}, [](const Item* item) { return std::tuple(item->sortIndex, item->ref); });
    return items;
}

template <class Event>
std::vector<const Event*> sortedByDate(std::vector<const Event*> events)
{
    std::ranges::sort(
        events, {}, [](const Event* event) { return std::tuple(event->date, event->createdAt, event->ref); });
    return events;
}

bool isInvoice(const Document& document)
{
    return kind(document).value_or(DocumentKind::invoice) == DocumentKind::invoice;
}

} // namespace

std::vector<const LineItem*> sortedItems(Context& context, const Document& document)
{
    std::vector<const LineItem*> lines = context.related<&LineItem::document>(document);
    std::erase_if(lines, [](const LineItem* line) { return static_cast<bool>(line->parent); });
    return sortedByIndex(std::move(lines));
}

std::vector<const LineItem*> sortedChildren(Context& context, const LineItem& line)
{
    return sortedByIndex(context.related<&LineItem::parent>(line));
}

std::vector<const LineItem*> linesInOrder(Context& context, const Document& document)
{
    // A document's lines are at hand together, so its sub-lines are sorted here instead of asked for line by line.
    std::vector<const LineItem*> lines = sortedByIndex(context.related<&LineItem::document>(document));
    const auto isSubLine = [](const LineItem* line) {
        return static_cast<bool>(line->parent);
    };
    if (std::ranges::none_of(lines, isSubLine)) {
        return lines;
    }
    std::vector<const LineItem*> subLines;
    std::ranges::copy_if(lines, std::back_inserter(subLines), isSubLine);
    std::ranges::sort(
        subLines, {}, [](const LineItem* line) { return std::tuple(line->parent, line->sortIndex, line->ref); });
    std::vector<const LineItem*> ordered;
    ordered.reserve(lines.size());
    for (const LineItem* line : lines) {
        if (!isSubLine(line)) {
            ordered.push_back(line);
            std::ranges::copy(std::ranges::equal_range(subLines, line->ref, {}, &LineItem::parent),
                              std::back_inserter(ordered));
        }
    }
    return ordered;
}

std::vector<const Discount*> sortedDiscounts(Context& context, const Document& document)
{
    return sortedByIndex(context.related<&Discount::document>(document));
}

std::vector<const Fee*> sortedFees(Context& context, const Document& document)
{
    return sortedByIndex(context.related<&Fee::document>(document));
}

std::vector<const Payment*> sortedPayments(Context& context, const Document& document)
{
    return sortedByDate(context.related<&Payment::document>(document));
}

std::vector<const Reminder*> sortedReminders(Context& context, const Document& document)
{
    return sortedByDate(context.related<&Reminder::document>(document));
}

std::vector<const Document*> derivedDocuments(Context& context, const Document& document)
{
    if (!document.uuid) {
        return {};
    }
    return context.fetch<Document>("sourceDocumentID = ? ORDER BY createdAt, id", *document.uuid);
}

bool acceptsPayments(const Document& document)
{
    return isInvoice(document);
}

bool countsAsRevenue(const Document& document)
{
    const bool isRevenue = isInvoice(document) || kind(document) == DocumentKind::creditNote;
    return isRevenue && status(document).value_or(DocumentStatus::draft) != DocumentStatus::draft;
}

bool isPartlyPaid(const Document& document)
{
    return document.cachedPaidMinorUnits > 0 && cachedAmountDueMinorUnits(document) > 0;
}

std::int64_t cachedAmountDueMinorUnits(const Document& document)
{
    return checkedSubtract(checkedAdd(document.cachedTotalMinorUnits, document.cachedLateFeesMinorUnits),
                           document.cachedPaidMinorUnits);
}

std::vector<std::string> tagList(const Document& document)
{
    return cleanTags(std::span(&document.tags, 1));
}

void setTagList(Document& document, std::span<const std::string> tags)
{
    std::string stored;
    for (const std::string& tag : cleanTags(tags)) {
        if (!stored.empty()) {
            stored += tagSeparator;
        }
        stored += tag;
    }
    document.tags = std::move(stored);
}

std::vector<std::string> cleanTags(std::span<const std::string> tags)
{
    std::vector<std::string> clean;
    std::unordered_set<std::string> seen;
    for (const std::string& text : tags) {
        for (const std::string_view piece : split(text, tagSeparator)) {
            const std::string_view tag = trimmed(piece);
            if (!tag.empty() && seen.insert(folded(tag)).second) {
                clean.emplace_back(tag);
            }
        }
    }
    return clean;
}

} // namespace Quillary
