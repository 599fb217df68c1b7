#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/Limits.h"

#include <algorithm>
#include <limits>
#include <set>
#include <vector>

namespace Quillary {

/// How many there may be is checked with the document's figures.
void DocumentSession::applyFees(const Arguments& arguments)
{
    Context& context = m_environment.context;
    const std::vector<const Fee*> fees = sortedFees(context, m_document);
    const auto count = static_cast<std::int64_t>(fees.size());
    for (const Arguments& change : arguments.objects("change_fees")) {
        const std::optional<std::int64_t> number = change.wholeNumber("fee", 1, count);
        if (!number) {
            change.refuse("fee", "is missing: the fee's number.");
        }
        fillFee(context.edit(*fees[static_cast<std::size_t>(*number - 1)]), change);
    }
    std::set<std::int64_t> removed;
    for (const std::int64_t number : arguments.wholeNumbers("remove_fees", 1, Limits::feesPerDocument)) {
        if (number <= count && removed.insert(number).second) {
            context.erase(*fees[static_cast<std::size_t>(number - 1)]);
        }
    }
    std::int32_t sortIndex =
        fees.empty() ? 0 : std::min(fees.back()->sortIndex, std::numeric_limits<std::int32_t>::max() - 1'000) + 1;
    const std::vector<Arguments> added = arguments.objects("add_fees");
    if (added.size() > Limits::feesPerDocument) {
        arguments.refuse("add_fees", "holds too many.");
    }
    for (const Arguments& one : added) {
        Fee& fee = context.insert<Fee>();
        fee.document = m_document.ref;
        fee.sortIndex = sortIndex++;
        fee.vatBasisPoints = defaultRate();
        fillFee(fee, one);
    }
}

void DocumentSession::fillFee(Fee& fee, const Arguments& arguments) const
{
    if (auto title = arguments.line("title", Limits::lineLength)) {
        fee.title = std::move(*title);
    }
    if (const auto amount =
            arguments.amount("amount", "fee", m_document.currencyCode, Sign::any, Limits::feeMinorUnits)) {
        fee.amountMinorUnits = *amount;
    }
    if (const auto rate = arguments.rate("tax_rate")) {
        fee.vatBasisPoints = *rate;
    }
}

} // namespace Quillary
