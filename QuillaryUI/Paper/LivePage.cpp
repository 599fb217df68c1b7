#include "QuillaryUI/Paper/LivePage.h"

#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Paper/PaperView.h"

#include <QEvent>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <tuple>
#include <utility>
#include <variant>

namespace Quillary {

namespace {

constexpr std::chrono::milliseconds afterThePicture{20};

/// Long enough for the next key of somebody who types fast, short enough for the rest to be there in 300 ms.
constexpr std::chrono::milliseconds pauseBeforeWhole{50};

/// Pages. The whole of fewer is there nearly as soon as one of them.
constexpr int longDocument = 4;

/// All but what stands on it.
bool isSameSheet(const PageJob& job, const PageJob& other)
{
    const auto sizes = [](const PageGeometry& geometry) {
        return std::tuple(geometry.width,
                          geometry.height,
                          geometry.marginTop,
                          geometry.marginRight,
                          geometry.marginBottom,
                          geometry.marginLeft);
    };
    return sizes(job.geometry) == sizes(other.geometry) && job.pageLabel == other.pageLabel &&
           job.labelFamily == other.labelFamily && job.title == other.title && job.languageCode == other.languageCode;
}

bool isSamePage(const PageJob& job, const PageJob& other)
{
    return job.html == other.html && isSameSheet(job, other);
}

} // namespace

LivePage::LivePage(PagePress& press, PaperView& view)
    : QObject(&view)
    , m_press(press)
    , m_view(view)
{
    view.viewport()->installEventFilter(this);
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseBeforeWhole);
    connect(&m_pause, &QTimer::timeout, this, &LivePage::followWithWhole);
}

void LivePage::show(Source source)
{
    m_source = std::move(source);
    m_turn += 1;
    m_lastJob.reset();
    m_layout.reset();
    m_pause.stop();
    m_view.clear();
    refresh();
}

void LivePage::refresh()
{
    m_isStale = true;
    startIfSeen();
}

/// What was asked for while nobody looked is printed as soon as somebody does: once the window has been drawn and what
/// was clicked meanwhile is done, since the engine holds everything up while it comes.
bool LivePage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint && m_isStale && !m_isPrintingWhole && !m_isPrintingAhead) {
        QTimer::singleShot(afterThePicture, this, &LivePage::startIfSeen);
    }
    return QObject::eventFilter(watched, event);
}

void LivePage::startIfSeen()
{
    if (!m_isStale || m_isPrintingAhead || (m_isPrintingWhole && !m_layout) || !m_source || !m_view.isVisible()) {
        return;
    }
    std::optional<PageJob> job = m_source();
    if (!job || (m_lastJob && isSamePage(*job, *m_lastJob))) {
        m_isStale = false;
        return;
    }
    const bool isSameAsLast = m_lastJob && isSameSheet(*job, *m_lastJob);
    std::optional<PageExcerpt> ahead = m_layout && isSameAsLast ? m_layout->excerpt(job->html) : std::nullopt;
    const bool isAhead = ahead && m_view.shows(ahead->page);
    if (!isAhead && m_isPrintingWhole) {
        return; // until that one is done
    }
    m_isStale = false;
    m_lastJob = std::move(job);
    if (isAhead) {
        printAhead(*m_lastJob, *std::move(ahead));
    } else {
        printWhole(*m_lastJob);
    }
}

void LivePage::printWhole(const PageJob& job)
{
    m_isPrintingWhole = true;
    m_pause.stop();
    PageJob marked = job;
    marked.html = PageLayout::marked(job.html);
    m_press.press(std::move(marked), [self = QPointer(this), turn = m_turn, job](PrintResult result) {
        if (self) {
            self->showWhole(turn, job, std::move(result));
        }
    });
}

void LivePage::printAhead(const PageJob& job, PageExcerpt excerpt)
{
    m_isPrintingAhead = true;
    m_pause.stop();
    PageJob page = job;
    page.html = std::exchange(excerpt.html, {});
    const LonePage lone{.index = excerpt.page, .pageCount = excerpt.pageCount};
    m_press.pressPage(std::move(page),
                      lone,
                      [self = QPointer(this), turn = m_turn, excerpt = std::move(excerpt)](PrintResult result) {
                          if (self) {
                              self->showAhead(turn, excerpt, std::move(result));
                          }
                      });
}

void LivePage::showWhole(std::uint64_t turn, const PageJob& job, PrintResult result)
{
    m_isPrintingWhole = false;
    const bool isNewest = !m_lastJob || isSamePage(job, *m_lastJob);
    if (turn == m_turn && isNewest) {
        m_layout.reset();
        if (auto* pdf = std::get_if<PrintedPDF>(&result)) {
            setPDF(job, std::move(*pdf));
        } else {
            m_lastJob.reset();
            m_view.setNotice(CoreText::sentence(std::get<PrintError>(result).message()));
        }
    }
    startIfSeen();
    if (turn == m_turn && !isNewest && !m_pause.isActive()) {
        followWithWhole();
    }
}

void LivePage::setPDF(const PageJob& job, PrintedPDF pdf)
{
    const auto place = m_shownTurn == m_turn ? PaperView::Place::kept : PaperView::Place::top;
    m_shownTurn = m_turn;
    if (pdf.pageCount >= longDocument) {
        m_layout = PageLayout::of(job.html, job.geometry, pdf.pageCount, pdf.marks);
        makeReady();
    }
    m_view.setPDF(std::move(pdf.bytes), pdf.pageCount, place);
}

void LivePage::setTyped(bool isTyped)
{
    m_isTyped = isTyped;
    makeReady();
}

void LivePage::makeReady()
{
    if (m_isTyped && m_layout) {
        m_press.warmUpForPages();
    }
}

/// Where the page turns out to be another one the whole comes next, whatever is typed; and it tells what is wrong with a
/// page that can't be printed.
void LivePage::showAhead(std::uint64_t turn, const PageExcerpt& excerpt, PrintResult result)
{
    m_isPrintingAhead = false;
    if (turn == m_turn) {
        auto* pdf = std::get_if<PrintedPDF>(&result);
        if (pdf != nullptr && excerpt.isExact(pdf->marks) && excerpt.page < m_view.pageCount()) {
            m_view.setPage(excerpt.page, std::move(pdf->bytes));
            m_pause.start(pauseBeforeWhole);
        } else {
            m_layout.reset();
            m_pause.start(std::chrono::milliseconds(0));
        }
    }
    startIfSeen();
}

void LivePage::followWithWhole()
{
    if (m_isPrintingWhole || m_isPrintingAhead || !m_lastJob) {
        return;
    }
    if (m_view.isVisible()) {
        printWhole(*m_lastJob);
    } else {
        m_lastJob.reset();
        m_isStale = true; // until somebody looks
    }
}

} // namespace Quillary
