#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/Limits.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

/// How one kind of what is charged on a whole document is named among the arguments.
struct Names
{
    std::string_view number; ///< the key of one's number, counted from 1
    std::string_view change;
    std::string_view remove;
    std::string_view add;
    std::size_t limit; ///< how many there may be; checked with the document's figures
};

constexpr Names discountNames{
    "discount", "change_discounts", "remove_discounts", "add_discounts", Limits::discountsPerDocument};
constexpr Names feeNames{"fee", "change_fees", "remove_fees", "add_fees", Limits::feesPerDocument};

/// Changes, moves, removes and adds, in this order; numbers are those from before the call.
template <class Charge>
class ChargeChanges
{
public:
    using Begin = std::function<void(Charge& added)>;
    using Fill = std::function<void(Charge& charge, const Arguments& arguments)>;

    ChargeChanges(Context& context, const Names& names, std::vector<const Charge*> charges, Begin begin, Fill fill)
        : m_context(context)
        , m_names(names)
        , m_charges(std::move(charges))
        , m_begin(std::move(begin))
        , m_fill(std::move(fill))
    {
    }

    void apply(const Arguments& arguments, const Document& document)
    {
        change(arguments);
        remove(arguments);
        add(arguments, document);
    }

private:
    [[nodiscard]] std::int64_t count() const { return static_cast<std::int64_t>(m_charges.size()); }
    [[nodiscard]] const Charge* at(std::int64_t number) const
    {
        return m_charges[static_cast<std::size_t>(number - 1)];
    }

    void change(const Arguments& arguments)
    {
        std::vector<const Charge*> order = m_charges;
        for (const Arguments& one : arguments.objects(m_names.change)) {
            const std::optional<std::int64_t> number = one.wholeNumber(m_names.number, 1, count());
            if (!number) {
                one.refuse(m_names.number, "is missing: its number.");
            }
            m_fill(m_context.edit(*at(*number)), one);
            if (const std::optional<std::int64_t> place = one.wholeNumber("place", 1, count())) {
                std::erase(order, at(*number));
                order.insert(order.begin() + (*place - 1), at(*number));
            }
        }
        if (order != m_charges) {
            for (std::int32_t index = 0; const Charge* charge : order) {
                m_context.edit(*charge).sortIndex = index++;
            }
        }
    }

    void remove(const Arguments& arguments)
    {
        std::set<std::int64_t> removed;
        for (const std::int64_t number :
             arguments.wholeNumbers(m_names.remove, 1, static_cast<std::int64_t>(m_names.limit))) {
            if (number <= count() && removed.insert(number).second) {
                m_context.erase(*at(number));
            }
        }
    }

    void add(const Arguments& arguments, const Document& document)
    {
        constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max() - 1'000;
        std::int32_t sortIndex = 0;
        for (const Charge* charge : m_charges) {
            sortIndex = std::max(sortIndex, std::min(charge->sortIndex, highest) + 1);
        }
        const std::vector<Arguments> added = arguments.objects(m_names.add);
        if (added.size() > m_names.limit) {
            arguments.refuse(m_names.add, "holds too many.");
        }
        for (const Arguments& one : added) {
            Charge& charge = m_context.insert<Charge>();
            charge.document = document.ref;
            charge.sortIndex = sortIndex++;
            m_begin(charge);
            m_fill(charge, one);
        }
    }

    Context& m_context;
    const Names& m_names;
    std::vector<const Charge*> m_charges;
    Begin m_begin; ///< gives it what its business says
    Fill m_fill;
};

} // namespace

void DocumentSession::applyDiscounts(const Arguments& arguments)
{
    Context& context = m_environment.context;
    ChargeChanges<Discount> changes(
        context,
        discountNames,
        sortedDiscounts(context, m_document),
        [](Discount&) {},
        [this](Discount& discount, const Arguments& one) { fillDiscount(discount, one); });
    changes.apply(arguments, m_document);
}

void DocumentSession::applyFees(const Arguments& arguments)
{
    Context& context = m_environment.context;
    ChargeChanges<Fee> changes(
        context,
        feeNames,
        sortedFees(context, m_document),
        [this](Fee& fee) { fee.vatBasisPoints = defaultRate(); },
        [this](Fee& fee, const Arguments& one) { fillFee(fee, one); });
    changes.apply(arguments, m_document);
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

/// A percentage takes the place of an amount, and an amount that of a percentage.
void DocumentSession::fillDiscount(Discount& discount, const Arguments& arguments) const
{
    if (auto title = arguments.line("title", Limits::lineLength)) {
        discount.title = std::move(*title);
    }
    const DiscountWish wish = discountWish(arguments);
    if (wish.basisPoints) {
        discount.kindRaw = 0;
        discount.basisPoints = *wish.basisPoints;
        discount.amountMinorUnits = 0;
    } else if (wish.amountMinorUnits) {
        discount.kindRaw = 1;
        discount.basisPoints = 0;
        discount.amountMinorUnits = *wish.amountMinorUnits;
    }
}

DocumentSession::DiscountWish DocumentSession::discountWish(const Arguments& arguments) const
{
    DiscountWish wish{
        .basisPoints = arguments.rate("discount_percent"),
        .amountMinorUnits = arguments.amount(
            "discount_amount", "discount", m_document.currencyCode, Sign::notNegative, Limits::discountMinorUnits)};
    if (wish.basisPoints.value_or(0) != 0 && wish.amountMinorUnits.value_or(0) != 0) {
        throw AssistantError("Give “discount_percent” or “discount_amount”, not both.");
    }
    if (wish.basisPoints == 0 && wish.amountMinorUnits) {
        wish.basisPoints.reset();
    }
    return wish;
}

/// The one discount that an assistant may give takes the place of all that are there.
void DocumentSession::applyDiscount(const Arguments& arguments)
{
    const DiscountWish wish = discountWish(arguments);
    if (!wish.basisPoints && !wish.amountMinorUnits) {
        return;
    }
    Context& context = m_environment.context;
    for (const Discount* discount : sortedDiscounts(context, m_document)) {
        context.erase(*discount);
    }
    if (wish.basisPoints.value_or(0) != 0 || wish.amountMinorUnits.value_or(0) != 0) {
        Discount& discount = context.insert<Discount>();
        discount.document = m_document.ref;
        fillDiscount(discount, arguments);
    }
}

} // namespace Quillary
