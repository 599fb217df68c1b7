// What comes up between the first invoice and the last, typed and clicked by somebody in front of the window.
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/RecurrenceUnit.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Clients/ClientsSection.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Schedules/RecurringModel.h"
#include "QuillaryUI/Schedules/TimeModel.h"
#include "tests/Quillary/WindowJourney.h"
#include "tests/QuillaryUI/PDFReading.h"

#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>

namespace Quillary {
namespace {

class DailyWorkJourneyTest : public WindowJourney
{
protected:
    void SetUp() override
    {
        desktop->window().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&desktop->window()));
        putOffFirstStart();
    }

    /// Where the keyboard is.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        desktop->window().activateWindow(); // a list of suggestions may have been in front
        ASSERT_TRUE(QTest::qWaitForWindowActive(&desktop->window()));
        QWidget* typedAt = QApplication::focusWidget();
        QTest::keyClick(typedAt != nullptr ? typedAt : &desktop->window(), key, modifiers);
        QCoreApplication::processEvents();
    }

    QString cell(const char* view, int row, int column)
    {
        return find<QAbstractItemView>(view).model()->index(row, column).data().toString();
    }

    int rows(const char* view) { return find<QAbstractItemView>(view).model()->rowCount(); }

    Client& addClient()
    {
        Client& client = context().insert<Client>();
        client.name = "Nordwind AG";
        client.hourlyRateMinorUnits = 80'00;
        return client;
    }

    std::int64_t billedEntries()
    {
        const auto entries = context().fetch<TimeEntry>("");
        return std::ranges::count_if(entries, [](const TimeEntry* entry) { return entry->invoiceID.has_value(); });
    }
};

TEST_F(DailyWorkJourneyTest, bringsOverAClientListAndTakesItBack)
{
    const auto list = folder.write("list.csv",
                                   "Kunde;Ort;Mitglied;Land\n"
                                   "Neue Kunst AG;Basel;x;Schweiz\n"
                                   "Nordwind AG;Hamburg;;Deutschland\n"
                                   ";Wels;;\n"
                                   "Otto & Co;Graz;Wien;Nirgendwo\n");
    static_cast<void>(desktop->library().perform("Client", [this] { addClient(); }));
    press(Qt::Key_6);
    auto& section = dynamic_cast<ClientsSection&>(*desktop->window().section("clients"));
    section.setFileChooser([&](QWidget*) { return text(list.string()); });
    click("importClients");
    const QAbstractItemModelTester preview(find<QTableView>("importRows").model());
    ASSERT_EQ(rows("importRows"), 4);
    EXPECT_EQ(cell("importRows", 1, 1), "Duplicate");
    EXPECT_EQ(cell("importRows", 2, 1), "Empty");
    EXPECT_TRUE(cell("importRows", 3, 4).contains("Nirgendwo")) << utf8(cell("importRows", 3, 4));
    EXPECT_EQ(cell("importRows", 3, 3), "Graz");
    choose("importColumn2", "City"); // which another column was thought to hold
    EXPECT_EQ(find<QComboBox>("importColumn1").currentText(), "–");
    EXPECT_EQ(cell("importRows", 3, 3), "Wien");
    EXPECT_EQ(find<QLabel>("importSummary").text(), "2 new, 1 already there, 1 empty");
    EXPECT_EQ(find<QPushButton>("sheetAnswer").text(), "Import 2 Clients");
    click("sheetAnswer");
    ASSERT_TRUE(comesTrue([&] { return rows("clientList") == 3; }));
    EXPECT_EQ(context().count<Client>("name = 'Otto & Co' AND city = 'Wien'"), 1);
    press(Qt::Key_Z); // whole, or not at all
    EXPECT_TRUE(comesTrue([&] { return rows("clientList") == 1; }));
    EXPECT_EQ(context().count<Client>(""), 1);
}

TEST_F(DailyWorkJourneyTest, billsWhatWasTimedAndTyped)
{
    static_cast<void>(desktop->library().perform("Client", [this] { addClient(); }));
    press(Qt::Key_8);
    const QAbstractItemModelTester days(find<QTableView>("timeList").model());
    type("timerNote", "Proofs");
    pickClient("timerClient", "nord");
    click("timerButton");
    ASSERT_TRUE(comesTrue([&] { return find<QPushButton>("timerButton").text() == "Stop"; }));
    EXPECT_TRUE(comesTrue([&] { return find<QLabel>("timerClock").text() != "0:00:00"; }));
    click("timerButton");
    ASSERT_TRUE(comesTrue([&] { return rows("timeList") == 2; })); // the day and the entry

    click("addTime");
    type("timeSpan", "soon");
    QTest::keyClick(&find<QLineEdit>("timeSpan"), Qt::Key_Return);
    EXPECT_TRUE(find<QLabel>("sheetError").text().contains("soon"));
    type("timeSpan", "1h 10m");
    pickClient("timeClient", "nord");
    type("timeNote", "Layout");
    QTest::keyClick(&find<QLineEdit>("timeNote"), Qt::Key_Return);
    ASSERT_TRUE(comesTrue([&] { return context().count<TimeEntry>("note = 'Layout'") == 1; }));
    ASSERT_TRUE(comesTrue([&] { return desktop->window().findChild<QWidget*>("timeSpan") == nullptr; }));

    click("invoiceTime");
    EXPECT_EQ(find<QLineEdit>("billedClient").text(), "Nordwind AG");
    choose("billedGrouping", "Each");
    choose("billedRounding", "15");
    click("sheetAnswer");
    ASSERT_TRUE(comesTrue([&] { return context().count<Document>("cachedNetMinorUnits = 12000") == 1; }));
    EXPECT_EQ(billedEntries(), 2);
    const Document* draft = context().first<Document>("");
    EXPECT_EQ(draft->client, context().first<Client>("")->ref);
    EXPECT_EQ(context().count<LineItem>("unitPriceMinorUnits = 8000 AND quantityThousandths IN (250, 1250)"), 2);

    ASSERT_TRUE(comesTrue([&] { return find<QPushButton>("editDraft", invoices()).isVisible(); }));
    QTest::mouseClick(&find<QPushButton>("editDraft", invoices()), Qt::LeftButton);
    ASSERT_TRUE(comesTrue([&] { return rows("lines") == 3; })); // and the one that invites
    clickRow("lines", cell("lines", 0, LinesModel::quantity) == "0.25" ? 0 : 1);
    press(Qt::Key_Delete, Qt::NoModifier);
    EXPECT_TRUE(comesTrue([&] { return context().count<LineItem>("") == 1; }));
    EXPECT_TRUE(comesTrue([&] { return billedEntries() == 1; }));
    EXPECT_EQ(context().first<Document>("")->cachedNetMinorUnits, 100'00);
}

TEST_F(DailyWorkJourneyTest, looksAfterARecurringInvoice)
{
    static_cast<void>(desktop->library().perform("Template", [this] {
        Document& monthly = context().insert<Document>();
        monthly.kindRaw = static_cast<std::int16_t>(DocumentKind::recurring);
        monthly.title = "Hosting";
        monthly.currencyCode = "EUR";
        monthly.client = addClient().ref;
        monthly.recurrenceUnitRaw = static_cast<std::int16_t>(RecurrenceUnit::month);
        monthly.issueDate = desktop->library().now();
        monthly.nextIssueDate = monthly.issueDate;
        LineItem& line = context().insert<LineItem>();
        line.document = monthly.ref;
        line.quantityThousandths = 1'000;
        line.unitPriceMinorUnits = 40'00;
    }));
    press(Qt::Key_5);
    ASSERT_TRUE(comesTrue([&] { return rows("recurringList") == 1; }));
    clickRow("recurringList", 0);
    press(Qt::Key_Return, Qt::NoModifier); // its price has risen
    ASSERT_TRUE(comesTrue([&] { return rows("lines") == 2; }));
    EXPECT_FALSE(find<QWidget>("issue_date").isVisible());
    find<QAbstractItemView>("lines").model()->setData(
        find<QAbstractItemView>("lines").model()->index(0, LinesModel::price), QStringLiteral("45"));
    press(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_TRUE(find<QTableView>("recurringList").isVisible());
    const Document& monthly = *context().first<Document>("");
    EXPECT_EQ(monthly.cachedNetMinorUnits, 45'00);
    EXPECT_EQ(monthly.number, "");

    static_cast<void>(desktop->library().perform("Client", [this] { // and its client was made anew
        context().erase(*context().first<Client>(""));
        addClient().city = "Hamburg";
    }));
    ASSERT_TRUE(comesTrue([&] { return cell("recurringList", 0, RecurringModel::stateColumn) == "Can't be made"; }));
    const QSize usual = desktop->window().size();
    EXPECT_TRUE(comesTrue([this] { // a common screen at twice its scale
        desktop->window().resize(960, 540);
        return desktop->window().height() == 540;
    }));
    click("scheduleRecurring");
    const auto& sheet = find<QWidget>("sheet");
    EXPECT_LT(sheet.geometry().bottom(), sheet.parentWidget()->height());
    desktop->window().resize(usual);
    pickClient("recurringClient", "nord");
    choose("recurringUnit", "weeks");
    EXPECT_FALSE(find<QWidget>("recurringDay").isVisible());
    EXPECT_TRUE(find<QLabel>("recurringPreview").text().startsWith("Every week: "));
    click("sheetAnswer");
    ASSERT_TRUE(comesTrue([&] { return cell("recurringList", 0, RecurringModel::stateColumn) == "Active"; }));
    click("makeRecurringNow");
    ASSERT_TRUE(
        comesTrue([&] { return context().count<Document>("kindRaw = 0 AND cachedNetMinorUnits = 4500") == 1; }));
    EXPECT_EQ(context().find(context().first<Document>("kindRaw = 0")->client)->city, "Hamburg");

    QTimer asked;
    asked.callOnTimeout([&] {
        if (auto* yes = desktop->window().findChild<QPushButton*>("deleteRecurringYes")) {
            yes->click();
        }
    });
    asked.start(10);
    clickRow("recurringList", 0);
    press(Qt::Key_Delete, Qt::NoModifier);
    EXPECT_TRUE(comesTrue([&] { return rows("recurringList") == 0; }));
    EXPECT_EQ(context().count<Document>(""), 1) << "the invoice stays";
    press(Qt::Key_Z);
    EXPECT_TRUE(comesTrue([&] { return rows("recurringList") == 1; }));
    EXPECT_EQ(context().count<LineItem>("unitPriceMinorUnits = 4500"), 2);
}

TEST_F(DailyWorkJourneyTest, remindsOfAnInvoice)
{
    static_cast<void>(desktop->library().perform("Late invoice", [this] {
        context().edit(desktop->library().business()).name = "Atelier Hain";
        Document& invoice = context().insert<Document>();
        invoice.number = "R-2026-7";
        invoice.statusRaw = static_cast<std::int16_t>(DocumentStatus::sent);
        invoice.currencyCode = "EUR";
        invoice.client = addClient().ref;
        invoice.cachedTotalMinorUnits = 119'00;
        invoice.issueDate = desktop->library().now() - std::chrono::days(26);
        invoice.dueDate = desktop->library().now() - std::chrono::days(12);
        LineItem& line = context().insert<LineItem>();
        line.document = invoice.ref;
        line.quantityThousandths = 1'000;
        line.unitPriceMinorUnits = 119'00;
    }));
    ASSERT_TRUE(comesTrue([&] { return rows("documentList") == 1; }));
    clickRow("documentList", 0);
    press(Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(find<QComboBox>("reminderLevel").currentText(), "Payment Reminder");
    choose("reminderLevel", "Second");
    type("reminderFee", "much");
    click("sheetAnswer");
    EXPECT_TRUE(find<QLabel>("sheetError").text().startsWith("Write the fee as a number"));
    type("reminderFee", "7.50");
    auto& payBy = find<QDateEdit>("reminderPayBy");
    const QDate offered = payBy.date();
    payBy.setFocus(Qt::TabFocusReason);
    payBy.setSelectedSection(QDateEdit::YearSection);
    QTest::keyClick(&payBy, Qt::Key_Up);
    const QDate deadline = payBy.date();
    EXPECT_EQ(deadline.year(), offered.year() + 1);
    click("sheetAnswer");
    EXPECT_EQ(context().count<Reminder>(""), 0) << "its letter isn't there yet";

    const std::string letter = comingFile(".pdf");
    const auto pages = pageTexts(Bytes(letter.begin(), letter.end()));
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_NE(pages.front().find("R-2026-7"), std::string::npos);
    EXPECT_NE(pages.front().find("126.50"), std::string::npos); // with the fee
    ASSERT_TRUE(comesTrue([&] { return context().count<Reminder>("") == 1; }));
    const Reminder& reminder = *context().first<Reminder>("");
    EXPECT_EQ(reminder.level, 2);
    EXPECT_EQ(reminder.feeMinorUnits, 7'50);
    EXPECT_EQ(desktop->library().formats().qDate(*reminder.payBy), deadline);
    EXPECT_EQ(context().first<Document>("")->cachedLateFeesMinorUnits, 7'50);
}

} // namespace
} // namespace Quillary
