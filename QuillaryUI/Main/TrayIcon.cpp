#include "QuillaryUI/Main/TrayIcon.h"

#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Settings/ProgramOptions.h"

#include <QApplication>
#include <QMenu>
#include <QSystemTrayIcon>

namespace Quillary {

TrayIcon::TrayIcon(QObject* parent)
    : QObject(parent)
{
}

TrayIcon::~TrayIcon()
{
    delete m_menu; // a menu can't be a child of what is no widget
}

bool TrayIcon::refresh()
{
    const bool isThere = ProgramOptions::staysInTray() && QSystemTrayIcon::isSystemTrayAvailable();
    if (isThere && m_icon == nullptr) {
        m_menu = new QMenu;
        m_menu->addAction(tr("Open Quillary"), this, &TrayIcon::wantedWindow);
        m_menu->addAction(tr("Lock"), this, &TrayIcon::wantedLock);
        m_menu->addSeparator();
        m_menu->addAction(tr("Quit"), this, &TrayIcon::wantedEnd);
        m_icon = new QSystemTrayIcon(
            QIcon::fromTheme(QGuiApplication::desktopFileName(), Theme::icon(QStringLiteral("invoice"))), this);
        m_icon->setToolTip(QStringLiteral("Quillary"));
        m_icon->setContextMenu(m_menu);
        connect(m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) {
                Q_EMIT wantedWindow();
            }
        });
    }
    if (m_icon != nullptr) {
        m_icon->setVisible(isThere);
    }
    return isThere;
}

} // namespace Quillary
