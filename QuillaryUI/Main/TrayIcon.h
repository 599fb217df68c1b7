#pragma once

#include <QObject>

class QMenu;
class QSystemTrayIcon;

namespace Quillary {

/// The program's place in the desktop's tray, there while the user wants closing the window to leave it there.
class TrayIcon : public QObject
{
    Q_OBJECT

public:
    explicit TrayIcon(QObject* parent = nullptr);
    ~TrayIcon() override;

    /// Shows or removes itself, as the user and the desktop want it now. True: a window may go and be found again.
    bool refresh();

Q_SIGNALS:
    void wantedWindow();
    void wantedLock();
    void wantedEnd();

private:
    QSystemTrayIcon* m_icon = nullptr;
    QMenu* m_menu = nullptr;
};

} // namespace Quillary
