// How long the window stands still while its sections are gone through, over a library of 100,000 documents: the longest
// time that no event was answered until the section stood there and had read what it shows. Nothing may take 100 ms. The
// floor is the same with nothing to do, which is what the machine itself takes away.

#include "Quillary/Desktop.h"
#include "QuillaryUI/Main/MainWindow.h"
#include "bench/Support/AtEnd.h"
#include "bench/Support/LibraryGenerator.h"
#include "tests/Quillary/WindowDesk.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds heartbeat{2};
constexpr std::chrono::seconds settling{2}; ///< in which a section reads beside the window

/// The longest time between two heartbeats of the event loop while it does some work and what follows from that.
double longestPause(const std::function<void()>& work)
{
    QElapsedTimer sinceLast;
    qint64 longest = 0; // nanoseconds
    QTimer beat;
    beat.setTimerType(Qt::PreciseTimer);
    QObject::connect(&beat, &QTimer::timeout, [&] {
        longest = std::max(longest, sinceLast.nsecsElapsed());
        sinceLast.start();
    });
    QEventLoop loop;
    QTimer::singleShot(settling, &loop, &QEventLoop::quit);
    QTimer::singleShot(0, &loop, work);
    sinceLast.start();
    beat.start(heartbeat);
    loop.exec();
    return std::chrono::duration<double>(std::chrono::nanoseconds(longest)).count();
}

/// A user of their own with so much behind them. Made once: the engine starts but once in a process.
MainWindow& window()
{
    static std::unique_ptr<WindowDesk> desk;
    if (desk == nullptr) {
        const fs::path home = fs::temp_directory_path() / "quillary-bench-window";
        LibraryGenerator::makeLibrary(home / "data" / "quillary", {});
        desk = std::make_unique<WindowDesk>(home);
        atEnd([] { desk.reset(); });
        longestPause([] {}); // the rest of the list, the page engine
    }
    return desk->desktop->window();
}

/// The first time a section is made, then it is only shown.
void pause(benchmark::State& state, const char* section)
{
    MainWindow& shown = window();
    for (auto _ : state) {
        state.SetIterationTime(longestPause([&] { shown.showSection(QString::fromLatin1(section)); }));
    }
}

void pauseFloor(benchmark::State& state)
{
    window();
    for (auto _ : state) {
        state.SetIterationTime(longestPause([] {}));
    }
}

void once(benchmark::internal::Benchmark* benchmark)
{
    benchmark->UseManualTime()->Iterations(1)->Repetitions(2)->Unit(benchmark::kMillisecond);
}

BENCHMARK(pauseFloor)->Apply(once);
BENCHMARK_CAPTURE(pause, overview, "overview")->Apply(once);
BENCHMARK_CAPTURE(pause, invoices, "invoices")->Apply(once);
BENCHMARK_CAPTURE(pause, quotes, "quotes")->Apply(once);
BENCHMARK_CAPTURE(pause, creditNotes, "credit-notes")->Apply(once);
BENCHMARK_CAPTURE(pause, recurring, "recurring")->Apply(once);
BENCHMARK_CAPTURE(pause, clients, "clients")->Apply(once);
BENCHMARK_CAPTURE(pause, catalog, "catalog")->Apply(once);
BENCHMARK_CAPTURE(pause, time, "time")->Apply(once);
BENCHMARK_CAPTURE(pause, reports, "reports")->Apply(once);
BENCHMARK_CAPTURE(pause, settings, "settings")->Apply(once);

} // namespace

} // namespace Quillary
