#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

namespace Quillary {

class ClientPicker;
class ProjectBox;

/// The timer: what is worked at, how long already, and the button that starts or stops it. A timer is nothing but an
/// entry without an end, so it also shows one that was started elsewhere.
class TimerBar : public QWidget
{
    Q_OBJECT

public:
    explicit TimerBar(LibraryAccess& library, QWidget* parent = nullptr);

    /// Writes what is typed about the timer that runs.
    void describe();

Q_SIGNALS:
    void told(const QString& sentence);
    void failed(const QString& sentence);

private:
    void build();
    void reload();
    void tick();
    void startOrStop();
    void start();
    void stop();

    LibraryAccess& m_library;
    QTimer m_second;
    QLabel* m_clock;
    QLineEdit* m_note;
    ClientPicker* m_client;
    ProjectBox* m_project;
    QPushButton* m_button;
    bool m_isRunning = false;
};

} // namespace Quillary
