#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QToolButton;

namespace Quillary {

/// The timer that runs, at a place that is always in sight: what is worked at, how long already, and a button that stops
/// it. Hidden while none runs; it ticks only while somebody can see it.
class RunningTimer : public QWidget
{
    Q_OBJECT

public:
    explicit RunningTimer(LibraryAccess& library, QWidget* parent = nullptr);

Q_SIGNALS:
    void told(const QString& sentence);
    void failed(const QString& sentence);
    /// What is being typed about the work elsewhere is to be saved now: afterwards it would be nobody's.
    void stopping();
    /// Where the entry can be changed.
    void wantedTime();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void build();
    void reload();
    void tick();
    void stop();

    LibraryAccess& m_library;
    QTimer m_second;
    QLabel* m_clock;
    QLabel* m_work;
    QToolButton* m_stop;
};

} // namespace Quillary
