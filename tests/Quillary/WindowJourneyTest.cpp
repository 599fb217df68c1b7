// A person at the window, with the real library, service and page engine; only the screen is missing.
#include "tests/Quillary/WindowJourney.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryUI/Documents/DocumentListModel.h"
#include "QuillaryUI/Documents/DocumentPane.h"
#include "QuillaryUI/Documents/DocumentsSection.h"
#include "QuillaryUI/Documents/DraftEditor.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Paper/PaperView.h"
#include "QuillaryUI/Settings/DataPage.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

namespace Quillary {
namespace {

class WindowJourneyTest : public WindowJourney
{
};

TEST_F(WindowJourneyTest, readsTheFiguresBesideTheWindowAndFollowsTheLibrary)
{
    putOffFirstStart();
    const auto shown = [this] {
        const auto* figure = desktop->window().findChild<QAbstractButton*>("figure3");
        return figure == nullptr ? QString() : figure->accessibleName();
    };
    desktop->window().showSection("overview");
    EXPECT_EQ(shown(), QString()); // nothing has been read while the section was being shown
    EXPECT_TRUE(comesTrue([&] { return shown().contains("Nothing is overdue"); }));
    static_cast<void>(desktop->library().perform("Late invoice", [&] {
        Document& invoice = context().insert<Document>();
        invoice.statusRaw = static_cast<std::int16_t>(DocumentStatus::sent);
        invoice.currencyCode = "USD";
        invoice.cachedTotalMinorUnits = 11900;
        invoice.dueDate = desktop->library().now() - std::chrono::days(12);
    }));
    EXPECT_TRUE(comesTrue([&] { return shown() == "Overdue: $119.00, 1 invoice"; }));
    static_cast<void>(desktop->library().perform("Another currency", [&] {
        Document& invoice = context().insert<Document>();
        invoice.statusRaw = static_cast<std::int16_t>(DocumentStatus::sent);
        invoice.currencyCode = "CHF";
        invoice.cachedTotalMinorUnits = 5000;
    }));
    auto& currency = find<QComboBox>("overviewCurrency");
    ASSERT_TRUE(comesTrue([&] { return currency.count() == 2; }));
    for (const int place : {0, 1}) { // the second is chosen while the first is still being read
        currency.setCurrentIndex(place);
        Q_EMIT currency.activated(place);
    }
    const auto owed = [this] {
        return find<QLabel>("agingSum").text();
    };
    EXPECT_TRUE(comesTrue([&] { return owed().contains("50.00") && currency.currentText() == "CHF"; }));

    // A command borrows the library while it is read, and gives it back damaged.
    Q_EMIT currency.activated(0);
    const AssistantEnvironment given = desktop->library().environment();
    desktop->library().close();
    given.context.store().connection().execute("ALTER TABLE Payment RENAME TO Lost");
    desktop->library().open(given);
    auto& failure = find<QLabel>("overviewFailure");
    EXPECT_TRUE(comesTrue([&] { return failure.isVisible() && !find<QWidget>("figures").isVisible(); }));
    desktop->library().close();
    given.context.store().connection().execute("ALTER TABLE Lost RENAME TO Payment");
    desktop->library().open(given);
    EXPECT_TRUE(comesTrue([&] { return !failure.isVisible() && owed().contains("50.00"); }));
    desktop->library().close(); // a reading that goes on is waited for
}

TEST_F(WindowJourneyTest, restoresABackupAndKeepsTheLibraryAsItWas)
{
    putOffFirstStart();
    const auto nameClient = [this](const char* name) {
        static_cast<void>(desktop->library().perform("Client", [&] { context().insert<Client>().name = name; }));
    };
    nameClient("Before");
    desktop->window().showSection("settings");
    auto* settings = desktop->window().section("settings");
    settings->showPage("data");
    auto& page = find<DataPage>("dataPage");
    auto& backups = find<QTableWidget>("backups");
    int asked = 0;
    page.setAsker([&](QWidget*, const QString&) { return ++asked > 1; });
    std::vector<QString> told;
    QObject::connect(&page, &Section::told, &page, [&](const QString& sentence) { told.push_back(sentence); });
    QObject::connect(&page, &Section::failed, &page, [&](const QString& sentence) { told.push_back(sentence); });
    const auto hears = [&](const char* words) {
        return comesTrue([&] { return !told.empty() && told.back().contains(QString::fromUtf8(words)); });
    };
    find<QPushButton>("backUpNow").click();
    ASSERT_TRUE(hears("Made Quillary Backup"));
    nameClient("After");
    const auto restore = [&](int row) {
        backups.selectRow(row);
        find<QPushButton>("restoreBackup").click();
    };
    restore(0); // the answer is no
    EXPECT_EQ(context().count<Client>(""), 2);
    restore(0);
    ASSERT_TRUE(hears("is kept as Quillary Before Restore"));
    EXPECT_EQ(context().count<Client>(""), 1);
    nameClient("Afterwards"); // the library is in use again
    restore(0);               // the newest is what was there before
    ASSERT_TRUE(
        comesTrue([&] { return desktop->library().isOpen() && context().count<Client>("name = 'After'") == 1; }));

    folder.write("broken.sqlite", "no library");
    page.setFileChooser(
        [this](QWidget*, const QString&) { return QString::fromStdString((folder / "broken.sqlite")); });
    ASSERT_TRUE(comesTrue([&] { return find<QPushButton>("restoreFile").isEnabled(); }));
    find<QPushButton>("restoreFile").click();
    ASSERT_TRUE(hears("the library is as it was"));
    EXPECT_EQ(context().count<Client>(""), 2);
    nameClient("Later");
    EXPECT_EQ(context().count<Client>(""), 3);
}

TEST_F(WindowJourneyTest, makesSendsAndCollectsAnInvoice)
{
    putOffFirstStart();
    const QAbstractItemModelTester listTester(invoices()->findChild<DocumentListModel*>());
    ASSERT_EQ(context().count<Document>(""), 0);
    QTest::mouseClick(&find<QPushButton>("newDocument", invoices()), Qt::LeftButton);
    ASSERT_EQ(context().count<Document>(""), 1);
    const QAbstractItemModelTester linesTester(invoices()->findChild<LinesModel*>());

    // A client that isn't there yet, made on the way.
    auto& client = find<QLineEdit>("client", invoices());
    QTest::keyClicks(&client, QStringLiteral("Nordwind AG"));
    QTest::keyClick(QApplication::activePopupWidget() != nullptr ? QApplication::activePopupWidget() : &client,
                    Qt::Key_Return);
    ASSERT_TRUE(
        comesTrue([&] { return !invoices()->findChildren<QLineEdit*>(QStringLiteral("client_city")).empty(); }));
    QTest::keyClicks(&find<QLineEdit>("client_city"), QStringLiteral("Hamburg"));
    QTest::keyClick(&find<QLineEdit>("client_city"), Qt::Key_Return);
    ASSERT_TRUE(comesTrue([&] { return context().count<Client>("name = 'Nordwind AG' AND city = 'Hamburg'") == 1; }));

    typeCell(0, LinesModel::description, QStringLiteral("Website design"));
    typeCell(0, LinesModel::quantity, QStringLiteral("3*4"));
    typeCell(0, LinesModel::price, QStringLiteral("nothing")); // kept out, and told
    EXPECT_TRUE(find<QLabel>("linesError", invoices()).text().contains(QStringLiteral("nothing")));
    typeCell(0, LinesModel::price, QStringLiteral("95.50"));
    typeCell(0, LinesModel::tax, QStringLiteral("19"));
    const Document* invoice = context().first<Document>("");
    EXPECT_EQ(invoice->cachedTotalMinorUnits, 136'374);
    EXPECT_TRUE(find<QLabel>("totals", invoices()).text().contains(QStringLiteral("1,363.74")));

    // What is typed into a text is saved by itself.
    QTest::keyClicks(&find<QLineEdit>("title", invoices()), QStringLiteral("Relaunch"));
    EXPECT_TRUE(comesTrue([&] { return context().first<Document>("")->title == "Relaunch"; }));
    EXPECT_TRUE(comesTrue([&] { return !find<PaperView>("paper", invoices()).pdf().empty(); }));

    QTest::mouseClick(&find<QPushButton>("nextStep", invoices()), Qt::LeftButton);
    EXPECT_EQ(status(*context().first<Document>("")), DocumentStatus::sent);
    EXPECT_TRUE(desktop->window().statusBar()->currentMessage().contains("something is missing: ")); // who invoices
    EXPECT_TRUE(comesTrue([&] { return !find<DraftEditor>("draftEditor", invoices()).isVisible(); }));

    QTest::mouseClick(&find<QPushButton>("nextStep", invoices()), Qt::LeftButton);
    auto& amount = find<QLineEdit>("paymentAmount");
    EXPECT_EQ(amount.text(), QStringLiteral("1,363.74"));
    QTest::keyClick(&amount, Qt::Key_Return);
    EXPECT_EQ(status(*context().first<Document>("")), DocumentStatus::paid);
    EXPECT_EQ(context().count<Payment>("amountMinorUnits = 136374"), 1);
}

TEST_F(WindowJourneyTest, asksANewUserForTheFewFactsOfAnInvoice)
{
    auto& first = find<QWidget>("firstStart");
    EXPECT_TRUE(comesTrue([&] { return !find<PaperView>("paper", &first).pdf().empty(); })); // their own first invoice
    QTest::keyClicks(&find<QLineEdit>("first_name"), QStringLiteral("Atelier Hain"));
    QTest::keyClicks(&find<QLineEdit>("first_iban"), QStringLiteral("DE00 1234"));
    QTest::mouseClick(&find<QPushButton>("firstStartDone"), Qt::LeftButton);
    EXPECT_TRUE(find<QLabel>("firstStartError").text().contains(QStringLiteral("IBAN"), Qt::CaseInsensitive));
    EXPECT_EQ(desktop->library().business().name, ""); // all or nothing
    find<QLineEdit>("first_iban").clear();
    QTest::mouseClick(&find<QPushButton>("firstStartDone"), Qt::LeftButton);
    EXPECT_EQ(desktop->library().business().name, "Atelier Hain");
    EXPECT_TRUE(comesTrue([&] { return find<QPushButton>("newDocument", invoices()).isVisible(); }));
}

TEST_F(WindowJourneyTest, undoesAndShowsWhatOthersChange)
{
    putOffFirstStart();
    QTest::mouseClick(&find<QPushButton>("newDocument", invoices()), Qt::LeftButton);
    auto& list = find<QTableView>("documentList", invoices());
    EXPECT_TRUE(comesTrue([&] { return list.model()->rowCount() == 1; }));
    QTest::keyClicks(&find<QLineEdit>("title", invoices()), QStringLiteral("A"));
    EXPECT_TRUE(comesTrue([&] { return context().first<Document>("")->title == "A"; }));
    context().undo();
    EXPECT_EQ(context().first<Document>("")->title, "");

    // An assistant, or a command, changes the library beside the window.
    {
        auto scope = context().beginScope("elsewhere");
        context().edit(*context().first<Document>("")).number = "FROM-OUTSIDE";
        scope.commit();
    }
    EXPECT_TRUE(
        comesTrue([&] { return list.model()->index(0, 0).data().toString() == QStringLiteral("FROM-OUTSIDE"); }));
}

TEST_F(WindowJourneyTest, takesAQuoteToAnEmailAnInvoiceAndPaper)
{
    putOffFirstStart();
    desktop->show("quotes");
    desktop->window().section(QStringLiteral("quotes"))->makeNew();
    QWidget* quotes = desktop->window().section(QStringLiteral("quotes"));
    {
        auto scope = context().beginScope("a client");
        Client& client = context().insert<Client>();
        client.name = "Nordwind AG";
        client.email = "office@nordwind.example";
        context().edit(*context().first<Document>("")).client = client.ref;
        scope.commit();
    }

    // The email: what the template says, as it was changed here, with the PDF.
    find<QWidget>("documentPane", quotes).findChild<QAction*>(QStringLiteral("email"))->trigger();
    EXPECT_EQ(find<QLineEdit>("emailTo").text(), QStringLiteral("office@nordwind.example"));
    find<QLineEdit>("emailTo").setText(QStringLiteral("nobody"));
    QTest::mouseClick(&find<QPushButton>("sheetAnswer"), Qt::LeftButton);
    EXPECT_TRUE(find<QLabel>("sheetError").text().contains(QStringLiteral("nobody")));
    find<QLineEdit>("emailTo").setText(QStringLiteral("boss@nordwind.example"));
    find<QLineEdit>("emailSubject").setText(QStringLiteral("Our offer"));
    QTest::mouseClick(&find<QPushButton>("sheetAnswer"), Qt::LeftButton);
    const std::string mail = comingFile(".eml");
    EXPECT_NE(mail.find("boss@nordwind.example"), std::string::npos);
    EXPECT_NE(mail.find("Our offer"), std::string::npos);
    EXPECT_NE(mail.find("application/pdf"), std::string::npos);

    find<QWidget>("documentPane", quotes).findChild<QAction*>(QStringLiteral("print"))->trigger();
    auto& dialog = find<QPrintDialog>("printDialog");
    dialog.printer()->setOutputFileName(text((folder / "paper.pdf").string()));
    dialog.done(QDialog::Accepted); // as its button does after it has asked the printer's own questions
    EXPECT_TRUE(comingFile("paper.pdf").starts_with("%PDF"));
}

TEST_F(WindowJourneyTest, goesOnAfterAFailureInTheEventLoop)
{
    QTimer::singleShot(0, qApp, [] { throw UserError("The disk can't be read."); });
    EXPECT_TRUE(
        comesTrue([&] { return find<QLabel>("warningText").text() == QStringLiteral("The disk can't be read."); }));
}

TEST_F(WindowJourneyTest, asksAboutANewAssistantAndTakesTheQuestionBack)
{
    ApprovalAnswer answered = ApprovalAnswer::undecided;
    auto question = desktop->asker().ask("Helper <b>", [&](ApprovalAnswer answer) { answered = answer; });
    const auto dialog = [] {
        QMessageBox* open = nullptr;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* box = qobject_cast<QMessageBox*>(widget); box != nullptr && box->isVisible()) {
                open = box;
            }
        }
        return open;
    };
    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(dialog()->text().contains(QStringLiteral("Helper <b>")));
    EXPECT_EQ(dialog()->textFormat(), Qt::PlainText);
    QTest::mouseClick(dialog()->buttons().front(), Qt::LeftButton);
    EXPECT_EQ(answered, ApprovalAnswer::allow);

    answered = ApprovalAnswer::undecided;
    question = desktop->asker().ask("Second", [&](ApprovalAnswer answer) { answered = answer; });
    question.reset();
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_EQ(answered, ApprovalAnswer::undecided);
}

} // namespace
} // namespace Quillary
