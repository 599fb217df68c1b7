#include "QuillaryUI/Paper/LivePage.h"

#include <QPointer>

#include <utility>
#include <variant>

namespace Quillary {

LivePage::LivePage(PagePress& press, QObject* parent)
    : QObject(parent)
    , m_press(press)
{
}

void LivePage::show(Source source)
{
    m_source = std::move(source);
    m_turn += 1;
    refresh();
}

void LivePage::refresh()
{
    m_isStale = true;
    if (!m_isPrinting && m_source) {
        start();
    }
}

void LivePage::clear()
{
    m_source = nullptr;
    m_turn += 1;
    m_isStale = false;
    Q_EMIT cleared();
}

void LivePage::start()
{
    m_isStale = false;
    std::optional<PageJob> job = m_source();
    if (!job) {
        return;
    }
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
        if (const auto* pdf = std::get_if<PrintedPDF>(&result)) {
            const bool isSame = m_shownTurn == turn;
            m_shownTurn = turn;
            Q_EMIT ready(pdf->bytes, pdf->pageCount, isSame);
        } else {
            Q_EMIT failed(QString::fromStdString(std::get<PrintError>(result).message()));
        }
    }
    if (m_isStale && m_source) {
        start();
    }
}

} // namespace Quillary
