#include "QuillaryCore/Documents/DocumentActions.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Documents/CreditNotes.h"
#include "QuillaryCore/Documents/DocumentError.h"
#include "QuillaryCore/Documents/DraftNumbers.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeBilling.h"
#include "tests/Documents/DocumentLibrary.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace Quillary {
namespace {

class DocumentActionsTest : public testing::Test
{
protected:
    /// The sentence of something that must fail and leave everything as it was.
    std::string refusal(const std::function<void()>& action)
    {
        library.context.save();
        try {
            action();
        } catch (const DocumentError& error) {
            EXPECT_FALSE(library.context.hasChanges());
            return error.message();
        }
        return "";
    }

    std::string statusRefusal(const Document& document, StatusAction action)
    {
        return refusal([&] { DocumentActions::applyStatus(library.desk(), document, action, library.start); });
    }

    DocumentLibrary library;
};

TEST_F(DocumentActionsTest, makesOneInvoiceFromAQuote)
{
    Document& quote = library.document(DocumentKind::quote, DocumentStatus::sent);
    quote.number = "Q-1";
    quote.client = library.client.ref;
    quote.validUntil = library.day(-1); // expired, and yet the client may say yes
    quote.paymentTermsDays = 7;
    library.line(quote, 2000, 4500, 1900);
    const auto make = [&](const Document& from) -> const Document& {
        return DocumentActions::invoiceFromQuote(library.desk(), from, library.day(0), "");
    };

    library.context.save();
    const Document& invoice = make(quote);
    EXPECT_EQ(quote.statusRaw, static_cast<int>(DocumentStatus::accepted));
    EXPECT_EQ(quote.decidedAt, library.start);
    EXPECT_EQ(invoice.number, "INV-2025-001");
    EXPECT_EQ(invoice.sourceDocumentID, quote.uuid);
    EXPECT_EQ(invoice.introText, library.business.invoiceIntroText);
    EXPECT_EQ(invoice.dueDate, library.day(7));
    EXPECT_EQ(invoice.cachedTotalMinorUnits, 10710);
    EXPECT_FALSE(library.context.hasChanges()) << "the scope has saved";
    EXPECT_EQ(refusal([&] { make(quote); }),
              "An invoice was made from Quote Q-1 already: INV-2025-001. Duplicate that one to make another.");

    Document& draft = library.document(DocumentKind::quote);
    make(draft);
    EXPECT_EQ(draft.statusRaw, 0) << "a quote that nobody has seen can't have been accepted";
    const Document& declined = library.document(DocumentKind::quote, DocumentStatus::declined);
    EXPECT_EQ(refusal([&] { make(declined); }),
              "Quote without a number was declined. Reopen it first if the client has changed their mind.");
    EXPECT_EQ(refusal([&] { make(invoice); }), "Invoice INV-2025-001 is no quote, so no invoice is made from it.");
}

TEST_F(DocumentActionsTest, duplicates)
{
    const auto duplicate = [&](const Document& source) -> const Document& {
        return DocumentActions::duplicate(library.desk(), source, library.day(0), "");
    };
    Document& paid = library.invoice("INV-1", DocumentStatus::paid);
    paid.deliveryStart = library.day(-40);
    paid.introText = "As agreed:";
    library.line(paid, 1000, 700, 0);
    const Document& copy = duplicate(paid);
    EXPECT_EQ(copy.statusRaw, 0);
    EXPECT_EQ(copy.introText, "As agreed:");
    EXPECT_FALSE(copy.deliveryStart || copy.sourceDocumentID);

    Document& monthly = library.document(DocumentKind::recurring);
    monthly.recurrenceUnitRaw = 1;
    monthly.recurrenceInterval = 3;
    monthly.recurrenceCount = 12;
    const Document& second = duplicate(monthly);
    EXPECT_EQ(second.recurrenceInterval, 3);
    EXPECT_EQ(second.recurrenceCount, 0);
    EXPECT_TRUE(second.isPaused);
    EXPECT_EQ(second.nextIssueDate, library.day(0));
    EXPECT_EQ(second.number, "");

    Document& note = library.document(DocumentKind::creditNote, DocumentStatus::sent);
    note.number = "CN-1";
    note.sourceDocumentID = paid.uuid;
    EXPECT_EQ(refusal([&] { duplicate(note); }),
              "Credit Note CN-1 takes back an invoice and can't be made twice. To credit what is left, make a credit "
              "note from the invoice.");
}

TEST_F(DocumentActionsTest, changesStatusOnlyAsFarAsItIsOpen)
{
    Document& invoice = library.invoice("INV-1", DocumentStatus::draft);
    EXPECT_EQ(statusRefusal(invoice, StatusAction::markSent), "Invoice INV-1 has no lines yet, so it can't be sent.");
    library.line(invoice, 1000, 700, 0);
    EXPECT_EQ(statusRefusal(invoice, StatusAction::markAccepted),
              "“Mark as Accepted” can't be done to Invoice INV-1 now, only “Mark as Sent”, “Mark as Paid”.");
    EXPECT_EQ(statusRefusal(library.document(DocumentKind::recurring), StatusAction::markSent),
              "A recurring template has no status: the invoices that are made from it have.");
    Document& unnumbered = library.document();
    EXPECT_EQ(statusRefusal(unnumbered, StatusAction::markPaid),
              "Invoice without a number can't be sent; it gets its number with its client.");

    DocumentActions::applyStatus(library.desk(), invoice, StatusAction::markSent, library.start);
    CreditNotes::make(library.desk(), invoice, {.issueDate = library.day(0)});
    EXPECT_EQ(statusRefusal(invoice, StatusAction::markDraft),
              "Invoice INV-1 was credited (CN-2025-001), so it can't become a draft again.");

    // Two figures within limits may together be more than one payment can be.
    Document& huge = library.invoice("INV-2", DocumentStatus::sent);
    library.line(huge, 1000, Limits::unitPriceMinorUnits, 0);
    library.context.insert<Reminder>().document = huge.ref;
    library.context.edit(*library.context.related<&Reminder::document>(huge).front()).feeMinorUnits = 1;
    EXPECT_EQ(statusRefusal(huge, StatusAction::markPaid), "The payment is too large: at most 100000000000.00 EUR.");
}

TEST_F(DocumentActionsTest, recordsAndTakesBackPayments)
{
    Document& invoice = library.invoice("INV-1");
    library.line(invoice, 1000, 1000, 0);
    const auto pay = [&](const Document& document, std::int64_t amount, int day) -> const Payment& {
        const PaymentDetails details{.amountMinorUnits = amount, .date = library.day(day), .note = {}};
        return DocumentActions::pay(library.desk(), document, details, library.start);
    };
    pay(invoice, 400, -2);
    const Payment& last = pay(invoice, 600, 0);
    EXPECT_EQ(invoice.statusRaw, static_cast<int>(DocumentStatus::paid));
    DocumentActions::takeBackPayment(library.desk(), last);
    EXPECT_EQ(invoice.statusRaw, static_cast<int>(DocumentStatus::sent));
    EXPECT_EQ(invoice.cachedPaidMinorUnits, 400);

    EXPECT_EQ(refusal([&] { pay(invoice, 0, 0); }), "A payment needs an amount.");
    EXPECT_EQ(refusal([&] { pay(invoice, 1, 1); }), "That day is in the future: record a payment when it has come in.");
    Document& quote = library.document(DocumentKind::quote);
    quote.number = "Q-1";
    EXPECT_EQ(refusal([&] { pay(quote, 1, 0); }), "Quote Q-1 takes no payments: only invoices do.");
}

TEST_F(DocumentActionsTest, deletesDraftsAndGivesBackWhatTheyHeld)
{
    const std::string number =
        DraftNumbers::take(library.desk(), DocumentKind::invoice, library.day(0), &library.client);
    Document& draft = library.invoice(number, DocumentStatus::draft);
    draft.issueDate = library.day(0);
    LineItem& line = library.line(draft, 1000, 9000, 0);
    TimeEntry& entry = library.context.insert<TimeEntry>();
    entry.isBillable = true;
    TimeBilling::bill(library.context, entry, draft, line);

    const PaymentDetails details{.amountMinorUnits = 5, .date = library.day(0), .note = {}};
    const Payment& payment = DocumentActions::pay(library.desk(), draft, details, library.start);
    EXPECT_EQ(refusal([&] { DocumentActions::deleteDraft(library.desk(), draft); }),
              "Money was recorded for Invoice INV-2025-001, so it stays.");
    DocumentActions::takeBackPayment(library.desk(), payment);

    EXPECT_TRUE(DocumentActions::deleteDraft(library.desk(), draft));
    EXPECT_FALSE(entry.invoiceID);
    EXPECT_EQ(library.context.count<LineItem>(""), 0);
    EXPECT_EQ(DraftNumbers::take(library.desk(), DocumentKind::invoice, library.day(0), &library.client), number);

    Document& older = library.invoice("INV-2025-000", DocumentStatus::draft);
    EXPECT_FALSE(DocumentActions::deleteDraft(library.desk(), older)) << "only the newest number is given back";
    Document& sent = library.invoice("INV-9");
    EXPECT_EQ(refusal([&] { DocumentActions::deleteDraft(library.desk(), sent); }),
              "Invoice INV-9 is no draft any more, so it stays. To take it back, make a credit note.");
}

TEST_F(DocumentActionsTest, setsTagsAndProject)
{
    Document& invoice = library.invoice("INV-1");
    const std::string tags[] = {" travel", "Travel", "2025,food "};
    DocumentActions::setTags(library.desk(), invoice, tags);
    EXPECT_EQ(tagList(invoice), (std::vector<std::string>{"travel", "2025", "food"}));
    const std::string tooLong[] = {std::string(Limits::lineLength + 1, 'x')};
    EXPECT_EQ(refusal([&] { DocumentActions::setTags(library.desk(), invoice, tooLong); }),
              "The tags can have at most 500 characters together.");
    EXPECT_EQ(tagList(invoice).size(), 3U);

    Project& project = library.context.insert<Project>();
    project.name = "Website";
    DocumentActions::setProject(library.desk(), invoice, &project);
    EXPECT_EQ(invoice.project, project.ref);
    library.context.edit(project).isArchived = true;
    EXPECT_EQ(refusal([&] { DocumentActions::setProject(library.desk(), invoice, &project); }),
              "The project “Website” is archived.");
    DocumentActions::setProject(library.desk(), invoice, nullptr);
    EXPECT_FALSE(invoice.project);
}

} // namespace
} // namespace Quillary
