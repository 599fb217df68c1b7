// A person at the window, with the real library, service and page engine; only the screen is missing.
#include "tests/Quillary/WindowJourney.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Statement.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryUI/Documents/DocumentListModel.h"
#include "QuillaryUI/Documents/DocumentPane.h"
#include "QuillaryUI/Documents/DocumentsSection.h"
#include "QuillaryUI/Documents/DraftEditor.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Paper/PaperView.h"
#include "QuillaryUI/Settings/DataPage.h"
#include "tests/Store/FullDisk.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QProcessEnvironment>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace Quillary {
namespace {

class WindowJourneyTest : public WindowJourney
{
protected:
    void typeCell(int row, int column, const QString& text)
    {
        auto& table = find<QTableView>("lines", invoices());
        table.setCurrentIndex(table.model()->index(row, column));
        table.edit(table.currentIndex());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the editor before it
        const auto editors = table.findChildren<QLineEdit*>();
        ASSERT_FALSE(editors.empty());
        QLineEdit* editor = editors.back();
        editor->selectAll();
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Tab);
        QCoreApplication::processEvents();
    }
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

TEST_F(WindowJourneyTest, staysWithAnOldDraftWhileTheListIsReadAnew)
{
    constexpr int documents = 300; // more than are read at once
    putOffFirstStart();
    auto& section = dynamic_cast<DocumentsSection&>(*invoices());
    desktop->window().showSection("invoices");
    const auto listed = [&section] {
        return section.findChild<DocumentListModel*>()->rowCount();
    };
    const auto add = [this](int count) {
        static_cast<void>(desktop->library().perform("Many", [&] {
            for (int number = 0; number < count; ++number) {
                context().insert<Document>().issueDate = desktop->library().now() - std::chrono::days(number);
            }
        }));
    };
    add(documents);
    ASSERT_TRUE(comesTrue([&] { return listed() == documents; }));
    const std::int64_t oldest = section.findChild<DocumentListModel*>()->key(documents - 1);
    section.showDocument(oldest);
    section.pane().beginEditing();
    const AssistantEnvironment given = desktop->library().environment();
    desktop->library().close(); // a command borrows it
    desktop->library().open(given);
    EXPECT_LT(listed(), documents);
    EXPECT_EQ(find<QLabel>("listFooter", &section).text(), QString()); // no sum of a part
    add(1);                                                            // while the rest is being read
    EXPECT_TRUE(comesTrue([&] { return listed() == documents + 1; }));
    EXPECT_TRUE(find<QLabel>("listFooter", &section).text().startsWith("301 documents"));
    EXPECT_EQ(section.pane().document(), oldest);
    EXPECT_TRUE(find<DraftEditor>("draftEditor", &section).isVisible());
}

TEST_F(WindowJourneyTest, losesNothingToACrash)
{
    const QString typed = QStringLiteral("Typed a moment before");
    if (lentHome != nullptr) { // the process that is going to die: it types, and then nobody touches it
        putOffFirstStart();
        QTest::mouseClick(&find<QPushButton>("newDocument", invoices()), Qt::LeftButton);
        QTest::keyClicks(&find<QLineEdit>("title", invoices()), typed);
        QTimer::singleShot(4 * patience, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
        return;
    }
    TempFolder elsewhere;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(QString::fromLatin1(homeVariable), QString::fromStdString(elsewhere.path().string()));
    QProcess other;
    other.setProcessEnvironment(variables);
    other.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    other.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_filter=WindowJourneyTest.losesNothingToACrash")});
    const auto library = elsewhere.path() / desk.environment->libraryFolder().lexically_relative(home);
    const auto isSaved = [&] {
        try {
            Store store =
                Store::openReadOnly(Store::Location::directory(library), DataModel::records(), DataModel::history());
            Context reader(store, desk.environment->clock(), desk.environment->uuids());
            return reader.count<Document>("title = ?", utf8(typed)) == 1;
        } catch (const UserError&) { // it isn't made yet, or is being made
            return false;
        }
    };
    EXPECT_TRUE(comesTrue([&] { return isSaved() || other.state() == QProcess::NotRunning; }));
    ASSERT_EQ(other.state(), QProcess::Running);
    other.kill();
    ASSERT_TRUE(other.waitForFinished(patience));
    EXPECT_EQ(other.exitStatus(), QProcess::CrashExit);

    Store store(Store::Location::directory(library),
                DataModel::records(),
                DataModel::history(),
                desk.environment->clock(),
                desk.environment->uuids());
    Context context(store, desk.environment->clock(), desk.environment->uuids());
    EXPECT_EQ(context.count<Document>("title = ?", utf8(typed)), 1);
    Statement check(store.connection(), "PRAGMA integrity_check");
    ASSERT_TRUE(check.step());
    EXPECT_EQ(check.text(0), "ok");
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
    EXPECT_TRUE(comesTrue([&] { return !find<DraftEditor>("draftEditor", invoices()).isVisible(); }));

    QTest::mouseClick(&find<QPushButton>("nextStep", invoices()), Qt::LeftButton);
    auto& amount = find<QLineEdit>("paymentAmount");
    EXPECT_EQ(amount.text(), QStringLiteral("1,363.74"));
    QTest::keyClick(&amount, Qt::Key_Return);
    EXPECT_EQ(status(*context().first<Document>("")), DocumentStatus::paid);
    EXPECT_EQ(context().count<Payment>("amountMinorUnits = 136374"), 1);
}

TEST_F(WindowJourneyTest, showsThePageThatChangesFirstAndThenTheWhole)
{
    putOffFirstStart();
    QTest::mouseClick(&find<QPushButton>("newDocument", invoices()), Qt::LeftButton);
    QString lines = QStringLiteral("Description\tQty\tPrice\n");
    for (int line = 1; line <= 90; ++line) {
        lines += QStringLiteral("Design %1\t2\t95.50\n").arg(line);
    }
    auto& table = find<QTableView>("lines", invoices());
    table.setCurrentIndex(table.model()->index(0, 0));
    QApplication::clipboard()->setText(lines);
    QTest::keySequence(&table, QKeySequence::Paste);
    auto& paper = find<PaperView>("paper", invoices());
    ASSERT_TRUE(comesTrue([&] { return paper.pageCount() > 3; }));

    const auto rest = [&paper] { // what was typed before is saved, and printed
        Bytes before;
        do {
            before = paper.pdf();
            QTest::qWait(800);
        } while (paper.pdf() != before);
    };
    const auto expectAhead = [&](int page, QWidget& field) {
        rest();
        const Bytes before = paper.pdf();
        QTest::keyClick(&field, Qt::Key_A);
        EXPECT_TRUE(comesTrue([&] { return paper.pagePDF(page) != before; })) << page;
        EXPECT_EQ(paper.pdf(), before) << "the whole takes longer";
        EXPECT_TRUE(comesTrue([&] { return paper.pdf() != before; })) << page;
        EXPECT_EQ(paper.pagePDF(page), paper.pdf());
    };
    expectAhead(0, find<QPlainTextEdit>("intro", invoices()));
    while (!paper.shows(2)) {
        ASSERT_LT(paper.verticalScrollBar()->value(), paper.verticalScrollBar()->maximum());
        paper.verticalScrollBar()->setValue(paper.verticalScrollBar()->value() + 100);
    }
    table.setCurrentIndex(table.model()->index(55, LinesModel::description));
    table.edit(table.currentIndex());
    expectAhead(2, *table.findChildren<QLineEdit*>().back());
    const int place = paper.verticalScrollBar()->value();
    expectAhead(2, *table.findChildren<QLineEdit*>().back()); // from the layout of the print before
    EXPECT_EQ(paper.verticalScrollBar()->value(), place);

    paper.verticalScrollBar()->setValue(0); // what changes is out of sight: the whole alone
    rest();
    const Bytes before = paper.pdf();
    QTest::keyClick(table.findChildren<QLineEdit*>().back(), Qt::Key_B);
    EXPECT_TRUE(comesTrue([&] { return paper.pagePDF(2) != before; }));
    EXPECT_NE(paper.pdf(), before);
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

TEST_F(WindowJourneyTest, typesPastesAndArrangesAQuoteThatBecomesAnInvoice)
{
    putOffFirstStart();
    desktop->show("quotes");
    QWidget* quotes = desktop->window().section(QStringLiteral("quotes"));
    desktop->window().section(QStringLiteral("quotes"))->makeNew();
    const Ref<Document> quote = context().first<Document>("")->ref;
    const auto net = [&] {
        return context().find(quote)->cachedNetMinorUnits;
    };
    const auto editor = [&]() -> DraftEditor& {
        return find<DraftEditor>("draftEditor", quotes);
    };
    const auto place = [&](const char* title) {
        return context().first<LineItem>("title = ?", std::string(title))->sortIndex;
    };

    auto& table = find<QTableView>("lines", quotes);
    table.setCurrentIndex(table.model()->index(0, 0));
    QApplication::clipboard()->setText(QStringLiteral("Pos\tBezeichnung\tMenge\tEinheit\tPreis\n"
                                                      "1\tKonzept\t2\tStunden\t95,50 €\n"
                                                      "2\tSatz\t1\tStunde\t1.250,00\n"));
    QTest::keySequence(&table, QKeySequence::Paste);
    EXPECT_EQ(net(), 144'100);
    table.setCurrentIndex(table.model()->index(1, 0));
    QTest::keyClick(&table, Qt::Key_Up, Qt::AltModifier);
    EXPECT_LT(place("Satz"), place("Konzept"));
    auto* numbers = table.verticalHeader(); // dragged below the next one
    numbers->moveSection(0, 1);
    EXPECT_TRUE(comesTrue([&] { return place("Konzept") < place("Satz"); }));
    EXPECT_EQ(numbers->visualIndex(1), 1);
    table.setCurrentIndex(table.model()->index(1, 0));
    QTest::keyClick(&table, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(context().count<LineItem>("title = 'Satz' AND parent <> 0"), 1);

    // A cell that is being typed into is safe, too.
    table.setCurrentIndex(table.model()->index(2, 0));
    table.edit(table.currentIndex());
    QTest::keyClicks(table.findChildren<QLineEdit*>().back(), QStringLiteral("Druck"));
    EXPECT_TRUE(comesTrue([&] { return context().count<LineItem>("title = 'Druck'") == 1; }));
    EXPECT_FALSE(table.findChildren<QLineEdit*>().empty());
    QTest::keyClick(table.findChildren<QLineEdit*>().back(), Qt::Key_Escape);
    EXPECT_EQ(context().count<LineItem>(""), 3);
    table.edit(table.model()->index(2, 0)); // and what is taken back isn't saved
    QTest::keyClicks(table.findChildren<QLineEdit*>().back(), QStringLiteral("Nothing"));
    QTest::keyClick(table.findChildren<QLineEdit*>().back(), Qt::Key_Escape);
    editor().flush();
    EXPECT_EQ(context().count<LineItem>("title = 'Druck'"), 1);

    auto& fees = find<QTableView>("fees", quotes);
    fees.model()->setData(fees.model()->index(0, 0), QStringLiteral("Shipping"));
    fees.model()->setData(fees.model()->index(0, 1), QStringLiteral("12,50"));
    EXPECT_EQ(net(), 145'350);
    auto& discounts = find<QTableView>("discounts", quotes);
    const auto typeDiscount = [&](int row, int column, const char* typed) {
        discounts.model()->setData(discounts.model()->index(row, column), QString::fromLatin1(typed));
    };
    typeDiscount(0, 1, "10%");
    typeDiscount(1, 0, "Loyalty");
    typeDiscount(1, 1, "41");
    EXPECT_EQ(net(), 126'840);
    typeDiscount(0, 1, "many"); // stays as it is
    EXPECT_FALSE(find<QLabel>("discountsError", quotes).text().isEmpty());
    discounts.setCurrentIndex(discounts.model()->index(1, 0));
    QTest::keyClick(&discounts, Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(discounts.model()->index(0, 0).data().toString(), QStringLiteral("Loyalty"));
    typeDiscount(0, 1, "20%"); // a percentage in place of the amount
    QTest::keyClick(&discounts, Qt::Key_Delete);
    EXPECT_EQ(net(), 130'940);

    // The page shows what is typed before it is saved, and looking changes nothing.
    const auto lastStep = context().undoName();
    QTest::keyClicks(&find<QLineEdit>("title", quotes), QStringLiteral("Relaunch"));
    const std::optional<PageJob> page = editor().typedPage();
    ASSERT_TRUE(page);
    EXPECT_NE(page->html.find("Relaunch"), std::string::npos);
    EXPECT_EQ(context().find(quote)->title, "");
    EXPECT_EQ(context().undoName(), lastStep);
    find<QToolButton>("moreFields", quotes).click();
    QTest::keyClicks(&find<QLineEdit>("tags", quotes), QStringLiteral("web, print"));
    EXPECT_TRUE(comesTrue([&] { return context().find(quote)->tags == "web,print"; }));
    EXPECT_EQ(context().find(quote)->title, "Relaunch");

    find<QWidget>("documentPane", quotes).findChild<QAction*>(QStringLiteral("makeInvoice"))->trigger();
    const Document* invoice = context().first<Document>("kindRaw = 0");
    ASSERT_NE(invoice, nullptr);
    EXPECT_EQ(invoice->cachedNetMinorUnits, 130'940);
    auto& related = find<QLabel>("relatedDocuments", invoices());
    EXPECT_TRUE(related.text().contains(QStringLiteral("Quote")));
    Q_EMIT related.linkActivated(QString::number(quote.key()));
    EXPECT_TRUE(quotes->isVisible());
}

TEST_F(WindowJourneyTest, goesOnAfterAFailureInTheEventLoop)
{
    QTimer::singleShot(0, qApp, [] { throw UserError("The disk can't be read."); });
    EXPECT_TRUE(
        comesTrue([&] { return find<QLabel>("warningText").text() == QStringLiteral("The disk can't be read."); }));
}

TEST_F(WindowJourneyTest, keepsATextWithItsDocument)
{
    putOffFirstStart();
    auto* section = desktop->window().section(QStringLiteral("invoices"));
    section->makeNew();
    const std::int64_t first = context().first<Document>("")->ref.key();
    auto& title = find<QLineEdit>("title", invoices());
    title.setFocus();
    auto& terms = find<QSpinBox>("payment_terms_days", invoices()); // as the settings have them, until they are touched
    EXPECT_EQ(terms.accessibleDescription(), QStringLiteral("Filled in"));
    EXPECT_EQ(title.accessibleDescription(), QString());
    terms.stepUp();
    EXPECT_EQ(terms.accessibleDescription(), QString());
    terms.stepDown(); // the same again, but now it is the user's
    find<DraftEditor>("draftEditor", invoices()).flush();
    QCoreApplication::processEvents();
    EXPECT_EQ(terms.accessibleDescription(), QString());
    QTest::keyClicks(&title, QStringLiteral("First "));
    EXPECT_TRUE(comesTrue([&] { return context().first<Document>("")->title == "First"; }));
    EXPECT_EQ(title.text(), QStringLiteral("First ")); // the blank before the next word
    section->makeNew();
    EXPECT_EQ(title.text(), QString()); // nothing of the other one
    context().undo();
    context().undo();
    EXPECT_TRUE(comesTrue([&] { return context().find(Ref<Document>(first))->title.empty(); }));
}

TEST_F(WindowJourneyTest, keepsWhatTheDiskHasNoRoomForUntilThereIsSome)
{
    putOffFirstStart();
    auto& section = dynamic_cast<DocumentsSection&>(*invoices());
    section.makeNew();
    QCoreApplication::processEvents();
    const Ref<Document> other = context().first<Document>("")->ref;
    section.makeNew();
    QCoreApplication::processEvents();
    const Ref<Document> draft(section.pane().document());
    auto& title = find<QLineEdit>("title", invoices());
    auto& waiting = find<QLabel>("notSavedYet", invoices());
    const auto asksBeforeItCloses = [this] {
        bool isAsked = false;
        QTimer::singleShot(0, qApp, [&] {
            auto* question = desktop->window().findChild<QMessageBox*>(QStringLiteral("notSavedQuestion"));
            isAsked = question != nullptr;
            question->button(QMessageBox::Cancel)->click();
        });
        return !desktop->window().close() && isAsked;
    };
    {
        const FullDisk disk(0);
        QTest::keyClicks(&title, QStringLiteral("Relaunch"));
        typeCell(0, LinesModel::description, QStringLiteral("Concept"));
        typeCell(0, LinesModel::price, QStringLiteral("250")); // of a line that isn't there yet
        EXPECT_TRUE(find<QLabel>("totals", invoices()).text().contains(QStringLiteral("250.00")));
        section.flush();
        EXPECT_TRUE(waiting.isVisible() && waiting.text().contains(QStringLiteral("is full")));
        EXPECT_TRUE(find<QLabel>("warningText").text().contains(QStringLiteral("kept here")));

        section.showDocument(other.key());
        section.pane().beginEditing();
        EXPECT_EQ(title.text(), QString());
        section.showDocument(draft.key());
        section.pane().beginEditing();
        EXPECT_EQ(title.text(), QStringLiteral("Relaunch"));
        section.showDocument(other.key());

        EXPECT_TRUE(asksBeforeItCloses());
        EXPECT_EQ(context().find(draft)->title, "");
    }
    EXPECT_TRUE(comesTrue([&] { return context().find(draft)->title == "Relaunch"; })); // by itself
    EXPECT_EQ(context().find(draft)->cachedNetMinorUnits, 25'000);
    EXPECT_EQ(context().find(other)->title, "");
    EXPECT_TRUE(section.unsavedWork().isEmpty());

    auto* catalog = desktop->window().section(QStringLiteral("catalog"));
    catalog->makeNew();
    find<QLineEdit>("field_name", catalog).clear(); // which is refused
    EXPECT_TRUE(asksBeforeItCloses());
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
