#pragma once

#include "QuillaryUI/Look/Theme.h"

#include <QColor>
#include <QObject>
#include <QVariantMap>

#include <optional>

class QApplication;
class QDBusMessage;
class QDBusVariant;

namespace Quillary {

/// Dresses the program as the desktop wants it: dark or light, with strong contrast, with less motion. Asks the settings
/// portal over D-Bus and follows it; where there is none, or it has no preference, the desktop's palette decides.
///
/// Source: XDG Desktop Portal, `org.freedesktop.portal.Settings`.
class DesktopLook : public QObject
{
    Q_OBJECT

public:
    /// Dresses it at once as the desktop wanted it when the program last ran: the answer comes after the window.
    DesktopLook(QApplication& application, const QColor& accent, QObject* parent = nullptr);

    /// Asks, and follows from now on.
    void listen();

Q_SIGNALS:
    /// It looks different now.
    void changed();

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& name, const QDBusVariant& value);

private:
    void read(const QDBusMessage& answer);
    void take(const QString& group, const QString& name, const QVariant& value);
    void apply();

    QApplication& m_application;
    QColor m_accent;
    Theme::Scheme m_paletteScheme; ///< before anything of ours was applied
    std::optional<Theme::Scheme> m_wanted;
    Theme::Needs m_needs;
    std::optional<Theme::Scheme> m_applied;
    Theme::Needs m_appliedNeeds;
};

} // namespace Quillary
