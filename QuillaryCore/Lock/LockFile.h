#pragma once

#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Lock/LockSettings.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// A passphrase that wasn't the right one, or that can't be taken.
class LockError : public UserError
{
public:
    enum class Reason {
        wrong,
        tooEarly, ///< after wrong ones; `LockSettings::wait` says for how long
        tooShort,
        tooLong,
        unusable, ///< the file can't be read
    };

    LockError(Reason reason, const std::string& message)
        : UserError(message)
        , m_reason(reason)
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }

private:
    Reason m_reason;
};

/// The lock on disk, which is where all programs of the user look: a window that locks thereby stops a service of
/// assistants beside it, and a program that is started anew finds itself locked.
///
/// It lies beside the program's settings, not in the library: a copy of the library is no guard against who has it, the
/// lock must hold while the library is lent, and undoing a change must not bring an old passphrase back.
/// Nothing is encrypted. Whoever may write the file can remove the lock; that is also how one gets in again who has
/// forgotten the passphrase.
class LockFile
{
public:
    static constexpr const char* fileName = "lock.json";

    /// A missing file means that nothing is ever locked; an empty name that there is none.
    explicit LockFile(std::filesystem::path file);

    [[nodiscard]] const std::filesystem::path& path() const { return m_file; }

    /// As it stands now; reads the file only when it is another than the last time.
    [[nodiscard]] const LockSettings& current();

    /// What was wrong with the file when `current` last looked. Then everything is locked: nobody knows what it said.
    [[nodiscard]] const std::optional<std::string>& problem() const { return m_problem; }

    [[nodiscard]] bool hasPassphrase();
    [[nodiscard]] bool isLocked();

    /// Nothing without a passphrase. Throws, here and below: `LockError`, `UserError`.
    void lock();

    /// Nothing where nothing is locked.
    void unlock(std::string_view passphrase, Instant now);

    /// `old` counts where there is a passphrase already; a wrong one counts as an attempt.
    void setPassphrase(std::string_view old, std::string_view fresh, Instant now);
    void removePassphrase(std::string_view old, Instant now);

    void setIdleMinutes(int minutes);

private:
    void look();
    void check(std::string_view passphrase, Instant now);
    void change(const std::function<void(LockSettings&)>& change);

    std::filesystem::path m_file;
    std::optional<FileStamp> m_stamp;
    bool m_hasLooked = false;
    LockSettings m_settings;
    std::optional<std::string> m_problem;
};

} // namespace Quillary
