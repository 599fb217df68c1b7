#pragma once

#include "QuillaryUI/Printing/Engine/PageServer.h"
#include "QuillaryUI/Printing/PagePrinter.h"

#include <QObject>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineProfile>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

class QWebEngineLoadingInfo;

namespace Quillary {

/// The page printer on Qt WebEngine.
class WebPagePrinter final : public QObject, public PagePrinter
{
public:
    explicit WebPagePrinter(PrinterLimits limits);
    ~WebPagePrinter() override;

    void print(PrintJob job, PrintReply reply) override;
    PrintedPDF printAndWait(PrintJob job) override;
    void warmUp() override;
    [[nodiscard]] int pageCount(const Bytes& pdf) const override;
    [[nodiscard]] Bytes pageImage(const Bytes& pdf, int pageIndex, int pixelWidth) const override;
    [[nodiscard]] PagePicture pagePicture(const Bytes& pdf, int pageIndex, int pixelWidth) const override;
    Bytes vectorImage(const Bytes& svg, int pixelWidth, int pixelHeight) override;

    /// The process that renders, for tests that end it. 0: none runs.
    [[nodiscard]] qint64 rendererProcess() const;

private:
    /// The engine's own PDF, before anything is stamped on it.
    using RawResult = std::variant<QByteArray, PrintError>;

    struct Waiting
    {
        QByteArray html;
        PageGeometry geometry;
        std::chrono::milliseconds timeout;
        std::function<void(RawResult)> reply;
        std::optional<int> lonePage = std::nullopt; ///< its index
        bool isSecondTry = false;
    };

    void awaitPrinting();
    void enqueue(Waiting job);
    void startNext();
    void makePage();
    void discardPage();
    void loaded(const QWebEngineLoadingInfo& info);
    void printed(const QByteArray& pdf);
    void tryAgain(PrintError::Reason reason);
    void finish(RawResult result);
    void noteLength(int pages);

    PrinterLimits m_limits;
    PageServer m_server;
    RequestGuard m_guard;
    std::unique_ptr<QWebEngineProfile> m_profile; ///< outlives its pages
    std::unique_ptr<QWebEnginePage> m_page;
    std::vector<std::unique_ptr<QWebEnginePage>> m_discarded; ///< gone as soon as their own signals have returned
    std::deque<Waiting> m_waiting;                            ///< the first is being printed while `m_isPrinting`
    bool m_isPrinting = false;
    bool m_isAnswering = false;
    bool m_isPageWorn = false; ///< a long document went through it
    quint64 m_attempt = 0;     ///< late answers of an attempt given up carry an older number
    QTimer m_next;             ///< to the next job, from the event loop
    QTimer m_sweep;            ///< clears `m_discarded`, from the event loop
    QTimer m_timeout;
    QTimer m_rest;
};

} // namespace Quillary
