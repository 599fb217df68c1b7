#pragma once

#include "QuillaryUI/Paper/PagePress.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace Quillary {

/// The page of one document as it is now: printed anew whenever somebody asks, one job at a time. While one is printed
/// only the newest wish waits, so that fast typing never queues up pages that nobody will see.
class LivePage : public QObject
{
    Q_OBJECT

public:
    /// Makes the job when the printer is free. No value: there is nothing to show.
    using Source = std::function<std::optional<PageJob>()>;

    explicit LivePage(PagePress& press, QObject* parent = nullptr);

    /// Shows another document; what was printed of the one before is dropped.
    void show(Source source);

    /// The same document has changed.
    void refresh();

    /// Shows nothing.
    void clear();

Q_SIGNALS:
    /// A page is ready. `isSame`: it is the document that was shown before, so the view stays where it is.
    void ready(const Bytes& pdf, int pageCount, bool isSame);
    void failed(const QString& sentence);
    void cleared();

private:
    void start();
    void finish(std::uint64_t turn, PrintResult result);

    PagePress& m_press;
    Source m_source;
    std::uint64_t m_turn = 0; ///< of the document that is shown
    std::uint64_t m_shownTurn = 0;
    bool m_isPrinting = false;
    bool m_isStale = false;
};

} // namespace Quillary
