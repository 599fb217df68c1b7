#pragma once

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

class QDBusMessage;

namespace Quillary {

/// Notices of the desktop, over D-Bus. Where no service shows them, nothing happens.
///
/// Source: Desktop Notifications Specification 1.2.
class DesktopNotices : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// `subject` comes back when the user clicks.
    void show(const QString& title, const QString& body, std::int64_t subject);

Q_SIGNALS:
    void clicked(std::int64_t subject);

private Q_SLOTS:
    void actionInvoked(uint notice, const QString& action);
    void noticeClosed(uint notice, uint reason);

private:
    void ask(const QDBusMessage& question, const std::function<void(const QDBusMessage&)>& take);
    void send(const QString& title, const QString& body, std::int64_t subject);

    std::optional<bool> m_readsMarkup; ///< of the service; no value: not asked yet
    std::map<uint, std::int64_t> m_subjects;
};

} // namespace Quillary
