#pragma once

#include "QuillaryCore/Output/PageLayout.h"
#include "QuillaryUI/Paper/PagePress.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <optional>

namespace Quillary {

class PaperView;

/// The page of one document as it is now, in a view: printed anew whenever somebody asks, one whole document at a time.
/// While one is printed only the newest wish waits, so that fast typing never queues up pages that nobody will see; and
/// while the view is hidden nothing is printed at all. What would be the same page again isn't printed either.
///
/// Of a long document the page that changes is printed first and alone, as long as it is in sight: key after key it is
/// there as soon as that of a short one, and the whole follows at the next pause between the keys. It is printed beside
/// the page that changes, holds none up, and is shown only if it is still the newest when it is done. Where that page
/// can't be told from the last whole print, the whole is printed at once.
class LivePage : public QObject
{
    Q_OBJECT

public:
    /// Makes the job when the printer is free. No value: there is nothing to show.
    using Source = std::function<std::optional<PageJob>()>;

    /// `view` shows the page, and is this object's parent.
    LivePage(PagePress& press, PaperView& view);

    /// Shows another document; what was printed of the one before is dropped. An empty source shows nothing.
    void show(Source source);

    /// The same document has changed.
    void refresh();

    /// Whether somebody is about to change it key by key: what prints the page ahead is then ready before the first.
    void setTyped(bool isTyped);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void startIfSeen();
    void printWhole(const PageJob& job);
    void printAhead(const PageJob& job, PageExcerpt excerpt);
    void showWhole(std::uint64_t turn, const PageJob& job, PrintResult result);
    void showAhead(std::uint64_t turn, const PageExcerpt& excerpt, PrintResult result);
    void followWithWhole();
    void setPDF(const PageJob& job, PrintedPDF pdf);
    void makeReady();

    PagePress& m_press;
    PaperView& m_view;
    Source m_source;
    std::uint64_t m_turn = 0; ///< of the document that is shown
    std::uint64_t m_shownTurn = 0;
    std::optional<PageJob> m_lastJob;   ///< that of the page in the view, or of the one that is being printed
    std::optional<PageLayout> m_layout; ///< of the whole document in the view, where it is long
    QTimer m_pause;                     ///< after the last page ahead
    bool m_isPrintingWhole = false;
    bool m_isPrintingAhead = false;
    bool m_isStale = false;
    bool m_isTyped = false;
};

} // namespace Quillary
