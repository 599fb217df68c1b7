#include "QuillaryCore/Billing/DocumentAmounts.h"

#include "QuillaryCore/Billing/DocumentLimits.h"
#include "QuillaryCore/Billing/LateFees.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LateFeeKind.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Reminder.h"
#include "tests/Model/TestLibrary.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <string_view>

namespace Quillary {

namespace {

constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();

class DocumentAmountsTest : public testing::Test, protected TestLibrary
{
protected:
    Discount& discount(const Document& document, std::int16_t kind, std::int32_t basisPoints, std::int64_t amount)
    {
        auto& discount = context.insert<Discount>();
        discount.document = document.ref;
        discount.kindRaw = kind;
        discount.basisPoints = basisPoints;
        discount.amountMinorUnits = amount;
        return discount;
    }

    Fee& fee(const Document& document, std::int64_t amount, std::int32_t rate)
    {
        auto& fee = context.insert<Fee>();
        fee.document = document.ref;
        fee.amountMinorUnits = amount;
        fee.vatBasisPoints = rate;
        return fee;
    }

    std::string refusal(const Document& document) { return checkAggregates(context, document).value_or(""); }
};

} // namespace

TEST_F(DocumentAmountsTest, countParentsSubLinesDiscountsAndFees)
{
    Document& invoice = document();
    const LineItem& parent = line(invoice, 10000, 1900);
    line(invoice, 5000, 1900).parent = parent.ref;
    line(invoice, 5000, 700);
    discount(invoice, 0, 1000, 99999);
    discount(invoice, 9, 0, 99999); // any kind but 1 is a percentage
    discount(invoice, 1, 5000, 180).sortIndex = -1;
    fee(invoice, 300, 1900);
    const Totals::Result totals = calculateTotals(context, invoice);
    EXPECT_EQ(totals.lineAmounts, (std::vector<std::int64_t>{10000, 5000, 5000}));
    EXPECT_EQ(totals.discountAmounts, (std::vector<std::int64_t>{180, 2000, 0}));
    EXPECT_EQ(totals.net, 18120);
    EXPECT_EQ(amountWithChildren(context, parent), 15000);
    invoice.taxExempt = true;
    EXPECT_EQ(calculateTotals(context, invoice).total, 18120);
}

TEST_F(DocumentAmountsTest, saturateForALineWithItsSubLines)
{
    const Document& invoice = document();
    const LineItem& parent = line(invoice, highest);
    line(invoice, highest).parent = parent.ref;
    EXPECT_EQ(amountWithChildren(context, parent), highest);
    line(invoice, -highest).parent = parent.ref;
    line(invoice, -5).parent = parent.ref;
    EXPECT_EQ(amountWithChildren(context, parent), highest - 5) << "the exact sum fits";
}

TEST_F(DocumentAmountsTest, areRefusedBeyondTheLimits)
{
    struct Case
    {
        std::string_view reason;
        std::function<void(Document&)> change;
        std::string_view sentence;
    };
    const Case cases[] = {
        {"an ordinary invoice", [](Document&) {}, ""},
        {"the largest price", [&](Document& document) { line(document, Limits::unitPriceMinorUnits - 100, 0); }, ""},
        {"too large a price",
         [&](Document& document) { line(document, Limits::unitPriceMinorUnits + 1); },
         "The price of line 2 is too large: at most 100000000000.00 EUR."},
        {"too large a quantity",
         [&](Document& document) { line(document, 1).quantityThousandths = -Limits::quantityThousandths - 1; },
         "The quantity of line 2 is too large: at most 1000000000."},
        {"too large a line",
         [&](Document& document) { line(document, Limits::unitPriceMinorUnits).quantityThousandths = 1001; },
         "The amount of line 2 is too large: at most 100000000000.00 EUR."},
        {"a tax rate",
         [&](Document& document) { line(document, 1, 10001); },
         "The tax rate of line 2 isn't between 0 and 100 %."},
        {"lines that are too large only together",
         [&](Document& document) { line(document, Limits::unitPriceMinorUnits); },
         "The document's figures are too large: at most 100000000000.00 EUR each."},
        {"the tax on top",
         [&](Document& document) { line(document, Limits::unitPriceMinorUnits - 100, 10000); },
         "The document's figures are too large: at most 100000000000.00 EUR each."},
        {"a discount on lines that nearly cancel, whose shares leave 64 bits",
         [&](Document& document) {
             line(document, Limits::unitPriceMinorUnits, 1900);
             line(document, -Limits::unitPriceMinorUnits, 700);
             line(document, -101, 700);
             discount(document, 1, 0, Limits::discountMinorUnits);
         },
         "The document's figures are too large: at most 100000000000.00 EUR each."},
        {"a discount",
         [&](Document& document) { discount(document, 1, 0, Limits::discountMinorUnits + 1); },
         "A discount is too large: at most 100000000000.00 EUR."},
        {"a rate of discount",
         [&](Document& document) { discount(document, 0, -1, 0); },
         "A discount isn't between 0 and 100 %."},
        {"a fee",
         [&](Document& document) { fee(document, -Limits::feeMinorUnits - 1, 0); },
         "A fee is too large: at most 100000000000.00 EUR."},
        {"a fee's rate",
         [&](Document& document) { fee(document, 1, -1); },
         "The tax rate of a fee isn't between 0 and 100 %."},
        {"percentages of a negative subtotal, which add up",
         [&](Document& document) {
             line(document, -Limits::unitPriceMinorUnits);
             discount(document, 0, 10000, 0);
             discount(document, 0, 10000, 0);
         },
         "The document's figures are too large: at most 100000000000.00 EUR each."},
        {"too many discounts",
         [&](Document& document) {
             for (std::size_t index = 0; index <= Limits::discountsPerDocument; ++index) {
                 discount(document, 0, 1, 0);
             }
         },
         "A document can have at most 50 discounts."},
        {"too many fees",
         [&](Document& document) {
             for (std::size_t index = 0; index <= Limits::feesPerDocument; ++index) {
                 fee(document, 1, 0);
             }
         },
         "A document can have at most 50 fees."},
        {"too many lines",
         [&](Document& document) {
             for (std::size_t index = 0; index < Limits::linesPerDocument; ++index) {
                 line(document, 1);
             }
         },
         "A document can have at most 5000 lines."},
    };
    for (const Case& row : cases) {
        Document& invoice = document();
        line(invoice, 100);
        row.change(invoice);
        EXPECT_EQ(refusal(invoice), row.sentence) << row.reason;
    }
}

TEST_F(DocumentAmountsTest, refusePaymentsAndFeesBeyondTheLimits)
{
    const Document& invoice = document();
    const Document& quote = document(DocumentKind::quote);
    EXPECT_EQ(checkPayment(context, quote, 1), "Only invoices take payments.");
    EXPECT_EQ(checkPayment(context, invoice, 0), "A payment needs an amount.");
    EXPECT_EQ(checkPayment(context, invoice, -Limits::paymentMinorUnits), std::nullopt);
    EXPECT_NE(checkPayment(context, invoice, -Limits::paymentMinorUnits - 1), std::nullopt);
    EXPECT_NE(checkPayment(context, invoice, highest), std::nullopt);
    auto& paid = context.insert<Payment>();
    paid.document = invoice.ref;
    paid.amountMinorUnits = Limits::paymentsPerDocumentMinorUnits - 5;
    EXPECT_EQ(checkPayment(context, invoice, 5), std::nullopt);
    EXPECT_NE(checkPayment(context, invoice, 6), std::nullopt);

    EXPECT_EQ(checkLateFee(context, invoice, 0), std::nullopt);
    EXPECT_EQ(checkLateFee(context, invoice, -1), "A late fee can't be negative.");
    auto& reminder = context.insert<Reminder>();
    reminder.document = invoice.ref;
    reminder.feeMinorUnits = Limits::lateFeesPerDocumentMinorUnits - 5;
    EXPECT_EQ(checkLateFee(context, invoice, 5), std::nullopt);
    EXPECT_NE(checkLateFee(context, invoice, 6), std::nullopt);
}

// The claims of docs/limits.md, with the numbers that the program uses.
TEST(LimitsTest, keepEverySumWithin64Bits)
{
    constexpr Int128 largest = highest;
    constexpr Int128 owed = Int128{Limits::documentMinorUnits} + Limits::lateFeesPerDocumentMinorUnits;
    constexpr Int128 open = owed + Limits::paymentsPerDocumentMinorUnits;
    static_assert(open * Limits::rateBasisPoints + 5000 < largest);                             // late fees
    static_assert(open * 200'000 < largest);                                                    // open balances
    static_assert(Int128{Limits::documentMinorUnits} * 900'000 < largest);                      // net, tax, gross
    static_assert(Int128{Limits::hourlyRateMinorUnits} * Limits::timeSeconds + 1800 < largest); // time
    static_assert(Int128{Limits::timeSeconds} * 1000 + 1800 < largest);                         // hours
    static_assert(Int128{Limits::linesPerDocument} * Limits::documentMinorUnits < largest);     // subtotals

    Business business;
    business.lateFeeKindRaw = static_cast<std::int16_t>(LateFeeKind::percentage);
    business.lateFeeBasisPoints = Limits::rateBasisPoints;
    EXPECT_EQ(lateFee(business, ReminderLevel::final, static_cast<std::int64_t>(open), "EUR"), open);
}

} // namespace Quillary
