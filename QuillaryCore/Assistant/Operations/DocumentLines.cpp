#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Documents/DocumentCopy.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/ReviewAnswer.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "QuillaryCore/Model/Units.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <set>
#include <utility>

namespace Quillary {

namespace {

constexpr std::int64_t oneInThousandths = 1000;

[[noreturn]] void refuseLines()
{
    throw AssistantError(fmt::format("A document can have at most {} lines.", Limits::linesPerDocument));
}

} // namespace

std::int32_t DocumentSession::defaultRate() const
{
    if (business().taxExempt) {
        return 0;
    }
    const TaxRate* rate = TaxRates::defaultRate(m_environment.context);
    return rate == nullptr ? 0 : rate->basisPoints;
}

std::int32_t DocumentSession::nextSortIndex() const
{
    const std::vector<const LineItem*> lines = sortedItems(m_environment.context, m_document);
    // Damaged or foreign data may hold any number; the last places are then shared, and the lines keep their order.
    constexpr std::int32_t last = std::numeric_limits<std::int32_t>::max() - Limits::linesPerDocument;
    return lines.empty() ? 0 : std::min(lines.back()->sortIndex, last) + 1;
}

void DocumentSession::applyLines(const Arguments& arguments)
{
    Context& context = m_environment.context;
    const std::vector<const LineItem*> lines = linesInOrder(context, m_document);
    const std::vector<Arguments> changes = arguments.objects("change_lines");
    const std::vector<Arguments> added = arguments.objects("add_lines");
    // Before anything is made of them: a list may be as long as a message.
    if (added.size() > Limits::linesPerDocument || changes.size() > Limits::linesPerDocument) {
        refuseLines();
    }
    for (const Arguments& change : changes) {
        changeLine(change, lines);
    }
    std::set<std::int64_t> removed;
    for (const std::int64_t number : arguments.wholeNumbers("remove_lines", 1, Limits::linesPerDocument)) {
        if (std::cmp_greater(number, lines.size())) {
            arguments.refuse("remove_lines", fmt::format("names line {}; there are {} lines.", number, lines.size()));
        }
        removed.insert(number - 1);
    }
    // Sub-lines go with their line, so those that are named as well are already gone.
    for (const std::int64_t index : removed) {
        const LineItem& line = *lines[static_cast<std::size_t>(index)];
        const bool goesWithParent = line.parent && std::ranges::any_of(removed, [&](std::int64_t other) {
                                        return lines[static_cast<std::size_t>(other)]->ref == line.parent;
                                    });
        if (!goesWithParent) {
            context.erase(line);
        }
    }
    if (arguments.flag("copy_last_invoice").value_or(false)) {
        copyLastInvoice();
    }
    if (arguments.flag("add_unbilled_time").value_or(false)) {
        addUnbilledTime();
    }
    std::int32_t sortIndex = added.empty() ? 0 : nextSortIndex();
    for (const Arguments& line : added) {
        addLine(line, sortIndex++);
    }
    if (linesInOrder(context, m_document).size() > Limits::linesPerDocument) {
        refuseLines();
    }
}

void DocumentSession::changeLine(const Arguments& change, const std::vector<const LineItem*>& lines)
{
    if (lines.empty()) {
        throw AssistantError("There are no lines to change yet; add_lines adds some.");
    }
    const std::optional<std::int64_t> number = change.wholeNumber("line", 1, static_cast<std::int64_t>(lines.size()));
    if (!number) {
        change.refuse("line", "is missing: the line's number as get_document shows it.");
    }
    LineItem& line = m_environment.context.edit(*lines[static_cast<std::size_t>(*number - 1)]);
    fillLine(line, change);
    rememberLineAnswers(line, change);
}

/// A price or rate of 0 that somebody sets on a line is meant; one that a new line starts with may only be unknown.
void DocumentSession::rememberLineAnswers(const LineItem& line, const Arguments& change)
{
    Context& context = m_environment.context;
    if (change.has("unit_price") && line.unitPriceMinorUnits == 0) {
        ReviewAnswers::remember(context, m_document, ReviewTopic::freeLine, Lookup::idText(line.uuid));
    }
    if (change.has("tax_rate") && line.vatBasisPoints == 0) {
        ReviewAnswers::remember(context, m_document, ReviewTopic::untaxedLine, Lookup::idText(line.uuid));
    }
}

void DocumentSession::addLine(const Arguments& arguments, std::int32_t sortIndex)
{
    Context& context = m_environment.context;
    LineItem& line = context.insert<LineItem>();
    line.document = m_document.ref;
    line.sortIndex = sortIndex;
    line.quantityThousandths = oneInThousandths;
    line.vatBasisPoints = defaultRate();
    if (const auto named = arguments.line("catalog_item", Limits::lineLength)) {
        const CatalogItem& item = Lookup::catalogItem(context, *named);
        line.catalogItemID = item.uuid;
        line.title = item.name;
        line.details = item.details;
        if (!arguments.has("unit_price")) {
            if (item.currencyCode != m_document.currencyCode) {
                arguments.refuse("unit_price",
                                 fmt::format("is needed: “{}” is priced in {}, the document is in {}.",
                                             plainText(item.name),
                                             item.currencyCode,
                                             m_document.currencyCode));
            }
            line.unitPriceMinorUnits = item.unitPriceMinorUnits;
        }
        if (item.taxRateID) {
            if (const TaxRate* rate = context.find<TaxRate>(*item.taxRateID)) {
                line.vatBasisPoints = rate->basisPoints;
            }
        }
        if (!item.unit.empty()) {
            Quillary::setUnit(line, item.unit, UnitLibrary(context, business()), language(m_document));
        }
    }
    fillLine(line, arguments);
}

void DocumentSession::fillLine(LineItem& line, const Arguments& arguments)
{
    if (auto title = arguments.line("title", Limits::lineLength)) {
        line.title = std::move(*title);
    }
    if (auto details = arguments.paragraphs("details", Limits::textLength)) {
        line.details = std::move(*details);
    }
    if (const auto quantity = arguments.quantity("quantity", Limits::quantityThousandths)) {
        line.quantityThousandths = *quantity;
    }
    if (const auto price =
            arguments.amount("unit_price", "price", m_document.currencyCode, Sign::any, Limits::unitPriceMinorUnits)) {
        line.unitPriceMinorUnits = *price;
    }
    if (const auto rate = arguments.rate("tax_rate")) {
        line.vatBasisPoints = *rate;
    }
    if (arguments.has("unit")) {
        setUnit(line, arguments);
    }
}

void DocumentSession::setUnit(LineItem& line, const Arguments& arguments)
{
    const std::string word = arguments.line("unit", Limits::lineLength).value_or("");
    const UnitLibrary library(m_environment.context, business());
    const std::optional<std::string> unit = word.empty() ? std::optional<std::string>("") : library.named(word);
    if (!unit) {
        arguments.refuse("unit",
                         "isn't known. Use hour, day, week, month, year, minute, piece, flat rate, page or word, "
                         "another usual unit such as kilogram or metre, or one of the user's own units.");
    }
    Quillary::setUnit(line, *unit, library, language(m_document));
}

void DocumentSession::copyLastInvoice()
{
    if (client() == nullptr) {
        throw AssistantError("“copy_last_invoice” needs a client.");
    }
    const Document& last = lastInvoice();
    if (last.currencyCode != m_document.currencyCode) {
        throw AssistantError(fmt::format("The last invoice, {}, is in {}; this document is in {}.",
                                         plainText(last.number),
                                         last.currencyCode,
                                         m_document.currencyCode));
    }
    DocumentCopy::addLines(
        {m_environment.context, business(), m_environment.calendar}, last, m_document, nextSortIndex());
    m_filledIn.push_back(
        fmt::format("lines of {}", last.number.empty() ? Lookup::reference(last) : plainText(last.number)));
}

/// The newest that was issued: a draft may be half-made. Without one the newest draft, and never one without lines.
const Document& DocumentSession::lastInvoice()
{
    const Document* last = m_environment.context.first<Document>(
        "client = ? AND kindRaw = 0 AND id <> ? AND EXISTS (SELECT 1 FROM LineItem WHERE document = Document.id) "
        "ORDER BY statusRaw = 0, issueDate DESC, id DESC LIMIT 1",
        m_document.client.key(),
        m_document.ref.key());
    if (last == nullptr) {
        throw AssistantError(fmt::format("{} has no earlier invoice to copy.", plainText(displayName(*client()))));
    }
    return *last;
}

} // namespace Quillary
