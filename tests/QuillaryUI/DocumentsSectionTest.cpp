#include "QuillaryUI/Documents/DocumentsSection.h"

#include "QuillaryCore/Documents/SavedViews.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Search/LibrarySearch.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryUI/Documents/RemindersModel.h"
#include "QuillaryUI/Documents/SelectionPane.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "tests/Assistant/AssistantLibrary.h"
#include "tests/Support/TempFolder.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QCheckBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <fmt/format.h>

#include <filesystem>
#include <functional>
#include <string>
#include <utility>

namespace Quillary {
namespace {

namespace fs = std::filesystem;

/// Prints a few bytes, a little later.
class QuickPress final : public PagePress
{
public:
    void press(PageJob /*job*/, PrintReply reply) override
    {
        count += 1;
        PrintResult result = PrintedPDF{Bytes{'%', 'P', 'D', 'F'}, 1};
        if (failsEveryThird && count % 3 == 0) {
            result = PrintError(PrintError::Reason::timedOut, "The page took too long.");
        }
        QTimer::singleShot(0, qApp, [reply = std::move(reply), result] { reply(result); });
    }
    void pressPage(PageJob job, LonePage /*page*/, PrintReply reply) override
    {
        press(std::move(job), std::move(reply));
    }
    PagePicture picture(const Bytes& /*pdf*/, int /*pageIndex*/, int /*pixelWidth*/) override { return {}; }
    void warmUp() override {}
    void warmUpForPages() override {}

    int count = 0;
    bool failsEveryThird = false;
};

/// Five invoices of a client and one of another: two drafts, one due soon, three overdue.
class DocumentsSectionTest : public testing::Test
{
protected:
    DocumentsSectionTest()
    {
        client.name = "Aurora";
        client.email = "office@aurora.example";
        other.name = "Birk";
        add(0, 3);
        add(0, 4).client = other.ref;
        add(1, 5);
        add(1, -3);
        add(1, -4);
        add(1, -5);
        samples.context.save();
        samples.host.downloads = folder.path();
        AssistantEnvironment environment = samples.environment(&samples.host);
        environment.search = &search;
        library.open(environment);
        section.selectionPane().setFolderChooser(
            [this](QWidget* /*parent*/) { return QString::fromStdString(folder.path().string()); });
        QObject::connect(&section, &Section::told, [this](const QString& sentence) { told = sentence; });
        QObject::connect(&section, &Section::failed, [this](const QString& sentence) { told = sentence; });
        section.resize(1'200, 800); // never on a screen, so that no page is printed beside those that are saved
    }

    ~DocumentsSectionTest() override { library.close(); }

    Document& add(std::int16_t status, int dueInDays)
    {
        Document& document = samples.context.insert<Document>();
        document.number = fmt::format("N-{}", ++count);
        document.statusRaw = status;
        document.currencyCode = "EUR";
        document.client = client.ref;
        document.cachedTotalMinorUnits = 100'00;
        document.dueDate = samples.clock.now() + std::chrono::days(dueInDays);
        LineItem& line = samples.context.insert<LineItem>();
        line.document = document.ref;
        line.quantityThousandths = 1'000;
        line.unitPriceMinorUnits = 100'00;
        return document;
    }

    static bool comesTrue(const std::function<bool()>& condition)
    {
        QElapsedTimer time;
        time.start();
        constexpr int patience = 5'000;
        while (!condition() && time.elapsed() < patience) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
        return condition();
    }

    template <class T>
    T& child(const char* name)
    {
        T* found = section.findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    int shown() { return child<QTableView>("documentList").model()->rowCount(); }

    void run(const char* action)
    {
        told.clear();
        child<QAction>(action).trigger();
    }

    /// The command of the menu that keeps views.
    void chooseView(const char* command)
    {
        auto& menu = *child<QPushButton>("savedViews").menu();
        Q_EMIT menu.aboutToShow();
        for (QAction* action : menu.actions()) {
            if (action->objectName() == QString::fromLatin1(command) ||
                action->text() == QString::fromLatin1(command)) {
                action->trigger();
                return;
            }
        }
        ADD_FAILURE() << command;
    }

    std::size_t files(const std::string& name)
    {
        std::size_t found = 0;
        for (const auto& entry : fs::directory_iterator(folder.path())) {
            found += entry.path().filename().string().find(name) != std::string::npos ? 1U : 0U;
        }
        return found;
    }

    TempFolder folder;
    AssistantLibrary samples;
    int count = 0;
    Client& client = samples.context.insert<Client>();
    Client& other = samples.context.insert<Client>();
    LibrarySearch search{samples.context};
    QuickPress press;
    LibraryAccess library{press, Formats(Locale("en_GB"), Calendar("Europe/Berlin"))};
    DocumentsSection section{library, DocumentKind::invoice};
    QString told;
};

TEST_F(DocumentsSectionTest, narrowsTheListAndKeepsViews)
{
    ASSERT_EQ(shown(), 6);
    section.setDueWithin(7);
    EXPECT_EQ(shown(), 1); // neither drafts nor what is overdue
    section.setView({.client = other.ref.key()});
    EXPECT_EQ(shown(), 1);
    child<QPushButton>("filterChip").click();
    EXPECT_EQ(shown(), 6);

    section.setView({.status = DisplayStatus::overdue, .sortColumn = DocumentRows::Column::dueDate});
    chooseView("keepView");
    child<QLineEdit>("viewName").setText(QStringLiteral("Late"));
    child<QPushButton>("sheetAnswer").click();
    EXPECT_TRUE(comesTrue([&] { return child<QPushButton>("savedViews").text() == QStringLiteral("Late"); }));
    section.setView({});
    EXPECT_EQ(shown(), 6);
    chooseView("Late");
    EXPECT_EQ(shown(), 3);
    EXPECT_EQ(section.view().sortColumn, DocumentRows::Column::dueDate);
    section.setView({.status = DisplayStatus::draft});
    chooseView("keepView");
    child<QLineEdit>("viewName").setText(QStringLiteral("Drafts"));
    child<QPushButton>("sheetAnswer").click();
    ASSERT_TRUE(comesTrue([&] { return child<QPushButton>("savedViews").text() == QStringLiteral("Drafts"); }));
    chooseView("moveViewUp");
    EXPECT_EQ(SavedViews::of(samples.context, DocumentKind::invoice).front()->name, "Drafts");
    chooseView("deleteView");
    chooseView("Late");
    chooseView("deleteView");
    EXPECT_TRUE(SavedViews::of(samples.context, DocumentKind::invoice).empty());
    samples.context.undo();
    EXPECT_EQ(SavedViews::of(samples.context, DocumentKind::invoice).size(), 1U);
}

TEST_F(DocumentsSectionTest, doesTheSameToSeveralDocuments)
{
    section.setView({.status = DisplayStatus::draft});
    auto& table = child<QTableView>("documentList");
    table.selectAll();
    EXPECT_EQ(child<QLabel>("selectionHeading").text(), QStringLiteral("2 invoices"));
    EXPECT_TRUE(child<QAction>("deleteAll").isVisible());
    EXPECT_FALSE(child<QAction>("remindAll").isVisible());
    table.selectRow(0);
    EXPECT_EQ(child<QPushButton>("nextStep").shortcut(), QKeySequence(QStringLiteral("Ctrl+Return")));
    table.selectAll();
    run("statusAll0"); // mark as sent
    EXPECT_TRUE(comesTrue([&] { return told == QStringLiteral("Mark as Sent: 2 documents."); })) << utf8(told);
    EXPECT_EQ(samples.context.count<Document>("statusRaw = 1"), 6);
    EXPECT_EQ(samples.context.undoName(), std::nullopt); // they are with the client

    section.setView({});
    QCoreApplication::processEvents();
    table.selectAll();
    run("statusAll1"); // mark as paid
    EXPECT_TRUE(comesTrue([&] { return told == QStringLiteral("Mark as Paid: 6 documents."); })) << utf8(told);
    EXPECT_EQ(samples.context.count<Payment>("amountMinorUnits = 10000"), 6);
    samples.context.undo(); // all at once
    EXPECT_EQ(samples.context.count<Payment>(""), 0);

    QCoreApplication::processEvents();
    table.selectAll();
    press.failsEveryThird = true;
    run("saveAll");
    EXPECT_TRUE(comesTrue([&] { return told.startsWith(QStringLiteral("4 PDFs were saved")); })) << utf8(told);
    EXPECT_EQ(files(".pdf"), 4U); // of six, two failed
    EXPECT_EQ(child<QPlainTextEdit>("runFailures").toPlainText().count(QStringLiteral("The page took too long.")), 2);
}

TEST_F(DocumentsSectionTest, remindsOfSeveralInvoicesAtOnce)
{
    section.setView({.status = DisplayStatus::overdue});
    child<QTableView>("documentList").selectAll();
    run("remindAll");
    auto& model = *section.findChild<RemindersModel*>();
    const QAbstractItemModelTester tester(&model);
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.sendable().size(), 3U);
    child<QCheckBox>("remindersEmail").setChecked(true);
    { // paid while the sheet is open
        auto scope = samples.context.beginScope("elsewhere");
        samples.context.edit(*samples.context.first<Document>("number = 'N-4'")).statusRaw = 2;
        scope.commit();
    }
    child<QPushButton>("sheetAnswer").click();
    EXPECT_TRUE(comesTrue([&] { return told.startsWith(QStringLiteral("2 reminders are recorded")); })) << utf8(told);
    EXPECT_EQ(samples.context.count<Reminder>(""), std::int64_t(files(".pdf"))); // a letter for each, and no other
    EXPECT_EQ(child<QPlainTextEdit>("runFailures").toPlainText().count(QStringLiteral("N-4")), 1);
    ASSERT_TRUE(samples.host.mail); // the letter goes with it, under its own name
    EXPECT_EQ(samples.host.mail->to.front().address, "office@aurora.example");
    EXPECT_EQ(files(samples.host.mail->attachments.front().name), 1U);
    EXPECT_NE(samples.host.mail->body.find("N-"), std::string::npos);
}

} // namespace
} // namespace Quillary
