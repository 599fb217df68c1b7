#pragma once

#include "QuillaryCore/Foundation/Instant.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace Quillary {

class LockFile;

/// Keeps the windows locked and opens them again: on demand, after a time without input, and whenever another window of
/// this user was locked.
class LockKeeper : public QObject
{
    Q_OBJECT

public:
    /// Without a file nothing is ever locked, and `now` isn't asked.
    LockKeeper(const std::filesystem::path& file, std::function<Instant()> now, QObject* parent = nullptr);
    ~LockKeeper() override;

    [[nodiscard]] bool hasPassphrase() const;
    [[nodiscard]] bool isLocked() const { return m_isLocked; }

    /// False: there is no passphrase to lock with.
    bool lock();

    /// No value: it is open; else the sentence that says why not.
    [[nodiscard]] std::optional<QString> unlock(const QString& passphrase);

    /// How long the next attempt has to wait.
    [[nodiscard]] std::chrono::seconds wait() const;

Q_SIGNALS:
    void locked();
    void unlocked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void look();

    std::unique_ptr<LockFile> m_file;
    bool m_isLocked = false;
    std::function<Instant()> m_now;
    QTimer m_looks;
    Instant m_lastInput; ///< by the clock on the wall, which goes on while the machine sleeps
};

} // namespace Quillary
