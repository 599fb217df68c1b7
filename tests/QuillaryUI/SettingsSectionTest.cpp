#include "QuillaryUI/Settings/SettingsSection.h"

#include "QuillaryCore/Assistant/Access/AssistantSettingsFile.h"
#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryCore/Letters/EmailTemplates.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Store/Context.h"
#include "tests/QuillaryUI/WindowLibrary.h"
#include "tests/Support/TempFolder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace Quillary {

namespace {

struct SettingsSectionTest : testing::Test, WindowLibrary
{
    SettingsSectionTest() { section.show(); }

    TempFolder folder;
    SettingsSection section{library,
                            {.assistantSettings = folder / "assistants.json",
                             .activityLog = folder / "assistants.log",
                             .assistantSetup = "{}"}};

    void type(const char* field, const char* text)
    {
        auto& line = child<QLineEdit>(section, field);
        line.setText(QString::fromUtf8(text));
        section.flush();
        settle();
    }
};

TEST_F(SettingsSectionTest, hasAFieldForEachSetting)
{
    for (const BusinessSettings::Entry& entry : BusinessSettings::all(library.environment())) {
        const QString field = QStringLiteral("field_") + text(entry.name);
        EXPECT_EQ(section.findChildren<QWidget*>(field).size(), entry.name == BusinessSettings::logo ? 0 : 1)
            << entry.name;
    }
}

TEST_F(SettingsSectionTest, changesOneByOneAndTellsWhatFollows)
{
    section.showPage("numbering");
    const std::string before = library.business().invoiceNumberFormat;
    type("field_invoice_number_format", "R-{yyyy}");
    EXPECT_EQ(library.business().invoiceNumberFormat, before);
    EXPECT_FALSE(child<QLabel>(section, "error_invoice_number_format").text().isEmpty());

    type("field_invoice_number_format", "R-{yyyy}-{####}");
    EXPECT_EQ(library.business().invoiceNumberFormat, "R-{yyyy}-{####}");
    EXPECT_TRUE(child<QLabel>(section, "error_invoice_number_format").text().isEmpty());
    EXPECT_TRUE(child<QLabel>(section, "note_invoice_number_format").text().startsWith("Next number: R-"));

    child<QLineEdit>(section, "field_invoice_number_format").setText("");
    QTest::keyClicks(&child<QLineEdit>(section, "field_invoice_number_format"), "{##}/A"); // before it is saved
    EXPECT_EQ(child<QLabel>(section, "note_invoice_number_format").text(), "Next number: 01/A");
    section.flush();
    type("field_next_invoice", "0");
    EXPECT_FALSE(child<QLabel>(section, "error_next_invoice").text().isEmpty());
    type("field_next_invoice", "42");
    EXPECT_EQ(child<QLabel>(section, "note_invoice_number_format").text(), "Next number: 42/A");

    auto& exempt = child<QCheckBox>(section, "field_tax_exempt");
    const bool wasExempt = library.business().taxExempt;
    exempt.click();
    EXPECT_EQ(library.business().taxExempt, !wasExempt);
    type("field_hourly_rate", "1250");
    EXPECT_EQ(library.business().hourlyRateMinorUnits, 125'000);
    EXPECT_EQ(child<QLineEdit>(section, "field_hourly_rate").text(), "1,250.00");

    library.context().undo(); // one step each
    settle();
    EXPECT_EQ(library.business().taxExempt, !wasExempt);
    library.context().undo();
    settle();
    EXPECT_EQ(library.business().taxExempt, wasExempt);
    EXPECT_EQ(exempt.isChecked(), wasExempt);
}

/// The sample's business pays in pounds.
TEST_F(SettingsSectionTest, tellsWhyNoPaymentCodeIsPrinted)
{
    section.showPage("bank");
    const auto hint = [this] {
        return child<QLabel>(section, "note_show_payment_qr_code").text();
    };
    child<QCheckBox>(section, "field_show_payment_qr_code").setChecked(true);
    settle();
    EXPECT_TRUE(hint().endsWith("Your invoices are usually in GBP: they don't get one."));
    library.context().edit(library.business()).currencyCode = "EUR";
    type("field_iban", "");
    EXPECT_TRUE(hint().endsWith("It isn't printed yet: your IBAN is missing."));
    type("field_iban", "DE89 3704 0044 0532 0130 00");
    EXPECT_TRUE(hint().endsWith("banking apps fill in the payment from it."));
    EXPECT_TRUE(child<QLabel>(section, "note_upi_id").text().endsWith("A UPI ID looks like name@bank."));
}

TEST_F(SettingsSectionTest, keepsTheUsersOwnWordsForAnEmail)
{
    const auto stored = [this](EmailKind kind) {
        return EmailTemplates::text(library.context(), kind, DocumentLanguage::english);
    };
    section.showPage("emails");
    section.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&section)); // the text that has the keyboard takes what is inserted
    auto& subject = child<QLineEdit>(section, "field_email_subject");
    EXPECT_EQ(utf8(subject.text()), stored(EmailKind::invoice).subject);
    child<QLineEdit>(section, "field_email_subject").setText("Your bill {foo} ");
    EXPECT_TRUE(child<QLabel>(section, "note_email_body").text().contains("{foo}"));
    auto& placeholders = child<QTableWidget>(section, "emailPlaceholders");
    subject.setFocus();
    placeholders.selectRow(int(placeholders.findItems("{number}", Qt::MatchExactly).front()->row()));
    subject.end(false);
    child<QPushButton>(section, "insertPlaceholder").click();
    EXPECT_EQ(subject.text(), "Your bill {foo} {number}");
    EXPECT_FALSE(child<QLabel>(section, "emailShownSubject").text().contains("{number}")); // before it is saved

    auto& kind = child<QComboBox>(section, "emailKind");
    kind.setCurrentIndex(kind.findData(int(EmailKind::quote))); // what was typed belongs to the invoice all the same
    Q_EMIT kind.activated(kind.currentIndex());
    EXPECT_EQ(stored(EmailKind::invoice).subject, "Your bill {foo} {number}");
    EXPECT_EQ(stored(EmailKind::quote), EmailTemplates::defaultText(EmailKind::quote, DocumentLanguage::english));
    EXPECT_FALSE(child<QPushButton>(section, "restoreEmailText").isEnabled());

    subject.setText(" ");
    section.flush();
    EXPECT_FALSE(child<QLabel>(section, "error_email_subject").text().isEmpty());
    QString failure;
    QObject::connect(&section, &Section::failed, [&](const QString& sentence) { failure = sentence; });
    const auto choose = [&](EmailKind wanted) {
        kind.setCurrentIndex(kind.findData(int(wanted)));
        Q_EMIT kind.activated(kind.currentIndex());
    };
    choose(EmailKind::invoice);
    EXPECT_TRUE(failure.startsWith("Not saved: Quote: An email needs a subject.")) << utf8(failure);
    EXPECT_EQ(subject.text(), "Your bill {foo} {number}");
    EXPECT_TRUE(child<QLabel>(section, "error_email_subject").isHidden());
    EXPECT_EQ(kind.itemText(kind.findData(int(EmailKind::quote))), "Quote (not saved)");
    choose(EmailKind::quote);
    EXPECT_EQ(subject.text(), " ");
    section.flush();
    EXPECT_FALSE(child<QLabel>(section, "error_email_subject").text().isEmpty());
    choose(EmailKind::invoice);
    child<QPushButton>(section, "restoreEmailText").click();
    EXPECT_EQ(utf8(subject.text()), EmailTemplates::defaultText(EmailKind::invoice, DocumentLanguage::english).subject);
}

TEST_F(SettingsSectionTest, keepsTheWordAboutAssistants)
{
    AssistantSettingsFile file(folder / "assistants.json");
    static_cast<void>(file.change([](AssistantSettings& settings) {
        settings.keepWaiting("Helper", Instant(std::chrono::seconds(1'700'000'000)));
    }));
    section.showPage("assistants");
    auto& known = child<QTableWidget>(section, "knownAssistants");
    ASSERT_EQ(known.rowCount(), 1);
    known.selectRow(0);
    child<QPushButton>(section, "allowAssistant").click();
    child<QCheckBox>(section, "assistantsOn").click();
    auto& access = child<QComboBox>(section, "assistantAccess");
    access.setCurrentIndex(0);
    Q_EMIT access.activated(0);

    const AssistantSettings settings = AssistantSettingsFile(folder / "assistants.json").current();
    EXPECT_TRUE(settings.isOn);
    EXPECT_EQ(settings.access, AssistantAccess::readOnly);
    ASSERT_NE(settings.find("Helper"), nullptr);
    EXPECT_EQ(settings.find("Helper")->approval, AssistantApproval::allowed);
}

} // namespace

} // namespace Quillary
