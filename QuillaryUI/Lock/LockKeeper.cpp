#include "QuillaryUI/Lock/LockKeeper.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Lock/LockFile.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Formats.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace Quillary {

namespace {

constexpr std::chrono::seconds betweenLooks{2};

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TabletMove:
    case QEvent::InputMethod:
        return true;
    default:
        return false;
    }
}

} // namespace

LockKeeper::LockKeeper(const std::filesystem::path& file, std::function<Instant()> now, QObject* parent)
    : QObject(parent)
    , m_file(std::make_unique<LockFile>(file))
    , m_now(std::move(now))
{
    m_looks.setInterval(betweenLooks);
    connect(&m_looks, &QTimer::timeout, this, &LockKeeper::look);
    if (!file.empty()) {
        m_lastInput = m_now();
        m_looks.start();
        QCoreApplication::instance()->installEventFilter(this);
    }
}

LockKeeper::~LockKeeper() = default;

bool LockKeeper::hasPassphrase() const
{
    return m_file->hasPassphrase() || m_file->isLocked();
}

bool LockKeeper::lock()
{
    if (!hasPassphrase()) {
        return false;
    }
    if (!m_isLocked) {
        m_isLocked = true;
        Q_EMIT locked(); // the window first: what is written down may fail
    }
    try {
        m_file->lock();
    } catch (const UserError&) {
        return true; // an unusable file is a locked one; `unlock` tells of it
    }
    return true;
}

std::optional<QString> LockKeeper::unlock(const QString& passphrase)
{
    try {
        // However a letter with an accent was typed, it is the same letter.
        m_file->unlock(utf8(passphrase.normalized(QString::NormalizationForm_C)), m_now());
    } catch (const UserError& error) {
        return CoreText::sentence(error.message());
    }
    m_lastInput = m_now();
    m_isLocked = false;
    Q_EMIT unlocked();
    return std::nullopt;
}

std::chrono::seconds LockKeeper::wait() const
{
    const LockSettings& settings = m_file->current();
    return settings.lastWrongAt ? settings.wait(m_now()) : std::chrono::seconds(0);
}

bool LockKeeper::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (isInput(event->type())) {
        m_lastInput = m_now();
    }
    return false;
}

void LockKeeper::look()
{
    const LockSettings& settings = m_file->current();
    const auto idle = m_now() - m_lastInput;
    const bool isIdle = settings.idleMinutes > 0 && idle >= std::chrono::minutes(settings.idleMinutes);
    if (!m_isLocked && (m_file->isLocked() || (isIdle && m_file->hasPassphrase()))) {
        lock();
    }
}

} // namespace Quillary
