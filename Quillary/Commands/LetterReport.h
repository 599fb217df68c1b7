#pragma once

#include "QuillaryCore/Foundation/JSON.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace Quillary {

class LetterFiles;
struct AssistantEnvironment;
struct Document;
struct LetterMail;
struct ReminderNotice;

/// What a command that writes letters answers: sentences for a person, and the same as data.
class LetterReport
{
public:
    /// A line of the text.
    void add(std::string_view line);

    /// What is reminded of, and what the reminder asks for.
    void
    tellReminder(const AssistantEnvironment& environment, const Document& document, const ReminderNotice& reminder);

    /// A reminder that is recorded no longer, and what is due without it.
    void
    tellTakenBack(const AssistantEnvironment& environment, const Document& document, const ReminderNotice& reminder);

    /// A file that was written: "Letter: /home/…", and its path under `key`.
    void tellFile(std::string_view key, std::string_view label, const std::filesystem::path& file);

    /// Writes a mail that has its files, and tells of it. Throws: `UserError`.
    void
    tellMail(const LetterMail& mail, LetterFiles& files, const std::filesystem::path& folder, std::string_view name);

    /// Prints the text, or for "json" the data.
    void print(std::string_view output) const;

    JSON data = JSON::object({});

private:
    std::string m_text;
};

} // namespace Quillary
