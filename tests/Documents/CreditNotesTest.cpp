#include "QuillaryCore/Documents/CreditNotes.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Documents/DocumentError.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "tests/Documents/DocumentLibrary.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace Quillary {
namespace {

using CreditNotes::Chosen;

class CreditNotesTest : public testing::Test
{
protected:
    const Document& credit(const Document& invoice, std::vector<Chosen> lines = {}, bool withFees = false)
    {
        updateCachedTotals(library.context, invoice);
        return CreditNotes::make(
            library.desk(),
            invoice,
            {.issueDate = library.day(0), .lines = std::move(lines), .withFees = withFees, .madeBy = {}});
    }

    std::string refusal(const Document& invoice, std::vector<Chosen> lines = {})
    {
        const std::int64_t before = library.context.count<Document>("");
        try {
            credit(invoice, std::move(lines));
            return "";
        } catch (const DocumentError& error) {
            EXPECT_EQ(library.context.count<Document>(""), before) << "what failed leaves nothing behind";
            return error.message();
        }
    }

    /// What is left of each line. Unit: thousandths.
    std::vector<std::int64_t> left(const Document& invoice)
    {
        std::vector<std::int64_t> quantities;
        for (const CreditNotes::LineLeft& entry : CreditNotes::left(library.desk(), invoice).lines) {
            quantities.push_back(entry.quantityThousandths);
        }
        return quantities;
    }

    Totals::Result totals(const Document& document) { return calculateTotals(library.context, document); }

    DocumentLibrary library;
};

using Quantities = std::vector<std::int64_t>;

TEST_F(CreditNotesTest, takesBackAWholeInvoiceInEveryFigure)
{
    Document& invoice = library.invoice("INV-1");
    const LineItem& heading = library.line(invoice, 0, 0, 1900);
    library.line(invoice, 3333, 1999, 1900).parent = heading.ref;
    library.line(invoice, -1000, 250, 700);
    library.line(invoice, 1000, 0, 1900); // free
    library.percentDiscount(invoice, 333);
    library.fixedDiscount(invoice, 101);
    library.fee(invoice, 490, 700);

    const Document& note = credit(invoice);
    const Totals::Result billed = totals(invoice);
    const Totals::Result credited = totals(note);
    EXPECT_EQ(credited.total, -billed.total);
    EXPECT_EQ(credited.net, -billed.net);
    ASSERT_EQ(credited.taxLines.size(), billed.taxLines.size());
    for (std::size_t i = 0; i < billed.taxLines.size(); ++i) {
        EXPECT_EQ(credited.taxLines[i].base, -billed.taxLines[i].base);
        EXPECT_EQ(credited.taxLines[i].tax, -billed.taxLines[i].tax);
    }
    EXPECT_EQ(note.cachedTotalMinorUnits, -billed.total);
    EXPECT_EQ(note.number, "CN-2025-001");
    EXPECT_EQ(note.sourceDocumentID, invoice.uuid);
    EXPECT_EQ(note.statusRaw, 0);
    EXPECT_FALSE(note.dueDate);
    const auto lines = linesInOrder(library.context, note);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[1]->parent, lines[0]->ref) << "the heading stands above its sub-line";
    EXPECT_EQ(left(invoice), (Quantities{0, 0, 0, 0}));
    EXPECT_EQ(refusal(invoice), "Nothing is left to credit on Invoice INV-1: CN-2025-001 took all of it.");
}

/// A credit note's subtotal is negative, where discounts are not cut: the invoice's cut has to be written down.
TEST_F(CreditNotesTest, creditsDiscountsAsTheyCounted)
{
    Document& invoice = library.invoice("INV-1");
    library.line(invoice, 1000, 10000, 1900);
    library.fixedDiscount(invoice, 8000);
    library.percentDiscount(invoice, 5000).sortIndex = 1;
    library.fee(invoice, 500, 1900);
    ASSERT_EQ(totals(invoice).total, 595);
    EXPECT_EQ(totals(credit(invoice)).total, -595);
}

TEST_F(CreditNotesTest, sharesAFixedDiscountSoThatTheLastTakesTheRest)
{
    Document& invoice = library.invoice("INV-1");
    library.line(invoice, 3000, 3333, 0);
    library.fixedDiscount(invoice, 100);
    library.fee(invoice, 300, 0);
    std::vector<std::int64_t> discounts;
    discounts.reserve(3);
    for (int note = 0; note < 2; ++note) {
        discounts.push_back(totals(credit(invoice, {{.line = 1, .quantityThousandths = 1000}})).totalDiscount);
    }
    const Totals::Result last = totals(credit(invoice));
    discounts.push_back(last.totalDiscount);
    EXPECT_EQ(discounts, (std::vector<std::int64_t>{-33, -34, -33}));
    EXPECT_EQ(last.totalFees, -300) << "fees come with what is left, not with chosen lines";
}

TEST_F(CreditNotesTest, knowsWhatIsLeft)
{
    Document& invoice = library.invoice("INV-1");
    const LineItem& parent = library.line(invoice, 5000, 1000, 0);
    library.line(invoice, 2000, 100, 0).parent = parent.ref;
    library.line(invoice, -2000, 300, 0);
    library.line(invoice, 1000, 10000, 0);
    library.fee(invoice, 500, 0);

    const Document& first = credit(invoice, {{.line = 1, .quantityThousandths = 1500}}, true);
    EXPECT_EQ(totals(first).totalFees, -500);
    EXPECT_EQ(left(invoice), (Quantities{3500, 2000, -2000, 1000}));
    credit(invoice,
           {{.line = 1}, {.line = 3, .quantityThousandths = 500}}); // with its sub-line; the sign is the line's
    EXPECT_EQ(left(invoice), (Quantities{0, 0, -1500, 1000}));

    // 10.00 off a line of 100.00
    const Document& cheaper = credit(invoice, {{.line = 4}});
    library.context.edit(*linesInOrder(library.context, cheaper).front()).unitPriceMinorUnits = 1000;
    EXPECT_EQ(left(invoice).back(), 900);

    // A line that is taken off the draft again is left again, and so is a draft that is deleted.
    library.context.erase(*linesInOrder(library.context, cheaper).front());
    EXPECT_EQ(left(invoice).back(), 1000);
    library.context.erase(first);
    EXPECT_EQ(left(invoice), (Quantities{1500, 0, -1500, 1000}));
}

TEST_F(CreditNotesTest, countsCreditNotesMadeElsewhere)
{
    Document& invoice = library.invoice("INV-1");
    library.line(invoice, 5000, 1000, 0).title = "Design";
    library.line(invoice, 5000, 1000, 0).title = "Text";
    Document& foreign = library.document(DocumentKind::creditNote, DocumentStatus::sent);
    foreign.sourceDocumentID = invoice.uuid;
    library.line(foreign, -7000, 1000, 0).title = "Text";
    library.line(foreign, -1000, 1000, 0).title = "Something else";
    EXPECT_EQ(left(invoice), (Quantities{5000, 0})) << "more than all of a line is all of it";
}

TEST_F(CreditNotesTest, refusesWithOneSentence)
{
    Document& invoice = library.invoice("INV-1");
    library.line(invoice, 2000, 1000, 0).title = "Design";
    library.line(invoice, 1000, -500, 0).title = "Deposit";
    credit(invoice, {{.line = 1, .quantityThousandths = 1000}});
    struct Case
    {
        std::vector<Chosen> lines;
        std::string sentence;
    };
    const Case cases[] = {
        {{{.line = 3}}, "Invoice INV-1 has no line 3; it has 2."},
        {{{.line = 0}}, "Invoice INV-1 has no line 0; it has 2."},
        {{{.line = 1}, {.line = 1}}, "Line 1 is named twice."},
        {{{.line = 1, .quantityThousandths = 1500}}, "Only 1 is left to credit of line 1 (“Design”)."},
        {{{.line = 1, .quantityThousandths = -1}}, "The quantity to credit of line 1 (“Design”) must be more than 0."},
        {{{.line = 2}},
         "These lines together change what is owed the wrong way, so they can't be credited by themselves."},
    };
    for (const Case& example : cases) {
        EXPECT_EQ(refusal(invoice, example.lines), example.sentence);
    }
    EXPECT_EQ(refusal(library.invoice("INV-2", DocumentStatus::draft)),
              "Invoice INV-2 is still a draft: change it or delete it instead.");
    EXPECT_EQ(refusal(library.document(DocumentKind::quote, DocumentStatus::sent)),
              "Quote without a number can't be credited: only invoices can.");
    EXPECT_EQ(refusal(library.invoice("INV-3")), "Nothing is left to credit on Invoice INV-3.");
    Document& damaged = library.invoice("INV-4");
    library.line(damaged, std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::max(), 0);
    library.line(damaged, std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::max(), 0);
    EXPECT_THROW(std::ignore = CreditNotes::left(library.desk(), damaged), DocumentError);
}

/// However an invoice is taken back in pieces, in the end the quantities, fixed discounts and fees are back to nothing.
TEST_F(CreditNotesTest, piecesAddUpToTheWhole)
{
    std::mt19937 random(7); // NOLINT(bugprone-random-generator-seed): the same invoices in every run
    const auto upTo = [&](std::int64_t most) {
        return std::uniform_int_distribution<std::int64_t>(1, most)(random);
    };
    for (int round = 0; round < 25; ++round) {
        Document& invoice = library.invoice("INV-" + std::to_string(round));
        for (int line = 0; line < 4; ++line) {
            library.line(invoice, upTo(9000), upTo(5000), 0);
        }
        library.fixedDiscount(invoice, upTo(300));
        library.fee(invoice, upTo(900), 0);
        for (int note = 0; note < 3; ++note) {
            const Quantities rest = left(invoice);
            const auto index = static_cast<std::size_t>(upTo(4) - 1);
            if (rest[index] > 1) {
                credit(invoice, {{.line = index + 1, .quantityThousandths = upTo(rest[index] - 1)}});
            }
        }
        credit(invoice);
        Totals::Result sum;
        for (const Document* note : derivedDocuments(library.context, invoice)) {
            sum.totalDiscount += totals(*note).totalDiscount;
            sum.totalFees += totals(*note).totalFees;
        }
        EXPECT_EQ(left(invoice), Quantities(4, 0));
        EXPECT_EQ(sum.totalDiscount, -totals(invoice).totalDiscount);
        EXPECT_EQ(sum.totalFees, -totals(invoice).totalFees);
    }
}

} // namespace
} // namespace Quillary
