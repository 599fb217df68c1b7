// Somebody at the editor of a draft, with the real library, service and page engine; only the screen is missing.
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Statement.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryUI/Documents/DocumentListModel.h"
#include "QuillaryUI/Documents/DocumentPane.h"
#include "QuillaryUI/Documents/DocumentsSection.h"
#include "QuillaryUI/Documents/DraftEditor.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Paper/PaperView.h"
#include "tests/Quillary/WindowJourney.h"
#include "tests/Store/FullDisk.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QProcessEnvironment>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace Quillary {
namespace {

class EditorJourneyTest : public WindowJourney
{
};

TEST_F(EditorJourneyTest, staysWithAnOldDraftWhileTheListIsReadAnew)
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

TEST_F(EditorJourneyTest, losesNothingToACrash)
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
                {QStringLiteral("--gtest_filter=EditorJourneyTest.losesNothingToACrash")});
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

TEST_F(EditorJourneyTest, showsThePageThatChangesFirstAndThenTheWhole)
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

TEST_F(EditorJourneyTest, typesPastesAndArrangesAQuoteThatBecomesAnInvoice)
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

TEST_F(EditorJourneyTest, keepsATextWithItsDocument)
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

TEST_F(EditorJourneyTest, keepsWhatTheDiskHasNoRoomForUntilThereIsSome)
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

} // namespace
} // namespace Quillary
