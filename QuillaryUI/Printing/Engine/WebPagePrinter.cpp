#include "QuillaryUI/Printing/Engine/WebPagePrinter.h"

#include "QuillaryUI/Printing/Engine/EngineStart.h"
#include "QuillaryUI/Printing/Engine/PDFStamper.h"
#include "QuillaryUI/Printing/Engine/PagePainter.h"
#include "QuillaryUI/Printing/Engine/VectorPage.h"
#include "QuillaryUI/Printing/QuietMessages.h"

#include <QColor>
#include <QEventLoop>
#include <QPageLayout>
#include <QPageRanges>
#include <QPageSize>
#include <QPointer>
#include <QSizeF>
#include <QWebEngineLoadingInfo>
#include <QWebEngineSettings>

#include <algorithm>
#include <utility>

namespace Quillary {
namespace {

/// A long document leaves its renderer with memory that it does not give back.
constexpr int longDocumentPages = 20;

constexpr std::chrono::seconds vectorImageTimeout(20);
constexpr std::chrono::seconds longestFarewell(5);

constexpr PageGeometry emptySheet{
    .width = 72, .height = 72, .marginTop = 0, .marginRight = 0, .marginBottom = 0, .marginLeft = 0};

/// A page object that goes nowhere: no links, no refreshes, no windows.
class LockedPage : public QWebEnginePage
{
public:
    LockedPage(QWebEngineProfile& profile, const PageServer& server)
        : QWebEnginePage(&profile)
        , m_server(server)
    {
        using Setting = QWebEngineSettings;
        for (const auto off : {Setting::JavascriptEnabled,
                               Setting::LocalStorageEnabled,
                               Setting::LocalContentCanAccessRemoteUrls,
                               Setting::LocalContentCanAccessFileUrls,
                               Setting::ErrorPageEnabled,
                               Setting::PluginsEnabled,
                               Setting::PdfViewerEnabled,
                               Setting::AutoLoadIconsForPage,
                               Setting::DnsPrefetchEnabled,
                               Setting::HyperlinkAuditingEnabled,
                               Setting::FocusOnNavigationEnabled,
                               Setting::WebGLEnabled,
                               Setting::Accelerated2dCanvasEnabled,
                               Setting::AllowRunningInsecureContent}) {
            settings()->setAttribute(off, false);
        }
        settings()->setUnknownUrlSchemePolicy(Setting::DisallowUnknownUrlSchemes);
        setBackgroundColor(QColor(Qt::transparent)); // paper is white already, and vector pictures have no paper
    }

protected:
    bool acceptNavigationRequest(const QUrl& address, NavigationType /*type*/, bool isMainFrame) override
    {
        return isMainFrame && m_server.serves(address);
    }

    QWebEnginePage* createWindow(WebWindowType /*type*/) override { return nullptr; }

    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel /*level*/,
                                  const QString& /*message*/,
                                  int /*line*/,
                                  const QString& /*source*/) override
    {
        // What the engine refuses a page is no news for standard error.
    }

private:
    const PageServer& m_server;
};

QPageLayout pageLayout(const PageGeometry& geometry)
{
    const QPageSize sheet(QSizeF(geometry.width, geometry.height), QPageSize::Point, {}, QPageSize::ExactMatch);
    const QMarginsF margins(geometry.marginLeft, geometry.marginTop, geometry.marginRight, geometry.marginBottom);
    return {sheet, QPageLayout::Portrait, margins, QPageLayout::Point, QMarginsF()};
}

PrintError printError(PrintError::Reason reason)
{
    switch (reason) {
    case PrintError::Reason::rendererStopped:
        return {reason,
                "The page could not be printed, because the page renderer stopped twice while it worked on it."};
    case PrintError::Reason::timedOut:
        return {reason, "The page could not be printed, because it took too long."};
    case PrintError::Reason::loadFailed:
        return {reason, "The page could not be printed, because the page renderer did not accept it."};
    case PrintError::Reason::noPages:
    case PrintError::Reason::moduleMissing:
    case PrintError::Reason::sandboxRefused:
    case PrintError::Reason::damagedPDF:
    case PrintError::Reason::noSuchPage:
        break;
    }
    return {reason, "The page could not be printed, because the page renderer handed back nothing."};
}

PrintResult stamped(const QByteArray& pdf, const PrintJob& job)
{
    try {
        return PDFStamper::stamp({pdf.data(), std::size_t(pdf.size())}, job);
    } catch (const PrintError& error) {
        return error;
    }
}

} // namespace

WebPagePrinter::WebPagePrinter(PrinterLimits limits)
    : m_limits(limits)
    , m_guard(m_server)
{
    m_timeout.setSingleShot(true);
    m_rest.setSingleShot(true);
    m_next.setSingleShot(true);
    m_sweep.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &WebPagePrinter::startNext);
    connect(&m_sweep, &QTimer::timeout, this, [this] { m_discarded.clear(); });
    connect(&m_timeout, &QTimer::timeout, this, [this] {
        discardPage();
        finish(printError(PrintError::Reason::timedOut));
    });
    connect(&m_rest, &QTimer::timeout, this, &WebPagePrinter::discardPage);
}

WebPagePrinter::~WebPagePrinter()
{
    awaitPrinting();
    ++m_attempt; // a page that goes answers what it was asked
    m_page.reset();
    m_discarded.clear();
}

/// The engine ends the whole process when a page goes in the middle of its work. Not from inside an answer, where it
/// doesn't go on with the next job.
void WebPagePrinter::awaitPrinting()
{
    if (!m_isPrinting || m_isAnswering) {
        return;
    }
    QEventLoop loop;
    m_waiting.resize(1);
    m_waiting.front().isSecondTry = true;
    m_waiting.front().reply = [&loop](const RawResult& /*nobody waits for it any more*/) {
        loop.quit();
    };
    m_timeout.start(std::min<std::chrono::milliseconds>(m_limits.timeout, longestFarewell));
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

void WebPagePrinter::print(PrintJob job, PrintReply reply)
{
    QByteArray html(job.html.data(), qsizetype(job.html.size()));
    job.html.clear(); // not kept twice
    const PageGeometry geometry = job.geometry;
    const std::optional<int> lonePage = job.lonePage ? std::optional(job.lonePage->index) : std::nullopt;
    auto finishJob = [this, job = std::move(job), reply = std::move(reply)](RawResult result) {
        if (const auto* error = std::get_if<PrintError>(&result)) {
            reply(*error);
            return;
        }
        PrintResult outcome = stamped(std::get<QByteArray>(result), job);
        if (const auto* pdf = std::get_if<PrintedPDF>(&outcome)) {
            noteLength(pdf->pageCount);
        }
        reply(std::move(outcome));
    };
    enqueue({.html = std::move(html),
             .geometry = geometry,
             .timeout = m_limits.timeout,
             .reply = std::move(finishJob),
             .lonePage = lonePage});
}

PrintedPDF WebPagePrinter::printAndWait(PrintJob job)
{
    QEventLoop loop;
    PrintResult outcome = PrintedPDF{};
    print(std::move(job), [&](PrintResult result) {
        outcome = std::move(result);
        loop.quit();
    });
    loop.exec();
    if (const auto* error = std::get_if<PrintError>(&outcome)) {
        throw PrintError(*error);
    }
    return std::get<PrintedPDF>(std::move(outcome));
}

void WebPagePrinter::warmUp()
{
    if (m_waiting.empty() && !m_page) {
        enqueue({.html = QByteArrayLiteral("<!DOCTYPE html><title></title>"),
                 .geometry = emptySheet,
                 .timeout = m_limits.timeout,
                 .reply = [](const RawResult& /*nobody waits for it*/) {
                 }});
    }
}

int WebPagePrinter::pageCount(const Bytes& pdf) const
{
    return PagePainter::pageCount(pdf);
}

Bytes WebPagePrinter::pageImage(const Bytes& pdf, int pageIndex, int pixelWidth) const
{
    return PagePainter::pageImage(pdf, pageIndex, pixelWidth);
}

PagePicture WebPagePrinter::pagePicture(const Bytes& pdf, int pageIndex, int pixelWidth) const
{
    return PagePainter::pagePicture(pdf, pageIndex, pixelWidth);
}

Bytes WebPagePrinter::vectorImage(const Bytes& svg, int pixelWidth, int pixelHeight)
{
    QEventLoop loop;
    RawResult outcome;
    enqueue({.html = VectorPage::html(svg),
             .geometry = VectorPage::geometry(pixelWidth, pixelHeight),
             .timeout = std::min<std::chrono::milliseconds>(m_limits.timeout, vectorImageTimeout),
             .reply = [&](RawResult result) {
                 outcome = std::move(result);
                 loop.quit();
             }});
    loop.exec();
    if (const auto* error = std::get_if<PrintError>(&outcome)) {
        throw PrintError(*error);
    }
    const QByteArray& pdf = std::get<QByteArray>(outcome);
    return PagePainter::transparentImage({pdf.begin(), pdf.end()}, pixelWidth);
}

qint64 WebPagePrinter::rendererProcess() const
{
    return m_page ? m_page->renderProcessPid() : 0;
}

void WebPagePrinter::enqueue(Waiting job)
{
    m_waiting.push_back(std::move(job));
    m_next.start(0);
}

void WebPagePrinter::startNext()
{
    if (m_isPrinting || m_waiting.empty()) {
        return;
    }
    m_isPrinting = true;
    m_rest.stop();
    if (m_isPageWorn) {
        discardPage();
    }
    try {
        makePage();
    } catch (const PrintError& error) {
        finish(error);
        return;
    }
    ++m_attempt;
    m_timeout.start(m_waiting.front().timeout);
    m_page->load(m_server.serve(m_waiting.front().html));
}

void WebPagePrinter::makePage()
{
    if (m_page) {
        return;
    }
    if (!m_profile) {
        EngineStart::settleSandbox();
        const QuietMessages quiet; // the engine finds it worth telling that there is no screen
        EngineStart::forbidHosts();
        PageServer::registerScheme();
        m_profile = std::make_unique<QWebEngineProfile>(); // off the record: it leaves nothing on the disk
        m_profile->setHttpCacheType(QWebEngineProfile::NoCache);
        m_profile->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
        m_profile->installUrlSchemeHandler(PageServer::scheme(), &m_server);
        m_profile->setUrlRequestInterceptor(&m_guard);
        m_page = std::make_unique<LockedPage>(*m_profile, m_server);
    } else {
        m_page = std::make_unique<LockedPage>(*m_profile, m_server);
    }
    connect(m_page.get(), &QWebEnginePage::loadingChanged, this, &WebPagePrinter::loaded);
    connect(m_page.get(), &QWebEnginePage::renderProcessTerminated, this, [this] {
        if (m_isPrinting) {
            tryAgain(PrintError::Reason::rendererStopped);
        } else {
            discardPage();
        }
    });
}

void WebPagePrinter::discardPage()
{
    ++m_attempt;
    m_isPageWorn = false;
    if (!m_page) {
        return;
    }
    disconnect(m_page.get(), nullptr, this, nullptr);
    m_discarded.push_back(std::move(m_page));
    m_sweep.start(0);
}

void WebPagePrinter::loaded(const QWebEngineLoadingInfo& info)
{
    if (!m_isPrinting || !m_server.serves(info.url()) || info.status() == QWebEngineLoadingInfo::LoadStartedStatus) {
        return;
    }
    if (info.status() != QWebEngineLoadingInfo::LoadSucceededStatus) {
        tryAgain(PrintError::Reason::loadFailed);
        return;
    }
    QPageRanges range; // empty: all
    if (const std::optional<int> page = m_waiting.front().lonePage) {
        range.addPage(*page + 1);
    }
    m_page->printToPdf(
        [this, attempt = m_attempt](const QByteArray& pdf) {
            if (attempt == m_attempt) {
                printed(pdf);
            }
        },
        pageLayout(m_waiting.front().geometry),
        range);
}

void WebPagePrinter::printed(const QByteArray& pdf)
{
    if (pdf.isEmpty()) {
        tryAgain(PrintError::Reason::noPages);
    } else {
        finish(pdf);
    }
}

void WebPagePrinter::tryAgain(PrintError::Reason reason)
{
    discardPage();
    if (m_waiting.front().isSecondTry) {
        finish(printError(reason));
        return;
    }
    m_waiting.front().isSecondTry = true;
    m_isPrinting = false;
    startNext();
}

void WebPagePrinter::finish(RawResult result)
{
    m_timeout.stop();
    const Waiting done = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_isPrinting = false;
    if (m_waiting.empty()) {
        m_server.clear();
        m_rest.start(m_limits.rest);
    } else if (m_profile) {
        startNext(); // the engine loads the next page while this one is finished
    } else {
        m_next.start(0); // it may fail at once, and answers stay in order
    }
    const bool wasAnswering = std::exchange(m_isAnswering, true);
    const QPointer<WebPagePrinter> self(this); // the receiver may destroy the printer
    done.reply(std::move(result));
    if (self) {
        m_isAnswering = wasAnswering;
    }
}

void WebPagePrinter::noteLength(int pages)
{
    m_isPageWorn = m_isPageWorn || pages >= longDocumentPages;
    if (m_isPageWorn && !m_isPrinting) {
        discardPage();
    }
}

} // namespace Quillary
