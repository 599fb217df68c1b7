#include "QuillaryCore/Assistant/Description/DocumentDescription.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Review/DocumentReviewer.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr std::size_t longestName = 60;

/// One message to a person can't hold more; the others follow when these are settled.
constexpr std::size_t linesAtOnce = 10;
constexpr std::size_t untaxedLinesAtOnce = 30;

bool isDescribed(const LineItem& line)
{
    return !trimmed(line.title).empty() || !trimmed(line.details).empty();
}

std::string nameOf(const LineItem& line)
{
    return plainText(trimmed(line.title).empty() ? line.details : line.title, longestName);
}

/// What change_lines takes to set one figure of these lines.
JSON change(const std::vector<std::size_t>& numbers, std::string_view member, const std::string& figure)
{
    JSON::Array changes;
    for (const std::size_t number : numbers) {
        JSON object = JSON::object({{"line", number}});
        object.set(member, JSON::Number{figure});
        changes.push_back(std::move(object));
    }
    return {std::move(changes)};
}

/// "1, 2 and 5"
std::string listed(const std::vector<std::size_t>& numbers)
{
    const auto last = numbers.end() - 1;
    const std::string before = fmt::format("{}", fmt::join(numbers.begin(), last, ", "));
    return before.empty() ? fmt::format("{}", *last) : fmt::format("{} and {}", before, *last);
}

} // namespace

void DocumentReviewer::checkLines()
{
    if (m_lines.empty()) {
        ask({.text = fmt::format("What should the {} list, and at what price?", noun()),
             .field = "add_lines",
             .isRequired = true,
             .why = "It has no lines yet.",
             .options = {}});
        return;
    }
    std::size_t found = 0;
    for (std::size_t index = 0; index < m_lines.size() && found < linesAtOnce; ++index) {
        found += checkLine(*m_lines[index], index + 1) ? 0 : 1;
    }
    checkTaxRates();
}

/// False: the line lacks something.
bool DocumentReviewer::checkLine(const LineItem& line, std::size_t number)
{
    if (!isDescribed(line)) {
        askForDescription(line, number);
        return false;
    }
    if (hasOpenPrice(line)) {
        askForPrice(line, number);
        return false;
    }
    // A quote may show what more would cost.
    if (line.unitPriceMinorUnits != 0 && line.quantityThousandths == 0 && !isQuote()) {
        tell(fmt::format("Line {} (“{}”) has the quantity 0, so it bills nothing.", number, nameOf(line)),
             "Set its quantity with change_lines, or take it out with remove_lines.",
             "change_lines");
        return false;
    }
    return true;
}

void DocumentReviewer::askForDescription(const LineItem& line, std::size_t number)
{
    const bool hasPrice = line.unitPriceMinorUnits != 0;
    ask({.text = fmt::format("What should line {} be called{}?", number, hasPrice ? "" : ", and what does it cost"),
         .field = "change_lines",
         .isRequired = true,
         .why = hasPrice ? "It has a price but no description." : "It has neither a description nor a price.",
         .options = {}});
}

/// A line above its sub-lines may leave the prices to them.
bool DocumentReviewer::hasOpenPrice(const LineItem& line)
{
    return line.unitPriceMinorUnits == 0 && !m_freeLines.contains(Lookup::idText(line.uuid)) &&
           sortedChildren(m_context, line).empty();
}

void DocumentReviewer::askForPrice(const LineItem& line, std::size_t number)
{
    ask({.text = fmt::format("What's the price for “{}” (line {})?", nameOf(line), number),
         .field = "change_lines",
         .isRequired = true,
         .why = "It has no price.",
         .options = {{.value = change({number}, "unit_price", "0"), .label = "Nothing, it's free"}}});
}

/// A rate of 0 that a catalog item brings, or that the user has confirmed, is meant.
bool DocumentReviewer::isUntaxedByMistake(const LineItem& line)
{
    if (line.vatBasisPoints != 0 || line.unitPriceMinorUnits == 0 ||
        m_untaxedLines.contains(Lookup::idText(line.uuid))) {
        return false;
    }
    const CatalogItem* item = line.catalogItemID ? m_context.find<CatalogItem>(*line.catalogItemID) : nullptr;
    return item == nullptr || !item->taxRateID;
}

void DocumentReviewer::checkTaxRates()
{
    const TaxRate* usual = TaxRates::defaultRate(m_context);
    // A business that charges no tax has no usual rate to go by, whatever its list says.
    if (m_document.taxExempt || (!m_business.taxExempt && (usual == nullptr || usual->basisPoints <= 0))) {
        return;
    }
    // Without any tax an invoice in the EU needs a reason, so that no single line's 0 % can be the last word.
    const bool needsReason =
        m_business.taxExempt && m_home.isInEU() && !isQuote() &&
        std::ranges::all_of(m_lines, [](const LineItem* line) { return line->vatBasisPoints == 0; });
    std::vector<std::size_t> numbers;
    for (std::size_t index = 0; index < m_lines.size() && numbers.size() < untaxedLinesAtOnce; ++index) {
        const bool isBilled = m_lines[index]->unitPriceMinorUnits != 0;
        if (isUntaxedByMistake(*m_lines[index]) || (needsReason && isBilled)) {
            numbers.push_back(index + 1);
        }
    }
    if (numbers.empty()) {
        return;
    }
    if (m_business.taxExempt) {
        tell(fmt::format("The {} is taxed, but {} no {}.", noun(), bearing(numbers), taxWord()),
             "Set tax_exempt to true with update_document, or the tax_rate of each with change_lines.",
             "tax_exempt");
    } else {
        askForTaxRate(usual->basisPoints, numbers);
    }
}

/// "line 1 (“Website”) bears"
std::string DocumentReviewer::bearing(const std::vector<std::size_t>& numbers) const
{
    return numbers.size() == 1 ? fmt::format("line {} (“{}”) bears", numbers[0], nameOf(*m_lines[numbers[0] - 1]))
                               : fmt::format("lines {} bear", listed(numbers));
}

void DocumentReviewer::askForTaxRate(std::int32_t usualRate, const std::vector<std::size_t>& numbers)
{
    std::string lines = bearing(numbers);
    lines.front() = 'L';
    ReviewQuestion question{.text = fmt::format("{} no {}. Which rate applies?", lines, taxWord()),
                            .field = "change_lines",
                            .isRequired = false,
                            .why = fmt::format("Your usual rate is {}.", Percent::format(usualRate)),
                            .options = {}};
    for (const TaxRate* rate : TaxRates::all(m_context)) {
        if (rate->basisPoints > 0) {
            const std::string figure = Percent::format(rate->basisPoints);
            question.options.push_back({.value = change(numbers, "tax_rate", rateFigure(rate->basisPoints)),
                                        .label = fmt::format("{} ({})", figure, plainText(rate->name, longestName))});
        }
    }
    question.options.push_back({.value = change(numbers, "tax_rate", "0"), .label = fmt::format("No {}", taxWord())});
    ask(std::move(question));
}

} // namespace Quillary
