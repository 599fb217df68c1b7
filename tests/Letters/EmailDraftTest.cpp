#include "QuillaryCore/Letters/EmailDraft.h"

#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "tests/Letters/LetterLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EmailDraftTest : public testing::Test, protected LetterLibrary
{
protected:
    /// The text with the values of the invoice.
    std::string filled(std::string_view text, std::string_view name = "", const ReminderNotice* reminder = nullptr)
    {
        return EmailDraft::fill(
            text,
            EmailDraft::values(context,
                               {.document = invoice, .business = business, .recipientName = name, .reminder = reminder},
                               start,
                               calendar));
    }
};

} // namespace

TEST_F(EmailDraftTest, fillsInWhatTheDocumentSays)
{
    struct Case
    {
        std::string_view text;
        std::string_view expected;
    };
    const Case cases[] = {
        {"{name}, {client}: {document} {number}", "Acme, Acme: Rechnung 2025-001"},
        {"{Due_Date} {DATE}", "09.02.2025 26.01.2025"},
        {"{total} {amount_due}", "1.190,00\u00A0€ 1.190,00\u00A0€"},
        {"{business}{title}.", "Studio Nord."},
        {"{foo} {valid_until} {pay_by} {late_fee} {days_overdue}",
         "{foo} {valid_until} {pay_by} {late_fee} {days_overdue}"},
        {"{{number}} {number {number}", "{2025-001} {number 2025-001"},
        {"{", "{"},
        {"}{}", "}{}"},
        {"", ""},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(filled(row.text), row.expected) << row.text;
    }
    EXPECT_EQ(filled("{name}", " Eva {total}\n"), "Eva {total}") << "a value is no text to be filled";
    EXPECT_EQ(filled("{name}", " \n"), "Acme");
    invoice.dueDate.reset();
    EXPECT_EQ(filled("{due_date}"), "{due_date}");
}

TEST_F(EmailDraftTest, saysWhatAReminderAsksFor)
{
    constexpr std::string_view text = "{amount_due}, {late_fee}, {pay_by}, {days_overdue}";
    addReminder(context, invoice, ReminderLevel::first, 500, day(-20), day(-10));
    recordPayment(context, invoice, {.amountMinorUnits = 19'000, .date = day(-9), .note = {}});
    ReminderNotice notice{.details = {.level = ReminderLevel::second, .feeMinorUnits = 1'000, .payBy = day(7)},
                          .date = start};
    const std::string expected = "1.015,00\u00A0€, 10,00\u00A0€, 14.03.2025, 26";
    EXPECT_EQ(filled(text, "", &notice), expected);
    const Reminder& recorded = addReminder(context, invoice, ReminderLevel::second, 1'000, start, day(7));
    notice = recordedNotice(recorded);
    EXPECT_EQ(filled(text, "", &notice), expected) << "the fee of a recorded reminder is owed already";
}

TEST_F(EmailDraftTest, trimsTheSubjectAndLeavesTheBody)
{
    const EmailDraft::Values values = {{EmailPlaceholder::title, " "}, {EmailPlaceholder::number, "7"}};
    EXPECT_EQ(EmailDraft::fill(EmailText{" {title}\n", " {number}\n"}, values), (EmailText{"", " 7\n"}));
    EXPECT_THAT(EmailDraft::unfilled({"{Title} {date} {foo}", "{FOO} {} {a b} {date {Pay_by}"}, values),
                ElementsAre("{date}", "{foo}", "{Pay_by}"));
}

TEST_F(EmailDraftTest, takesListsOfAddressesApart)
{
    struct Case
    {
        std::string_view typed;
        std::vector<std::string> addresses;
        std::vector<std::string> invalid;
    };
    const Case cases[] = {
        {"", {}, {}},
        {" , ;\n", {}, {}},
        {"a@b.de", {"a@b.de"}, {}},
        {"a@b.de, c@d.example;e@f.org\ng@h.io i@j.eu", {"a@b.de", "c@d.example", "e@f.org", "g@h.io", "i@j.eu"}, {}},
        {"Eva <eva@b.de>, \"Weber, Anna\" < anna@b.de >", {"eva@b.de", "anna@b.de"}, {}},
        {"a@b.de A@B.DE", {"a@b.de"}, {}}, // one mailbox
        {"jörg@müller.example", {"jörg@müller.example"}, {}},
        {"a@b.c.de a@b..de", {"a@b.c.de", "a@b..de"}, {}},
        {"Eva Weber", {"Eva", "Weber"}, {"Eva", "Weber"}},
        {"a@b", {"a@b"}, {"a@b"}},
        {"a@b.d", {"a@b.d"}, {"a@b.d"}}, // a last label of one character
        {"a@b.ü", {"a@b.ü"}, {"a@b.ü"}}, // of one character in two bytes
        {"a@.de", {"a@.de"}, {"a@.de"}},
        {"@b.de", {"@b.de"}, {"@b.de"}},
        {"a@@b.de a@b@c.de", {"a@@b.de", "a@b@c.de"}, {"a@@b.de", "a@b@c.de"}},
        {"a@b.de.", {"a@b.de."}, {"a@b.de."}},
        {"a.b@c", {"a.b@c"}, {"a.b@c"}}, // the dot stands before the @
        {"a@b.de\u00A0x", {"a@b.de", "x"}, {"x"}},
        {"<a b@c.de>", {"a b@c.de"}, {"a b@c.de"}},
        {"\"a@b.de, c@d.de", {"\"a@b.de,", "c@d.de"}, {}}, // the quote is never closed
    };
    for (const Case& row : cases) {
        EXPECT_EQ(EmailDraft::addresses(row.typed), row.addresses) << row.typed;
        EXPECT_EQ(EmailDraft::invalidAddresses(row.typed), row.invalid) << row.typed;
    }
}

TEST_F(EmailDraftTest, offersTheClientThenItsPeople)
{
    EXPECT_THAT(EmailDraft::recipients(context, client), IsEmpty());
    const auto add = [this](std::string_view name, std::string_view email, std::int32_t sortIndex) {
        auto& contact = context.insert<ContactPerson>();
        contact.name = name;
        contact.email = email;
        contact.sortIndex = sortIndex;
        contact.client = client.ref;
    };
    add("Second", "second@acme.example", 2);
    add("First", "first@acme.example", 1);
    add("Nobody", "", 0);
    add("Twice", "OFFICE@acme.example", 3);
    add(" ", "nameless@acme.example", 4);
    client.email = "office@acme.example, accounts@acme.example";
    EXPECT_THAT(EmailDraft::recipients(context, client),
                ElementsAre(EmailRecipient{"Acme", "office@acme.example"},
                            EmailRecipient{"Acme", "accounts@acme.example"},
                            EmailRecipient{"First", "first@acme.example"},
                            EmailRecipient{"Second", "second@acme.example"},
                            EmailRecipient{"Acme", "nameless@acme.example"}));
}

} // namespace Quillary
