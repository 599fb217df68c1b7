#pragma once

#include "QuillaryUI/Paper/PagePress.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <optional>

namespace Quillary {

class PaperView;

/// The page of one document as it is now, in a view: printed anew whenever somebody asks, one job at a time. While one is
/// printed only the newest wish waits, so that fast typing never queues up pages that nobody will see; and while the view
/// is hidden nothing is printed at all. What would be the same page again isn't printed either.
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

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void startIfSeen();
    void finish(std::uint64_t turn, PrintResult result);

    PagePress& m_press;
    PaperView& m_view;
    Source m_source;
    std::uint64_t m_turn = 0; ///< of the document that is shown
    std::uint64_t m_shownTurn = 0;
    std::optional<PageJob> m_lastJob; ///< that of the page in the view, or of the one that is being printed
    bool m_isPrinting = false;
    bool m_isStale = false;
};

} // namespace Quillary
