#include "Quillary/PrintingHost.h"

#include "Quillary/AppEnvironment.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryUI/Printing/PagePrinter.h"
#include "QuillaryUI/Printing/ProgramFolders.h"
#include "QuillaryUI/Printing/QuietMessages.h"

#include <QEventLoop>
#include <QGuiApplication>

#include <array>
#include <filesystem>
#include <optional>
#include <utility>

namespace Quillary {

namespace {

/// Qt keeps references to these for as long as its application lives.
struct ProgramArguments
{
    std::array<char, 9> name{'q', 'u', 'i', 'l', 'l', 'a', 'r', 'y', '\0'};
    std::array<char*, 2> values{name.data(), nullptr};
    int count = 1;
};

/// Pages need no screen, and a command must not fail because its shell knows none.
void drawWithoutScreen()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

} // namespace

struct PrintingHost::Engine
{
    /// The module comes first: the web engine prepares Qt's drawing while it is loaded, and can't once Qt has started.
    explicit Engine(const ProgramFolders& folders)
        : printer(loadPagePrinter(folders.modules))
        , application(std::make_unique<QGuiApplication>(arguments.count, arguments.values.data()))
    {
    }
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    ~Engine()
    {
        printer.reset(); // it lives on Qt's events
    }

    ProgramArguments arguments;
    std::unique_ptr<PagePrinter> printer;
    std::unique_ptr<QGuiApplication> application;
};

PrintingHost::PrintingHost(const AppEnvironment& environment)
    : m_environment(environment)
{
}

PrintingHost::~PrintingHost() = default;

PrintingHost::Engine& PrintingHost::engine()
{
    if (m_engine == nullptr) {
        const ProgramFolders folders = ProgramFolders::of(m_environment.programFile());
        usePageFonts(folders);
        drawWithoutScreen();
        const QuietMessages quiet; // a shell without a desktop lacks folders that Qt would remark on
        m_engine = std::make_unique<Engine>(folders);
    }
    return *m_engine;
}

PrintJob PrintingHost::printJob(PageJob job) const
{
    return {.html = std::move(job.html),
            .geometry = job.geometry,
            .title = std::move(job.title),
            .languageCode = std::move(job.languageCode),
            .pageLabel = std::move(job.pageLabel),
            .labelFamily = std::move(job.labelFamily),
            .createdAt = m_environment.clock().now()};
}

void PrintingHost::printPage(PageJob job, std::function<void(PageOutcome)> reply)
{
    engine().printer->print(printJob(std::move(job)), [reply = std::move(reply)](PrintResult result) {
        if (PrintedPDF* pdf = std::get_if<PrintedPDF>(&result)) {
            reply(std::move(pdf->bytes));
        } else {
            reply(std::get<PrintError>(result).message());
        }
    });
}

Bytes PrintingHost::printAndWait(PageJob job)
{
    return engine().printer->printAndWait(printJob(std::move(job))).bytes;
}

Bytes PrintingHost::pageImage(const Bytes& pdf, int pageIndex, int pixelWidth)
{
    return engine().printer->pageImage(pdf, pageIndex, pixelWidth);
}

std::filesystem::path PrintingHost::downloadsFolder() const
{
    return m_environment.downloadsFolder();
}

std::filesystem::path PrintingHost::homeFolder() const
{
    return m_environment.homeFolder();
}

void PrintingHost::runUntil(const std::function<bool()>& isDone)
{
    if (isDone()) {
        return; // the usual answer: nothing was printed and Qt was never started
    }
    QEventLoop loop;
    while (!isDone()) {
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
}

} // namespace Quillary
