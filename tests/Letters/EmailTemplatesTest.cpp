#include "QuillaryCore/Letters/EmailTemplates.h"

#include "QuillaryCore/Letters/EmailDraft.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/EmailTemplate.h"
#include "tests/Model/TestLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace Quillary {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EmailTemplatesTest : public testing::Test, protected TestLibrary
{
protected:
    static constexpr auto kind = EmailKind::reminder;
    static constexpr auto language = DocumentLanguage::french;

    [[nodiscard]] std::vector<const EmailTemplate*> rows() { return context.fetch<EmailTemplate>(""); }

    void set(const EmailText& text)
    {
        EmailTemplates::set(context, text, kind, language);
        context.save();
    }
};

} // namespace

TEST_F(EmailTemplatesTest, keepsWhatDiffersFromTheBuiltInText)
{
    const EmailText own{"Facture {number}", "Bonjour\n\n{name}"};
    set(own);
    EXPECT_TRUE(EmailTemplates::isCustomized(context, kind, language));
    EXPECT_EQ(EmailTemplates::text(context, kind, language), own);
    EXPECT_FALSE(EmailTemplates::isCustomized(context, kind, DocumentLanguage::german)) << "only in its language";
    EXPECT_FALSE(EmailTemplates::isCustomized(context, EmailKind::secondReminder, language)) << "only of its kind";
    ASSERT_EQ(rows().size(), 1U);
    EXPECT_EQ(rows().front()->kindRaw, 11);
    EXPECT_EQ(rows().front()->languageCode, "fr");

    clock.set(start + std::chrono::hours(1));
    set(own);
    EXPECT_EQ(rows().front()->modifiedAt, start) << "the words are the same";
    set({own.subject, "Bonjour"});
    EXPECT_EQ(rows().front()->modifiedAt, start + std::chrono::hours(1));
    ASSERT_EQ(rows().size(), 1U);

    set(EmailTemplates::defaultText(kind, language));
    EXPECT_FALSE(EmailTemplates::isCustomized(context, kind, language));
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(EmailTemplatesTest, usesTheFirstOfSeveralRowsAndClearsTheOthersAway)
{
    for (const std::string_view subject : {"first", "second", "third"}) {
        auto& row = context.insert<EmailTemplate>();
        row.kindRaw = 11;
        row.languageCode = "fr";
        row.subject = subject;
    }
    auto& foreign = context.insert<EmailTemplate>();
    foreign.kindRaw = 3; // no kind of email has this number
    foreign.languageCode = "fr";
    context.save();
    EXPECT_EQ(EmailTemplates::text(context, kind, language).subject, "first");
    set({"first", ""}); // what the first row says already
    ASSERT_EQ(rows().size(), 2U);
    EXPECT_EQ(rows().front()->modifiedAt, std::nullopt);
    for (const EmailKind each : allEmailKinds) {
        EXPECT_EQ(EmailTemplates::isCustomized(context, each, language), each == kind);
    }
    EXPECT_EQ(emailKindFromRaw(3), std::nullopt);

    EmailTemplates::restoreDefault(context, kind, language);
    EXPECT_EQ(EmailTemplates::text(context, kind, language), EmailTemplates::defaultText(kind, language));
    EXPECT_EQ(rows().size(), 1U);
}

/// What is offered for a kind fills everything that its built-in texts ask for, and nothing is said twice.
TEST_F(EmailTemplatesTest, buildsInWhatCanBeFilled)
{
    Business business;
    business.currencyCode = "EUR";
    business.countryCode = "DE";
    std::set<std::string> bodies;
    for (const EmailKind each : allEmailKinds) {
        for (const DocumentLanguage spoken : allDocumentLanguages) {
            const EmailText& text = EmailTemplates::defaultText(each, spoken);
            const auto values = EmailDraft::sampleValues(each, spoken, business, start, Calendar("UTC"));
            EXPECT_THAT(EmailDraft::unfilled(text, values), IsEmpty()) << text.subject;
            const EmailText filled = EmailDraft::fill(text, values);
            EXPECT_EQ(filled.subject.find_first_of("{}"), std::string::npos) << filled.subject;
            EXPECT_EQ(filled.body.find_first_of("{}"), std::string::npos) << filled.body;
            EXPECT_EQ(values.size(), available(each).size()) << text.subject;
            EXPECT_EQ(text.body.contains("{pay_by}"), reminderLevel(each).has_value()) << text.subject;
            EXPECT_TRUE(bodies.insert(text.body).second) << text.body;
            if (spoken == DocumentLanguage::french) { // a colon stands apart and never begins a line
                EXPECT_FALSE(text.subject.contains(" :")) << text.subject;
                EXPECT_EQ(text.subject.contains(':'), text.subject.contains("\u00A0:")) << text.subject;
            }
        }
    }
}

TEST(EmailPlaceholderTest, offersWhatAnEmailCanSay)
{
    using enum EmailPlaceholder;
    EXPECT_THAT(available(EmailKind::quote),
                ElementsAre(name, client, document, number, title, total, date, validUntil, business));
    EXPECT_THAT(available(EmailKind::invoice),
                ElementsAre(name, client, document, number, title, total, date, dueDate, amountDue, business));
    EXPECT_THAT(available(EmailKind::creditNote),
                ElementsAre(name, client, document, number, title, total, date, dueDate, business));
    for (const EmailKind kind : {EmailKind::reminder, EmailKind::secondReminder, EmailKind::finalNotice}) {
        EXPECT_THAT(available(kind),
                    ElementsAre(name,
                                client,
                                document,
                                number,
                                title,
                                total,
                                date,
                                dueDate,
                                amountDue,
                                payBy,
                                lateFee,
                                daysOverdue,
                                business));
    }
    for (const EmailPlaceholder placeholder : allEmailPlaceholders) {
        EXPECT_EQ(emailPlaceholder(id(placeholder)), placeholder);
        EXPECT_EQ(token(placeholder), "{" + std::string(id(placeholder)) + "}");
    }
    EXPECT_EQ(emailPlaceholder("Due_DATE"), dueDate);
    EXPECT_EQ(emailPlaceholder("duedate"), std::nullopt);
}

} // namespace Quillary
