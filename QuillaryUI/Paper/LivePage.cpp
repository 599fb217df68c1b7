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

bool isSamePage(const PageJob& job, const PageJob& other)
{
    const auto sizes = [](const PageGeometry& geometry) {
        return std::tuple(geometry.width,
                          geometry.height,
                          geometry.marginTop,
                          geometry.marginRight,
                          geometry.marginBottom,
                          geometry.marginLeft);
    };
    return job.html == other.html && sizes(job.geometry) == sizes(other.geometry) && job.pageLabel == other.pageLabel &&
           job.labelFamily == other.labelFamily && job.title == other.title && job.languageCode == other.languageCode;
}

} // namespace

LivePage::LivePage(PagePress& press, PaperView& view)
    : QObject(&view)
    , m_press(press)
    , m_view(view)
{
    view.viewport()->installEventFilter(this);
}

void LivePage::show(Source source)
{
    m_source = std::move(source);
    m_turn += 1;
    m_lastJob.reset();
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
    if (event->type() == QEvent::Paint && m_isStale && !m_isPrinting) {
        QTimer::singleShot(afterThePicture, this, &LivePage::startIfSeen);
    }
    return QObject::eventFilter(watched, event);
}

void LivePage::startIfSeen()
{
    if (m_isPrinting || !m_isStale || !m_source || !m_view.isVisible()) {
        return;
    }
    m_isStale = false;
    std::optional<PageJob> job = m_source();
    if (!job || (m_lastJob && isSamePage(*job, *m_lastJob))) {
        return;
    }
    m_lastJob = job;
    m_isPrinting = true;
    m_press.press(*std::move(job), [self = QPointer(this), turn = m_turn](PrintResult result) {
        if (self) {
            self->finish(turn, std::move(result));
        }
    });
}

void LivePage::finish(std::uint64_t turn, PrintResult result)
{
    m_isPrinting = false;
    if (turn == m_turn) {
        if (auto* pdf = std::get_if<PrintedPDF>(&result)) {
            const auto place = m_shownTurn == turn ? PaperView::Place::kept : PaperView::Place::top;
            m_shownTurn = turn;
            m_view.setPDF(std::move(pdf->bytes), pdf->pageCount, place);
        } else {
            m_lastJob.reset();
            m_view.setNotice(CoreText::sentence(std::get<PrintError>(result).message()));
        }
    }
    startIfSeen();
}

} // namespace Quillary
