#include "QuillaryUI/Look/DesktopLook.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QMap>
#include <QSettings>

namespace Quillary {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");
const QString rememberedKey = QStringLiteral("look/desktopIsDark");

constexpr uint wantsDark = 1;
constexpr uint wantsLight = 2;

} // namespace

DesktopLook::DesktopLook(QApplication& application, const QColor& accent, QObject* parent)
    : QObject(parent)
    , m_application(application)
    , m_accent(accent)
    , m_paletteScheme(Theme::schemeOfDesktop(application))
{
    const QVariant remembered = QSettings().value(rememberedKey);
    if (remembered.isValid()) {
        m_wanted = remembered.toBool() ? Theme::Scheme::dark : Theme::Scheme::light;
    }
    apply();
}

void DesktopLook::listen()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    // Qt knows the signal's third type only once somebody has said it, and without it connects nothing.
    qRegisterMetaType<QDBusVariant>();
    bus.connect(service,
                path,
                interface,
                QStringLiteral("SettingChanged"),
                this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("ReadAll"));
    question << QStringList{appearance, gnome};
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        read(finished->reply());
        finished->deleteLater();
    });
}

void DesktopLook::read(const QDBusMessage& answer)
{
    m_wanted.reset(); // a desktop without the portal has no preference
    m_needs = {};
    if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == QLatin1String("a{sa{sv}}")) {
        QMap<QString, QVariantMap> groups;
        answer.arguments().at(0).value<QDBusArgument>() >> groups;
        for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
            for (auto value = group->cbegin(); value != group->cend(); ++value) {
                take(group.key(), value.key(), value.value());
            }
        }
    }
    apply();
}

void DesktopLook::settingChanged(const QString& group, const QString& name, const QDBusVariant& value)
{
    take(group, name, value.variant());
    apply();
}

void DesktopLook::take(const QString& group, const QString& name, const QVariant& value)
{
    if (group == appearance && name == QLatin1String("color-scheme")) {
        const uint wish = value.toUInt();
        m_wanted = wish == wantsDark    ? std::optional(Theme::Scheme::dark)
                   : wish == wantsLight ? std::optional(Theme::Scheme::light)
                                        : std::nullopt;
    } else if (group == appearance && name == QLatin1String("contrast")) {
        m_needs.highContrast = value.toUInt() == 1;
    } else if (group == gnome && name == QLatin1String("enable-animations")) {
        m_needs.lessMotion = !value.toBool();
    }
}

void DesktopLook::apply()
{
    const Theme::Scheme scheme = m_wanted.value_or(m_paletteScheme);
    if (m_wanted) {
        QSettings().setValue(rememberedKey, *m_wanted == Theme::Scheme::dark);
    } else {
        QSettings().remove(rememberedKey);
    }
    if (m_applied == scheme && m_appliedNeeds == m_needs) {
        return;
    }
    const bool isFirst = !m_applied;
    m_applied = scheme;
    m_appliedNeeds = m_needs;
    Theme::apply(m_application, scheme, m_accent, m_needs);
    if (!isFirst) {
        Q_EMIT changed();
    }
}

} // namespace Quillary
