#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/SameFigure.h"
#include "QuillaryCore/Schedules/TimeBilling.h"

#include <fmt/format.h>

#include <set>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t longestTitle = 60;

/// The numbers of the lines that a call gives a price of their own.
std::set<std::int64_t> pricedLines(const Arguments& arguments)
{
    std::set<std::int64_t> numbers;
    for (const Arguments& change : arguments.objects("change_lines")) {
        if (change.has("unit_price")) {
            numbers.insert(change.wholeNumber("line", 1, Limits::linesPerDocument).value_or(0));
        }
    }
    return numbers;
}

/// Writes the figures of one document in another currency. No rate is known here, so 90.00 EUR become 90.00 USD; the
/// first of them is kept, so that the user hears of it.
class Relabelling
{
public:
    Relabelling(std::string from, std::string to)
        : m_from(std::move(from))
        , m_to(std::move(to))
    {
    }

    /// Throws: `AssistantError` when the other currency hasn't as many decimals.
    void convert(std::int64_t& minorUnits, std::string_view what)
    {
        const std::optional<std::int64_t> converted = sameFigure(minorUnits, m_from, m_to);
        if (!converted) {
            throw AssistantError(fmt::format("The currency can't become {}: the {} {} has more decimals than it.",
                                             m_to,
                                             what,
                                             Money(minorUnits, m_from).plainText()));
        }
        if (minorUnits != 0 && m_example.empty()) {
            m_example = fmt::format("prices kept as figures: {} {} is now {} {}",
                                    Money(minorUnits, m_from).plainText(),
                                    m_from,
                                    Money(*converted, m_to).plainText(),
                                    m_to);
        }
        minorUnits = *converted;
    }

    [[nodiscard]] const std::string& example() const { return m_example; }

private:
    std::string m_from;
    std::string m_to;
    std::string m_example;
};

} // namespace

void DocumentSession::applyCurrency(const Arguments& arguments, const Client* before)
{
    const std::string wanted = wantedCurrency(arguments, before);
    if (wanted != m_document.currencyCode) {
        changeCurrency(wanted, arguments);
    }
}

std::string DocumentSession::wantedCurrency(const Arguments& arguments, const Client* before)
{
    if (const auto named = arguments.line("currency", Limits::lineLength)) {
        std::string wanted = upperCasedASCII(*named);
        if (!Currencies::isKnown(wanted)) {
            arguments.refuse("currency", "must be an ISO currency code such as EUR.");
        }
        return wanted;
    }
    if (client() == before) {
        return m_document.currencyCode;
    }
    if (client() != nullptr && !client()->currencyCode.empty()) {
        m_filledIn.push_back(
            fmt::format("currency {} (from {})", client()->currencyCode, plainText(displayName(*client()))));
        return client()->currencyCode;
    }
    return before != nullptr && before->currencyCode == m_document.currencyCode ? business().currencyCode
                                                                                : m_document.currencyCode;
}

void DocumentSession::changeCurrency(const std::string& wanted, const Arguments& arguments)
{
    Context& context = m_environment.context;
    Relabelling relabelling(m_document.currencyCode, wanted);
    const std::set<std::int64_t> priced = pricedLines(arguments);
    std::size_t number = 0;
    for (const LineItem* line : linesInOrder(context, m_document)) {
        number += 1;
        if (priced.contains(static_cast<std::int64_t>(number))) {
            continue; // the call brings the price in the new currency
        }
        requireOwnPrice(*line, number, wanted);
        relabelling.convert(context.edit(*line).unitPriceMinorUnits, "price");
    }
    for (const Discount* discount : sortedDiscounts(context, m_document)) {
        relabelling.convert(context.edit(*discount).amountMinorUnits, "discount");
    }
    for (const Fee* fee : sortedFees(context, m_document)) {
        relabelling.convert(context.edit(*fee).amountMinorUnits, "fee");
    }
    if (!relabelling.example().empty()) {
        m_filledIn.push_back(relabelling.example());
    }
    m_document.currencyCode = wanted;
}

/// A price that the catalog or the hourly rate gave is known in its currency: the same figure in another is wrong.
void DocumentSession::requireOwnPrice(const LineItem& line, std::size_t number, const std::string& wanted)
{
    if (line.unitPriceMinorUnits == 0) {
        return;
    }
    Context& context = m_environment.context;
    const CatalogItem* item = line.catalogItemID ? context.find<CatalogItem>(*line.catalogItemID) : nullptr;
    const bool isOfTime = wanted != business().currencyCode && !TimeBilling::entries(context, line).empty();
    if (!isOfTime && (item == nullptr || item->currencyCode == wanted)) {
        return;
    }
    throw AssistantError(
        fmt::format("The currency can't become {0}: line {1} (“{2}”) {3} priced in {4}. Give its price in {0} in the "
                    "same call (change_lines with unit_price), remove the line first, or set “currency” to {5}.",
                    wanted,
                    number,
                    plainText(line.title, longestTitle),
                    isOfTime ? "bills tracked time, which is" : "comes from the catalog, where it is",
                    isOfTime ? business().currencyCode : plainText(item->currencyCode),
                    m_document.currencyCode));
}

} // namespace Quillary
