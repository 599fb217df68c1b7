#include "QuillaryCore/Model/DocumentContents.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientKind.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "tests/Model/TestLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace Quillary {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DocumentContentsTest : public testing::Test, protected TestLibrary
{
protected:
    LineItem& named(const Document& document, std::string title, std::int32_t sortIndex, Ref<LineItem> parent = {})
    {
        LineItem& item = line(document, 100);
        item.title = std::move(title);
        item.sortIndex = sortIndex;
        item.parent = parent;
        return item;
    }

    Payment& payment(const Document& document, std::optional<Instant> date, Instant createdAt, std::string note)
    {
        auto& payment = context.insert<Payment>();
        payment.document = document.ref;
        payment.date = date;
        payment.createdAt = createdAt;
        payment.note = std::move(note);
        return payment;
    }

    static std::string titles(const std::vector<const LineItem*>& lines)
    {
        std::string text;
        for (const LineItem* line : lines) {
            text += line->title + " ";
        }
        return text;
    }
};

} // namespace

TEST_F(DocumentContentsTest, putsLinesInPrintOrder)
{
    const Document& invoice = document();
    const Document& other = document();
    const Ref<Document> invoiceRef = invoice.ref;
    // Sub-lines before their line, equal indexes, and an index that would sort a sub-line to the top.
    LineItem& second = named(invoice, "B", 7);
    named(invoice, "B2", 1, second.ref);
    named(invoice, "B1", 0, second.ref);
    const LineItem& first = named(invoice, "A", 3);
    const Ref<LineItem> firstRef = first.ref;
    named(invoice, "C", 7);
    named(invoice, "A1", -5, first.ref);
    named(invoice, "A1’", -5, first.ref);
    named(other, "elsewhere", 0);
    for (const bool isSaved : {false, true}) {
        const Document& read = *context.find(invoiceRef);
        EXPECT_EQ(titles(linesInOrder(context, read)), "A A1 A1’ B B1 B2 C ") << isSaved;
        EXPECT_EQ(titles(sortedItems(context, read)), "A B C ") << isSaved;
        EXPECT_EQ(titles(sortedChildren(context, *context.find(firstRef))), "A1 A1’ ") << isSaved;
        context.save();
        context.forgetUnchanged();
    }
}

TEST_F(DocumentContentsTest, putsPaymentsInOrderOfTheirDays)
{
    const Document& invoice = document();
    payment(invoice, start + std::chrono::days(2), start, "3");
    payment(invoice, start, start + std::chrono::hours(1), "2");
    payment(invoice, start, start, "1a");
    payment(invoice, start, start, "1b");
    payment(invoice, std::nullopt, start + std::chrono::days(9), "0");
    std::string order;
    for (const Payment* payment : sortedPayments(context, invoice)) {
        order += payment->note + " ";
    }
    EXPECT_EQ(order, "0 1a 1b 2 3 ");
}

TEST_F(DocumentContentsTest, findsWhatWasMadeFromADocument)
{
    Document& invoice = document();
    Document& later = document(DocumentKind::creditNote);
    Document& earlier = document(DocumentKind::creditNote);
    later.sourceDocumentID = invoice.uuid;
    earlier.sourceDocumentID = invoice.uuid;
    earlier.createdAt = start - std::chrono::hours(1);
    EXPECT_THAT(derivedDocuments(context, invoice), ElementsAre(&earlier, &later));
    EXPECT_THAT(derivedDocuments(context, later), IsEmpty());
    invoice.uuid.reset();
    EXPECT_THAT(derivedDocuments(context, invoice), IsEmpty());
}

TEST_F(DocumentContentsTest, deletesWhatBelongsToADocumentAndFreesTheRest)
{
    auto& client = context.insert<Client>();
    auto& project = context.insert<Project>();
    auto& contact = context.insert<ContactPerson>();
    contact.client = client.ref;
    Document& invoice = document();
    invoice.client = client.ref;
    invoice.project = project.ref;
    const LineItem& parent = named(invoice, "A", 0);
    named(invoice, "A1", 0, parent.ref);
    context.insert<Discount>().document = invoice.ref;
    context.insert<Fee>().document = invoice.ref;
    context.insert<Payment>().document = invoice.ref;
    context.insert<Reminder>().document = invoice.ref;
    auto& time = context.insert<TimeEntry>();
    time.client = client.ref;
    time.project = project.ref;
    time.invoiceID = invoice.uuid;
    setTaxTreatment(context, invoice, TaxTreatment::reverseCharge);
    context.save();

    context.erase(client);
    context.erase(project);
    EXPECT_EQ(context.count<ContactPerson>(""), 0);
    EXPECT_FALSE(invoice.client);
    EXPECT_FALSE(invoice.project);
    EXPECT_FALSE(time.client);
    EXPECT_FALSE(time.project);

    context.erase(invoice);
    EXPECT_EQ(context.count<LineItem>("") + context.count<Discount>("") + context.count<Fee>("") +
                  context.count<Payment>("") + context.count<Reminder>("") + context.count<DocumentTaxTreatment>(""),
              0);
    EXPECT_EQ(time.invoiceID, std::nullopt);
    context.save();
}

TEST_F(DocumentContentsTest, aLineTakesItsSubLinesAlong)
{
    const Document& invoice = document();
    const LineItem& parent = named(invoice, "A", 0);
    named(invoice, "A1", 0, parent.ref);
    named(invoice, "B", 1);
    context.save();
    context.erase(parent);
    EXPECT_EQ(titles(linesInOrder(context, invoice)), "B ");
}

TEST(DocumentRulesTest, decideByKindAndStatus)
{
    struct Case
    {
        std::string_view reason;
        std::int16_t kind;
        std::int16_t status;
        bool accepts;
        bool counts;
    };
    const Case cases[] = {
        {"a draft invoice", 0, 0, true, false},
        {"a sent invoice", 0, 1, true, true},
        {"a sent quote", 1, 1, false, false},
        {"a sent credit note", 2, 1, false, true},
        {"a template", 3, 1, false, false},
        {"an unreadable kind is an invoice", 7, 1, true, true},
        {"an unreadable draft", 7, 0, true, false},
        {"an unreadable status is no revenue", 0, 9, true, false},
        {"negative numbers are unreadable", -1, -1, true, false},
    };
    for (const Case& row : cases) {
        Document document;
        document.kindRaw = row.kind;
        document.statusRaw = row.status;
        EXPECT_EQ(acceptsPayments(document), row.accepts) << row.reason;
        EXPECT_EQ(countsAsRevenue(document), row.counts) << row.reason;
    }
}

TEST(DocumentRulesTest, partlyPaidNeedsMoneyInAndMoneyOwed)
{
    struct Case
    {
        std::int64_t total;
        std::int64_t fees;
        std::int64_t paid;
        bool expected;
    };
    const Case cases[] = {{100, 0, 0, false},
                          {100, 0, 40, true},
                          {100, 0, 100, false},
                          {100, 5, 100, true},
                          {100, 0, 120, false},
                          {100, 0, -20, false}};
    for (const Case& row : cases) {
        Document document;
        document.cachedTotalMinorUnits = row.total;
        document.cachedLateFeesMinorUnits = row.fees;
        document.cachedPaidMinorUnits = row.paid;
        EXPECT_EQ(isPartlyPaid(document), row.expected) << row.total << " " << row.fees << " " << row.paid;
    }
}

TEST(DocumentRulesTest, cleansTags)
{
    const std::vector<std::string> given = {"  a", "b ", "a", "", " c", "\u00a0d\u00a0"};
    EXPECT_THAT(cleanTags(given), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(cleanTags(std::vector<std::string>{"Travel", "TRAVEL", "travél", "x, y,"}),
                ElementsAre("Travel", "x", "y"));
    Document document;
    setTagList(document, given);
    EXPECT_EQ(document.tags, "a,b,c,d");
    EXPECT_THAT(tagList(document), ElementsAre("a", "b", "c", "d"));
    setTagList(document, {});
    EXPECT_THAT(tagList(document), IsEmpty());
}

TEST(ClientNameTest, namesAClientByWhatItHas)
{
    struct Case
    {
        std::string_view reason;
        Client client;
        std::string_view expected;
    };
    const auto client = [](ClientKind kind, std::string name, std::string first, std::string last) {
        Client result;
        result.kindRaw = static_cast<std::int16_t>(kind);
        result.name = std::move(name);
        result.firstName = std::move(first);
        result.lastName = std::move(last);
        return result;
    };
    Client nameless = client(ClientKind::person, " ", "", "");
    nameless.number = "C-0001";
    Client reachable = nameless;
    reachable.email = "a@example.org";
    const Case cases[] = {
        {"an organisation", client(ClientKind::organization, " Acme ", "Ada", "Doe"), "Acme"},
        {"a person", client(ClientKind::person, "Acme", "Ada", "Doe"), "Ada Doe"},
        {"one name only", client(ClientKind::person, "", "", "Doe"), "Doe"},
        {"an organisation known by its person", client(ClientKind::organization, "", "Ada", ""), "Ada"},
        {"a person under a company's name", client(ClientKind::person, "Acme", "", ""), "Acme"},
        {"an email address", reachable, "a@example.org"},
        {"a number", nameless, "C-0001"},
        {"nothing", Client{}, ""},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(displayName(row.client), row.expected) << row.reason;
    }
}

TEST_F(DocumentContentsTest, remembersWhyADocumentIsNotTaxed)
{
    Document& invoice = document();
    EXPECT_EQ(taxTreatment(context, invoice), TaxTreatment::standard);
    setTaxTreatment(context, invoice, TaxTreatment::standard);
    EXPECT_EQ(context.count<DocumentTaxTreatment>(""), 0);
    invoice.taxExempt = true;
    EXPECT_EQ(taxTreatment(context, invoice), TaxTreatment::exempt);
    for (const TaxTreatment treatment :
         {TaxTreatment::reverseCharge, TaxTreatment::outsideEU, TaxTreatment::exempt, TaxTreatment::outsideEU}) {
        setTaxTreatment(context, invoice, treatment);
        EXPECT_EQ(taxTreatment(context, invoice), treatment);
    }
    EXPECT_EQ(context.count<DocumentTaxTreatment>(""), 1);
    invoice.taxExempt = false; // switched off elsewhere: the old reason doesn't count
    EXPECT_EQ(taxTreatment(context, invoice), TaxTreatment::standard);
}

} // namespace Quillary
