#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Search/LibrarySearch.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryUI/Charts/BarChart.h"
#include "QuillaryUI/Library/BesideReader.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Main/MainWindow.h"
#include "QuillaryUI/Overview/FigureButton.h"
#include "QuillaryUI/Overview/OverviewSection.h"
#include "QuillaryUI/Reports/ReportsSection.h"
#include "QuillaryUI/Schedules/RecurringModel.h"
#include "QuillaryUI/Schedules/RecurringSection.h"
#include "tests/Assistant/AssistantLibrary.h"
#include "tests/Support/TempFolder.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace Quillary {
namespace {

/// Prints a few bytes at once, and remembers what was to be printed.
class QuickPress final : public PagePress
{
public:
    void press(PageJob job, PrintReply reply) override
    {
        last = std::move(job);
        reply(PrintedPDF{Bytes{'%', 'P', 'D', 'F'}, 1});
    }
    void pressPage(PageJob job, LonePage /*page*/, PrintReply reply) override
    {
        press(std::move(job), std::move(reply));
    }
    PagePicture picture(const Bytes& /*pdf*/, int /*pageIndex*/, int /*pixelWidth*/) override { return {}; }
    void warmUp() override {}
    void warmUpForPages() override {}

    PageJob last;
};

/// An open library, on the disk, with an overdue invoice, a draft, a template and a client with an hourly rate.
class FiguresAndTimeTest : public testing::Test
{
protected:
    FiguresAndTimeTest()
    {
        client = &samples.context.insert<Client>();
        client->name = "Aurora";
        client->hourlyRateMinorUnits = 9'000;
        add(DocumentKind::invoice, 1, 119'00, -12);
        add(DocumentKind::invoice, 0, 42'00, 3);
        Document& monthly = add(DocumentKind::recurring, 0, 10'00, 0);
        monthly.title = "Hosting";
        monthly.recurrenceUnitRaw = 1;
        monthly.nextIssueDate = samples.clock.now() + std::chrono::days(14);
        samples.context.save();
        samples.host.downloads = folder.path();
        search = std::make_unique<LibrarySearch>(samples.context);
        AssistantEnvironment environment = samples.environment(&samples.host);
        environment.search = search.get();
        library.open(environment);
    }

    ~FiguresAndTimeTest() override { library.close(); }

    Document& add(DocumentKind kind, std::int16_t status, std::int64_t total, int dueInDays)
    {
        Document& document = samples.context.insert<Document>();
        document.kindRaw = static_cast<std::int16_t>(kind);
        document.statusRaw = status;
        document.currencyCode = "EUR";
        document.client = client->ref;
        document.cachedNetMinorUnits = total;
        document.cachedTotalMinorUnits = total;
        document.issueDate = samples.clock.now() + std::chrono::days(dueInDays - 14);
        document.dueDate = samples.clock.now() + std::chrono::days(dueInDays);
        return document;
    }

    static bool comesTrue(const std::function<bool()>& condition)
    {
        QElapsedTimer time;
        time.start();
        constexpr int patience = 5'000;
        while (!condition() && time.elapsed() < patience) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        return condition();
    }

    template <class T>
    static T& child(QWidget& parent, const char* name)
    {
        T* found = parent.findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    TempFolder folder;
    AssistantLibrary samples{Store::Location::directory(folder / "Library")};
    Client* client = nullptr;
    std::unique_ptr<LibrarySearch> search;
    QuickPress press;
    LibraryAccess library{press, Formats(Locale("en_GB"), Calendar("Europe/Berlin"))};
};

TEST_F(FiguresAndTimeTest, figuresLeadToTheirListsAndFollowTheLibrary)
{
    OverviewSection overview(library);
    std::optional<DisplayStatus> wanted;
    QObject::connect(&overview, &OverviewSection::wantedDocuments, [&](DocumentKind kind, DisplayStatus status) {
        wanted = kind == DocumentKind::invoice ? std::optional(status) : std::nullopt;
    });
    overview.show();
    const auto overdue = [&]() -> FigureButton& {
        return child<FigureButton>(overview, "figure3");
    };
    EXPECT_TRUE(comesTrue([&] {
        return overview.findChild<FigureButton*>("figure3") != nullptr &&
               overdue().accessibleName() == "Overdue: €119.00, 1 invoice";
    }));
    overdue().click();
    EXPECT_EQ(wanted, DisplayStatus::overdue);

    EXPECT_FALSE(library.perform("Delete", [&] {
        for (const Document* open : samples.context.fetch<Document>("kindRaw = 0 AND statusRaw = 1")) {
            samples.context.erase(*open);
        }
    }));
    EXPECT_TRUE(comesTrue([&] { return overdue().accessibleName() == "Overdue: €0.00, Nothing is overdue"; }));
    EXPECT_EQ(child<QLabel>(overview, "overviewOwed").text(), "Nothing is owed to you.");
}

TEST_F(FiguresAndTimeTest, reportsAreSavedAndPrintedAndAFailureIsNoReport)
{
    ReportsSection reports(library);
    reports.show();
    QTableView& table = child<QTableView>(reports, "reportTable");
    const QAbstractItemModelTester tester(table.model());
    reports.showReport(ReportOrder::Kind::aging);
    ASSERT_TRUE(comesTrue([&] { return table.model()->rowCount() == 2; }));
    EXPECT_EQ(table.model()->index(1, table.model()->columnCount() - 1).data().toString(), "€119.00");

    QString told;
    QObject::connect(&reports, &Section::told, [&](const QString& sentence) { told = sentence; });
    const auto run = [&](const char* action) {
        child<QAction>(reports, action).trigger();
        return told;
    };
    EXPECT_EQ(run("saveCSV"), "Saved as " + text((folder.path() / "Aging Report.csv").string()));
    EXPECT_EQ(run("savePDF"), "Saved as " + text((folder.path() / "Aging Report.pdf").string()));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "Aging Report.pdf"));
    EXPECT_EQ(press.last.title, "Open invoices on 17 Mar 2026");
    EXPECT_NE(press.last.html.find(R"(<tr class="total"><td>Total</td><td class="num">1</td>)"), std::string::npos);
    EXPECT_EQ(press.last.pageLabel, "Page {page} of {pages}");
    const BarChart& chart = child<BarChart>(reports, "reportChart");
    EXPECT_TRUE(chart.isVisible());
    EXPECT_EQ(chart.accessibleDescription(), "1–30 days, Overdue: €119.00");

    samples.store.connection().execute("ALTER TABLE Document RENAME TO Lost");
    reports.showReport(ReportOrder::Kind::invoices);
    EXPECT_TRUE(comesTrue(
        [&] { return child<QLabel>(reports, "reportMessage").text().startsWith("The report could not be read."); }));
    EXPECT_EQ(table.model()->rowCount(), 0);
    EXPECT_FALSE(child<QPushButton>(reports, "saveReport").isEnabled());
    EXPECT_FALSE(child<QAction>(reports, "print").isEnabled());
    EXPECT_FALSE(chart.isVisible());
    samples.store.connection().execute("ALTER TABLE Lost RENAME TO Document");
    child<QPushButton>(reports, "readAgain").click();
    EXPECT_TRUE(comesTrue([&] { return table.model()->rowCount() > 0; }));
}

TEST_F(FiguresAndTimeTest, onlyTheReportWishedForLastIsShown)
{
    ReportsSection reports(library);
    reports.show();
    QStringList shown;
    QObject::connect(child<QTableView>(reports, "reportTable").model(), &QAbstractItemModel::modelReset, [&] {
        shown.push_back(child<QLabel>(reports, "reportHeading").text());
    });
    QComboBox& period = child<QComboBox>(reports, "reportPeriod");
    for (const char* words : {"last-year", "all", "last-month"}) {
        period.setCurrentIndex(period.findData(QString::fromLatin1(words)));
        Q_EMIT period.activated(period.currentIndex());
    }
    child<QAction>(reports, "saveCSV").trigger(); // before it is there
    EXPECT_TRUE(comesTrue([&] { return !shown.empty(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(shown, QStringList{"Tax report by invoice date, 1 Feb 2026 – 28 Feb 2026, EUR"});
    EXPECT_TRUE(std::filesystem::exists(folder / "Tax Report 2026-02-01 to 2026-02-28.csv"));
}

TEST_F(FiguresAndTimeTest, nobodyReadsALibraryThatIsGivenAway)
{
    BesideReader reader(library);
    int answers = 0;
    std::atomic<bool> isReading = false;
    reader.read<int>(
        [&](const AssistantEnvironment& environment) {
            isReading = true;
            environment.context.query(
                "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT sum(i) FROM n",
                [](const Statement&) {});
            return 1;
        },
        [&](int) { answers += 1; });
    ASSERT_TRUE(comesTrue([&] { return isReading.load(); }));
    library.close(); // comes back
    EXPECT_FALSE(reader.isReading());
    library.open(samples.environment(&samples.host));
    reader.read<int>([](const AssistantEnvironment&) { return 2; }, [&](int answer) { answers += answer; });
    EXPECT_TRUE(comesTrue([&] { return !reader.isReading(); }));
    EXPECT_EQ(answers, 2);
}

TEST_F(FiguresAndTimeTest, marksARecurringInvoiceThatCannotBeMade)
{
    Document& monthly = samples.context.edit(*samples.context.first<Document>("kindRaw = 3"));
    const auto change = [&](Ref<Client> whose) {
        EXPECT_FALSE(library.perform("Change", [&] {
            samples.context.edit(monthly).client = whose;
            samples.context.edit(monthly).nextIssueDate = samples.clock.now();
        }));
    };
    change({});
    ProgramPlaces places;
    places.lock = folder / "lock.json";
    places.now = [this] {
        return samples.clock.now();
    };
    MainWindow window(library, places);
    window.showSection("invoices");
    window.warnOfRecurring("One can't be made.", monthly.ref.key());
    child<QToolButton>(window, "warningShow").click();
    RecurringSection& recurring = child<RecurringSection>(window, "recurring");
    EXPECT_TRUE(child<QWidget>(window, "warning").isHidden());
    QAbstractItemModel& list = *child<QTableView>(recurring, "recurringList").model();
    const QAbstractItemModelTester tester(&list);
    const auto state = [&] {
        return list.index(0, RecurringModel::stateColumn).data().toString();
    };
    const QLabel& owed = child<QLabel>(recurring, "recurringOwed");
    QPushButton& make = child<QPushButton>(recurring, "makeRecurringNow");
    EXPECT_EQ(state(), "Can't be made");
    EXPECT_TRUE(owed.text().endsWith("Its client was deleted. Choose a client for it, or delete it."));
    QString told;
    QObject::connect(&recurring, &Section::told, [&](const QString& sentence) { told = sentence; });
    QObject::connect(&recurring, &Section::failed, [&](const QString& sentence) { told = sentence; });
    make.click();
    EXPECT_EQ(told, owed.text());
    EXPECT_EQ(samples.context.count<Document>("sourceDocumentID IS NOT NULL"), 0) << "looking made one";

    change(client->ref); // mended
    ASSERT_TRUE(comesTrue([&] { return state() == "Active"; }));
    EXPECT_EQ(owed.text(), "The invoice of 17 Mar 2026 is due and not made yet.");
    make.click();
    EXPECT_EQ(told, "The invoice was made.");
    EXPECT_TRUE(comesTrue([&] { return owed.isHidden(); }));
    EXPECT_EQ(samples.context.count<Document>("sourceDocumentID IS NOT NULL"), 1);
    child<QPushButton>(recurring, "pauseRecurring").click();
    EXPECT_TRUE(comesTrue([&] { return state() == "Paused"; }));
    EXPECT_EQ(child<QPushButton>(recurring, "pauseRecurring").text(), "Resume");
}

} // namespace
} // namespace Quillary
