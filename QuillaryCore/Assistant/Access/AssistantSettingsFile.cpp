#include "QuillaryCore/Assistant/Access/AssistantSettingsFile.h"

#include "QuillaryCore/Foundation/FileLock.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"

#include <fmt/format.h>

#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestFile = 1'000'000;

/// Beside it, under a name of its own: nothing is overwritten.
fs::path keptAside(const fs::path& file)
{
    return moveToUniquePath(file, file.parent_path(), file.stem().string() + " damaged", "json");
}

} // namespace

AssistantSettingsFile::AssistantSettingsFile(fs::path file)
    : m_file(std::move(file))
{
}

const AssistantSettings& AssistantSettingsFile::current()
{
    try {
        // Looked at before it is read: a change in between is then seen the next time.
        const auto stamp = fileStamp(m_file);
        if (!m_hasLooked || stamp != m_stamp) {
            m_hasLooked = true;
            m_stamp = stamp;
            look();
        }
    } catch (const UserError& error) {
        m_hasLooked = false;
        m_settings = {};
        m_state = State::unreadable;
        m_problem = error.message() + " AI assistants are turned off until it can be read.";
    }
    return m_settings;
}

void AssistantSettingsFile::look()
{
    const auto read =
        m_stamp ? AssistantSettings::read(readFile(m_file, largestFile)) : std::optional(AssistantSettings());
    m_settings = read.value_or(AssistantSettings());
    m_state = read ? State::usable : State::damaged;
    m_problem.reset();
    if (!read) {
        m_problem = fmt::format("The settings in {} can't be understood, so AI assistants are turned off. Turn them on "
                                "again to begin with new settings; the file is kept.",
                                m_file.string());
    }
}

std::optional<fs::path> AssistantSettingsFile::change(const std::function<void(AssistantSettings&)>& change)
{
    const FileLock lock(m_file);
    AssistantSettings changed = current();
    if (m_state == State::unreadable) {
        throw UserError(m_problem.value_or(""));
    }
    change(changed);
    std::optional<fs::path> kept;
    if (m_state == State::damaged) {
        kept = keptAside(m_file);
    } else if (m_stamp && changed == m_settings) {
        return std::nullopt;
    }
    replaceFile(m_file, changed.json().pretty() + "\n");
    return kept;
}

} // namespace Quillary
