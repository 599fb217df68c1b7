#include "QuillaryUI/Notices/DesktopNotices.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QVariantMap>

namespace Quillary {

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");
constexpr int asLongAsUsual = -1;

QDBusMessage call(const QString& method)
{
    return QDBusMessage::createMethodCall(service, path, service, method);
}

} // namespace

void DesktopNotices::show(const QString& title, const QString& body, std::int64_t subject)
{
    if (m_readsMarkup) {
        send(title, body, subject);
        return;
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    ask(call(QStringLiteral("GetCapabilities")), [this, title, body, subject](const QDBusMessage& answer) {
        if (!m_readsMarkup) {
            QDBusConnection followed = QDBusConnection::sessionBus();
            followed.connect(
                service, path, service, QStringLiteral("ActionInvoked"), this, SLOT(actionInvoked(uint, QString)));
            followed.connect(
                service, path, service, QStringLiteral("NotificationClosed"), this, SLOT(noticeClosed(uint, uint)));
        }
        m_readsMarkup = !answer.arguments().isEmpty() &&
                        answer.arguments().constFirst().toStringList().contains(QStringLiteral("body-markup"));
        send(title, body, subject);
    });
}

/// Without waiting: a service may have to be started first. Nobody is told of one that isn't there.
void DesktopNotices::ask(const QDBusMessage& question, const std::function<void(const QDBusMessage&)>& take)
{
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [take](QDBusPendingCallWatcher* finished) {
        if (!finished->isError()) {
            take(finished->reply());
        }
        finished->deleteLater();
    });
}

void DesktopNotices::send(const QString& title, const QString& body, std::int64_t subject)
{
    QDBusMessage notice = call(QStringLiteral("Notify"));
    notice << QStringLiteral("Quillary") << uint(0) << QGuiApplication::desktopFileName() << title
           << (m_readsMarkup.value_or(false) ? body.toHtmlEscaped() : body)
           << QStringList{QStringLiteral("default"), tr("Show")}
           << QVariantMap{{QStringLiteral("desktop-entry"), QGuiApplication::desktopFileName()}} << asLongAsUsual;
    ask(notice, [this, subject](const QDBusMessage& answer) {
        if (!answer.arguments().isEmpty()) {
            m_subjects[answer.arguments().constFirst().toUInt()] = subject;
        }
    });
}

void DesktopNotices::actionInvoked(uint notice, const QString& /*action*/)
{
    if (const auto found = m_subjects.find(notice); found != m_subjects.end()) {
        const std::int64_t subject = found->second;
        m_subjects.erase(found);
        Q_EMIT clicked(subject);
    }
}

/// Some services say that it was closed before they say that it was clicked: a short while it is remembered.
void DesktopNotices::noticeClosed(uint notice, uint reason)
{
    constexpr uint byUser = 2;
    if (reason != byUser) {
        m_subjects.erase(notice);
    }
}

} // namespace Quillary
