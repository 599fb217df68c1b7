#include "QuillaryCore/Lock/LockFile.h"

#include "QuillaryCore/Foundation/FileLock.h"
#include "QuillaryCore/Foundation/PrivateFiles.h"
#include "QuillaryCore/Lock/Passphrase.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestFile = 10'000;

std::string waitText(std::chrono::seconds wait)
{
    return wait == std::chrono::seconds(1) ? "Try again in a second."
                                           : fmt::format("Try again in {} seconds.", wait.count());
}

} // namespace

LockFile::LockFile(fs::path file)
    : m_file(std::move(file))
{
}

const LockSettings& LockFile::current()
{
    if (m_file.empty()) {
        return m_settings;
    }
    try {
        // Looked at before it is read: a change in between is then seen the next time.
        const auto stamp = fileStamp(m_file);
        if (!m_hasLooked || stamp != m_stamp) {
            m_stamp = stamp;
            look();
            m_hasLooked = true;
        }
    } catch (const UserError& error) {
        m_hasLooked = false;
        m_settings = {};
        m_problem = error.message();
    }
    return m_settings;
}

void LockFile::look()
{
    const auto read = m_stamp ? LockSettings::read(readFile(m_file, largestFile)) : std::optional(LockSettings());
    m_settings = read.value_or(LockSettings());
    m_problem.reset();
    if (!read) {
        m_problem =
            fmt::format("The lock in {} can't be understood. Delete the file to go on without a passphrase; the "
                        "library stays as it is.",
                        m_file.string());
    }
}

bool LockFile::hasPassphrase()
{
    return !current().passphraseHash.empty();
}

bool LockFile::isLocked()
{
    const LockSettings& settings = current();
    return m_problem.has_value() || (settings.isLocked && !settings.passphraseHash.empty());
}

void LockFile::lock()
{
    change([](LockSettings& settings) { settings.isLocked = !settings.passphraseHash.empty(); });
}

void LockFile::unlock(std::string_view passphrase, Instant now)
{
    check(passphrase, now);
    if (hasPassphrase()) {
        change([](LockSettings& settings) { settings.isLocked = false; });
    }
}

void LockFile::setPassphrase(std::string_view old, std::string_view fresh, Instant now)
{
    // Counted without the bytes that go on with a character of UTF-8.
    const auto characters = static_cast<std::size_t>(
        std::ranges::count_if(fresh, [](char byte) { return (static_cast<unsigned char>(byte) & 0xc0U) != 0x80U; }));
    if (characters < Passphrase::shortest) {
        throw LockError(LockError::Reason::tooShort,
                        fmt::format("Take at least {} characters; a few words are easy to remember and hard to guess.",
                                    Passphrase::shortest));
    }
    if (fresh.size() > Passphrase::longest) {
        throw LockError(LockError::Reason::tooLong, "That is too long for a passphrase.");
    }
    check(old, now);
    change([hash = Passphrase::hash(fresh)](LockSettings& settings) {
        settings.passphraseHash = hash;
        settings.isLocked = false;
    });
}

void LockFile::removePassphrase(std::string_view old, Instant now)
{
    check(old, now);
    change([](LockSettings& settings) { settings = {.idleMinutes = settings.idleMinutes}; });
}

void LockFile::setIdleMinutes(int minutes)
{
    change([minutes](LockSettings& settings) {
        settings.idleMinutes = std::clamp(minutes, 0, LockSettings::longestIdle);
    });
}

/// Whoever ends the program while it thinks has had an attempt all the same: it is written down before.
void LockFile::check(std::string_view passphrase, Instant now)
{
    if (!hasPassphrase() && !m_problem) {
        return;
    }
    if (const std::chrono::seconds wait = m_settings.wait(now); wait.count() > 0) {
        throw LockError(LockError::Reason::tooEarly, waitText(wait));
    }
    change([now](LockSettings& settings) {
        settings.wrongAttempts += 1;
        settings.lastWrongAt = now;
    });
    if (!Passphrase::matches(passphrase, m_settings.passphraseHash)) {
        const std::chrono::seconds wait = m_settings.wait(now);
        throw LockError(LockError::Reason::wrong,
                        "That isn't the passphrase." + (wait.count() > 0 ? " " + waitText(wait) : std::string()));
    }
    change([](LockSettings& settings) {
        settings.wrongAttempts = 0;
        settings.lastWrongAt.reset();
    });
}

void LockFile::change(const std::function<void(LockSettings&)>& change)
{
    if (m_file.empty()) {
        return;
    }
    const FileLock lock(m_file);
    LockSettings changed = current();
    if (m_problem) {
        throw LockError(LockError::Reason::unusable, *m_problem);
    }
    change(changed);
    if (changed != m_settings) {
        replacePrivateFile(m_file, changed.json().pretty() + "\n");
        m_settings = changed;
        m_hasLooked = false; // others may have written since
    }
}

} // namespace Quillary
