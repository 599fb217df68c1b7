#include "Quillary/PrintingHost.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/ErrorOutput.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"
#include "QuillaryUI/Printing/LogoImage.h"
#include "QuillaryUI/Printing/PagePrinter.h"
#include "QuillaryUI/Printing/ProgramFolders.h"
#include "QuillaryUI/Printing/QuietMessages.h"

#include <QApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QProcess>
#include <QTimer>

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

/// Opens a file with the program that the desktop has for it, which lives on without this one. False: there is none.
bool openWithDesktop(const std::filesystem::path& file)
{
    QProcess opener;
    opener.setProgram(QStringLiteral("xdg-open"));
    opener.setArguments({QString::fromStdString(file.string())});
    opener.setStandardOutputFile(QProcess::nullDevice());
    opener.setStandardErrorFile(QProcess::nullDevice());
    return opener.startDetached();
}

} // namespace

/// Qt can't be left by an exception: what nobody caught on the way is told, and the next event comes.
class PrintingHost::WindowApplication final : public QApplication
{
public:
    WindowApplication(int& count, char** values, const PrintingHost& host)
        : QApplication(count, values)
        , m_host(host)
    {
    }

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const UserError& error) {
            m_host.m_tellFailure(error.message());
            return true;
        }
    }

private:
    const PrintingHost& m_host;
};

struct PrintingHost::Application
{
    ProgramArguments arguments;
    std::unique_ptr<QGuiApplication> application;

    Application(Windows windows, const PrintingHost& host)
    {
        if (windows == Windows::shown) {
            application = std::make_unique<WindowApplication>(arguments.count, arguments.values.data(), host);
        } else {
            application = std::make_unique<QGuiApplication>(arguments.count, arguments.values.data());
        }
    }
};

PrintingHost::PrintingHost(const AppEnvironment& environment)
    : m_environment(environment)
    , m_tellFailure(ErrorOutput::writeLine)
{
}

PrintingHost::~PrintingHost() = default;

void PrintingHost::startApplication(Windows windows)
{
    usePageFonts(ProgramFolders::of(m_environment.programFile()));
    if (windows == Windows::none) {
        drawWithoutScreen();
    }
    // What the web engine asks for when it is loaded later than Qt was started.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    const QuietMessages quiet; // a shell without a desktop lacks folders that Qt would remark on
    m_application = std::make_unique<Application>(windows, *this);
}

std::unique_ptr<PagePrinter> PrintingHost::load()
{
    const ProgramFolders folders = ProgramFolders::of(m_environment.programFile());
    const QuietMessages quiet;
    usePageFonts(folders);
    if (m_application == nullptr) {
        drawWithoutScreen();
    }
    // The module comes first where nothing has started Qt yet: it then prepares Qt's drawing itself.
    auto loaded = loadPagePrinter(folders.modules);
    if (m_application == nullptr) {
        m_application = std::make_unique<Application>(Windows::none, *this);
    }
    return loaded;
}

PagePrinter& PrintingHost::printer()
{
    if (m_printer == nullptr) {
        m_printer = load();
    }
    return *m_printer;
}

PagePrinter& PrintingHost::lonePagePrinter()
{
    if (m_lonePagePrinter == nullptr) {
        m_lonePagePrinter = load();
    }
    return *m_lonePagePrinter;
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
    printer().print(printJob(std::move(job)), [reply = std::move(reply)](PrintResult result) {
        if (PrintedPDF* pdf = std::get_if<PrintedPDF>(&result)) {
            reply(std::move(pdf->bytes));
        } else {
            reply(std::get<PrintError>(result).message());
        }
    });
}

void PrintingHost::press(PageJob job, PrintReply reply)
{
    print(&PrintingHost::printer, printJob(std::move(job)), std::move(reply));
}

void PrintingHost::pressPage(PageJob job, LonePage page, PrintReply reply)
{
    PrintJob alone = printJob(std::move(job));
    alone.lonePage = page;
    print(&PrintingHost::lonePagePrinter, std::move(alone), std::move(reply));
}

void PrintingHost::print(PagePrinter& (PrintingHost::*wanted)(), PrintJob job, PrintReply reply)
{
    try {
        (this->*wanted)().print(std::move(job), std::move(reply));
    } catch (const PrintError& error) {
        QTimer::singleShot(0, QCoreApplication::instance(), [error, reply = std::move(reply)] { reply(error); });
    }
}

PagePicture PrintingHost::picture(const Bytes& pdf, int pageIndex, int pixelWidth)
{
    return printer().pagePicture(pdf, pageIndex, pixelWidth);
}

void PrintingHost::warmUp()
{
    try {
        printer().warmUp();
    } catch (const PrintError&) {
        return; // the first page says so, where somebody sees it
    }
}

void PrintingHost::warmUpForPages()
{
    try {
        lonePagePrinter().warmUp();
    } catch (const PrintError&) {
        return; // the page is printed with its document then
    }
}

Bytes PrintingHost::printAndWait(PageJob job)
{
    return printer().printAndWait(printJob(std::move(job))).bytes;
}

Bytes PrintingHost::pageImage(const Bytes& pdf, int pageIndex, int pixelWidth)
{
    return printer().pageImage(pdf, pageIndex, pixelWidth);
}

Bytes PrintingHost::logo(const Bytes& file)
{
    if (m_application == nullptr) {
        startApplication();
    }
    return LogoImage::toPNG(file, [this](const Bytes& svg, int pixelWidth, int pixelHeight) {
        return printer().vectorImage(svg, pixelWidth, pixelHeight);
    });
}

void PrintingHost::prepareEmail(MailDraft mail, std::string name, std::function<void(EmailOutcome)> reply)
{
    const std::string message = mail.message();
    try {
        PreparedEmail email;
        email.file = saveUniqueFile(downloadsFolder(), name, "eml", Bytes(message.begin(), message.end()));
        email.isOpened = m_environment.hasDisplay() && openWithDesktop(email.file);
        reply(std::move(email));
    } catch (const UserError& error) {
        reply(error.message());
    }
}

std::filesystem::path PrintingHost::downloadsFolder() const
{
    std::filesystem::path folder = m_environment.downloadsFolder();
    std::error_code failure; // which whoever saves there tells of
    std::filesystem::create_directories(folder, failure);
    return folder;
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
