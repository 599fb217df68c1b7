#pragma once

#include "QuillaryCore/Assistant/Access/AssistantSettings.h"
#include "QuillaryCore/Foundation/Files.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace Quillary {

/// The assistants' settings on disk. Several programs read and change them: a change made by a command counts for the
/// next call that a running server is asked about.
class AssistantSettingsFile
{
public:
    static constexpr const char* fileName = "assistants.json";

    /// A missing file, or folder, holds what is set at first.
    explicit AssistantSettingsFile(std::filesystem::path file);

    [[nodiscard]] const std::filesystem::path& path() const { return m_file; }

    /// The settings as they stand now. Reads the file only when it is another than the last time.
    /// Of a file that can't be read or understood: turned off, and `problem` says so.
    [[nodiscard]] const AssistantSettings& current();

    /// What was wrong with the file when `current` last looked, as a finished sentence.
    [[nodiscard]] const std::optional<std::string>& problem() const { return m_problem; }

    /// Changes the settings as they stand on disk, while no other program does. Returns the name under which a damaged
    /// file was kept; then the change was made to what is set at first.
    /// Throws: `UserError`; then nothing has changed.
    std::optional<std::filesystem::path> change(const std::function<void(AssistantSettings&)>& change);

private:
    enum class State { usable, damaged, unreadable };

    void look();

    std::filesystem::path m_file;
    std::optional<FileStamp> m_stamp;
    bool m_hasLooked = false;
    AssistantSettings m_settings;
    State m_state = State::usable;
    std::optional<std::string> m_problem;
};

} // namespace Quillary
