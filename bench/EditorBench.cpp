// The editor of a draft as somebody at the desk waits for it: a key until the page on the screen shows it, a document
// until it stands there, a change until it is on the disk. The library, the form and the page engine are the real ones;
// only the screen is missing. The floor of a key is the same page printed and drawn, with nothing around it.

#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/DocumentPane.h"
#include "QuillaryUI/Documents/DocumentsSection.h"
#include "QuillaryUI/Documents/DraftEditor.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Paper/PaperView.h"
#include "bench/Support/AtEnd.h"
#include "tests/Quillary/WindowDesk.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr int onePage = 8;
constexpr int tenPages = 240;

/// A user of their own, with one draft of each length. Made once: the engine starts but once in a process.
class Desk
{
public:
    static Desk& shared()
    {
        static std::unique_ptr<Desk> desk;
        if (desk == nullptr) {
            desk = std::make_unique<Desk>();
            atEnd([] { desk.reset(); });
        }
        return *desk;
    }

    Desk()
    {
        auto* later = m_window.desktop->window().findChild<QPushButton*>(QStringLiteral("firstStartLater"));
        QTest::mouseClick(later, Qt::LeftButton);
        makeDraft(onePage);
        makeDraft(tenPages);
        context().edit(library.business()).name = "Atelier Lindqvist";
        context().save();
    }

    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    Context& context() { return library.context(); }
    const AssistantEnvironment& tools() { return library.environment(); }
    const Document& draft(int lines) { return *context().first<Document>("title = ?", std::to_string(lines)); }
    auto& section()
    {
        return *dynamic_cast<DocumentsSection*>(m_window.desktop->window().section(QStringLiteral("invoices")));
    }
    auto& paper() { return *section().findChild<PaperView*>(); }

    void edit(int lines)
    {
        section().showDocument(draft(lines).ref.key());
        section().pane().beginEditing();
        awaitWhole({});
    }

    /// Until the document is printed anew, and drawn.
    void awaitWhole(const Bytes& before)
    {
        await([&] { return paper().pdf() != before && !paper().pdf().empty(); });
    }

    /// Until this page is another, and drawn.
    void awaitPage(int page, const Bytes& before)
    {
        await([&] { return paper().pagePDF(page) != before; });
    }

    /// Until a page is ahead of the whole document. Its index.
    int awaitAhead()
    {
        int page = 0;
        await([&] {
            for (page = 0; page < paper().pageCount(); ++page) {
                if (paper().pagePDF(page) != paper().pdf()) {
                    return true;
                }
            }
            return false;
        });
        return page;
    }

private:
    void await(const std::function<bool()>& isThere)
    {
        while (!isThere()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
        }
        paper().viewport()->repaint();
    }

    struct Folder
    {
        fs::path path = fs::temp_directory_path() / fmt::format("quillary-bench-{}", getpid());
        Folder() { fs::create_directories(path); }
        Folder(const Folder&) = delete;
        Folder& operator=(const Folder&) = delete;
        ~Folder() { fs::remove_all(path); }
    };

    void makeDraft(int lines)
    {
        JSON::Array items;
        for (int line = 1; line <= lines; ++line) {
            items.push_back(JSON::object({{"title", fmt::format("Gestaltung {}", line)},
                                          {"quantity", "2.5"},
                                          {"unit_price", fmt::format("{}.50", 90 + line)}}));
        }
        auto scope = context().beginScope("draft");
        DocumentSession session = DocumentSession::create(tools(), "invoice");
        const JSON wish = JSON::object({{"title", std::to_string(lines)}, {"add_lines", std::move(items)}});
        session.apply(Arguments(wish));
        scope.commit();
    }

    Folder m_folder;
    WindowDesk m_window{m_folder.path};

public:
    PrintingHost& host = *m_window.host;
    LibraryAccess& library = m_window.desktop->library();
};

/// A letter typed into the introduction, until the page shows it. The next letter comes at once, before the rest of the
/// document.
void key(benchmark::State& state)
{
    Desk& desk = Desk::shared();
    desk.edit(int(state.range(0)));
    auto* intro = desk.section().findChild<QPlainTextEdit*>(QStringLiteral("intro"));
    QTest::keyClick(intro, Qt::Key_A);
    desk.awaitWhole(Bytes(desk.paper().pdf()));
    for (auto _ : state) {
        const Bytes before = desk.paper().pagePDF(0);
        QTest::keyClick(intro, Qt::Key_A);
        desk.awaitPage(0, before);
    }
    desk.section().flush();
}

/// The same until all pages show it.
void keyToWhole(benchmark::State& state)
{
    Desk& desk = Desk::shared();
    desk.edit(int(state.range(0)));
    auto* intro = desk.section().findChild<QPlainTextEdit*>(QStringLiteral("intro"));
    QTest::keyClick(intro, Qt::Key_A);
    desk.awaitWhole(Bytes(desk.paper().pdf()));
    for (auto _ : state) {
        const Bytes before = desk.paper().pdf();
        QTest::keyClick(intro, Qt::Key_A);
        desk.awaitWhole(before);
    }
    desk.section().flush();
}

/// A letter typed into a line in the middle of the document, whose page is in sight.
void keyInTheMiddle(benchmark::State& state)
{
    Desk& desk = Desk::shared();
    const int lines = int(state.range(0));
    desk.edit(lines);
    auto* table = desk.section().findChild<QTableView*>(QStringLiteral("lines"));
    table->setCurrentIndex(table->model()->index(lines / 2, LinesModel::description));
    table->edit(table->currentIndex());
    auto* title = table->findChildren<QLineEdit*>().back();
    QTest::keyClick(title, Qt::Key_A);
    desk.awaitWhole(Bytes(desk.paper().pdf()));
    QScrollBar* bar = desk.paper().verticalScrollBar();
    bar->setValue(bar->maximum() / 2);
    QTest::keyClick(title, Qt::Key_A);
    const int page = desk.awaitAhead();
    for (auto _ : state) {
        const Bytes before = desk.paper().pagePDF(page);
        QTest::keyClick(title, Qt::Key_A);
        desk.awaitPage(page, before);
    }
    bar->setValue(0);
    desk.section().flush();
}

/// The letter after a short pause: the rest of the document is being printed.
void keyBesideTheRest(benchmark::State& state)
{
    constexpr int pause = 120; // ms
    Desk& desk = Desk::shared();
    desk.edit(int(state.range(0)));
    auto* intro = desk.section().findChild<QPlainTextEdit*>(QStringLiteral("intro"));
    QTest::keyClick(intro, Qt::Key_A);
    desk.awaitWhole(Bytes(desk.paper().pdf()));
    for (auto _ : state) {
        state.PauseTiming();
        QTest::qWait(pause);
        const Bytes before = desk.paper().pagePDF(0);
        state.ResumeTiming();
        QTest::keyClick(intro, Qt::Key_A);
        desk.awaitPage(0, before);
    }
    desk.section().flush();
}

void keyFloor(benchmark::State& state)
{
    Desk& desk = Desk::shared();
    desk.edit(int(state.range(0)));
    const AssistantEnvironment& tools = desk.tools();
    const PageJob job = pageJob(tools.context, desk.draft(int(state.range(0))), tools.ownBusiness(), tools.calendar);
    const int width = desk.paper().viewport()->width() - 48; // as the view draws it
    for (auto _ : state) {
        const PagePicture drawn = desk.host.picture(desk.host.printAndWait(job), 0, width);
        benchmark::DoNotOptimize(drawn.width);
    }
}

/// A price changed and the totals worked out, not yet saved.
void line(benchmark::State& state)
{
    Desk& desk = Desk::shared();
    std::int64_t price = 0;
    for (auto _ : state) {
        desk.library.tryOut([&] {
            JSON changed = JSON::object({{"line", 1}, {"unit_price", std::to_string(100 + (price++ % 50))}});
            const JSON wish = JSON::object({{"change_lines", JSON::array({std::move(changed)})}});
            DocumentSession session = DocumentSession::open(desk.tools(), desk.draft(int(state.range(0))));
            session.apply(Arguments(wish));
            benchmark::DoNotOptimize(calculateTotals(desk.context(), session.document()));
        });
    }
}

/// The same as a step that can be undone, on the disk.
void save(benchmark::State& state)
{
    Desk& desk = Desk::shared();
    std::int64_t price = 0;
    for (auto _ : state) {
        static_cast<void>(desk.library.perform(QStringLiteral("Change"), [&] {
            JSON changed = JSON::object({{"line", 1}, {"unit_price", std::to_string(100 + (price++ % 50))}});
            const JSON wish = JSON::object({{"change_lines", JSON::array({std::move(changed)})}});
            DocumentSession::open(desk.tools(), desk.draft(int(state.range(0)))).apply(Arguments(wish));
        }));
    }
}

/// Another draft into the form; the page follows on its own.
void open(benchmark::State& state)
{
    Desk& desk = Desk::shared();
    desk.edit(int(state.range(0)));
    auto* editor = desk.section().findChild<DraftEditor*>();
    const std::int64_t one = desk.draft(int(state.range(0))).ref.key();
    for (auto _ : state) {
        editor->setDocument(0);
        editor->setDocument(one);
    }
}

BENCHMARK(key)->Arg(onePage)->Arg(tenPages)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(keyInTheMiddle)->Arg(tenPages)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(keyToWhole)->Arg(tenPages)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(keyBesideTheRest)->Arg(tenPages)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(keyFloor)->Arg(onePage)->Arg(tenPages)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(line)->Arg(onePage)->Arg(tenPages)->Unit(benchmark::kMicrosecond);
BENCHMARK(save)->Arg(onePage)->Arg(tenPages)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(300);
BENCHMARK(open)->Arg(onePage)->Arg(tenPages)->Unit(benchmark::kMicrosecond)->Iterations(300);

} // namespace

} // namespace Quillary
