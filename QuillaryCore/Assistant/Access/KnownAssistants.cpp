#include "QuillaryCore/Assistant/Access/KnownAssistants.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UTF8.h"
#include "QuillaryCore/Model/Limits.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace Quillary {

namespace {

struct KnownName
{
    std::string_view key;
    std::string_view displayName;
};

/// The first key that a name contains counts, so the longer of two stands first.
constexpr std::array knownNames = {
    KnownName{"claude-code", "Claude Code"},
    KnownName{"claude", "Claude"},
    KnownName{"cursor", "Cursor"},
    KnownName{"windsurf", "Windsurf"},
    KnownName{"visual-studio-code", "VS Code"},
    KnownName{"vscode", "VS Code"},
    KnownName{"copilot", "GitHub Copilot"},
    KnownName{"chatgpt", "ChatGPT"},
    KnownName{"openai", "ChatGPT"},
    KnownName{"codex", "Codex"},
    KnownName{"zed", "Zed"},
    KnownName{"goose", "Goose"},
    KnownName{"lm-studio", "LM Studio"},
    KnownName{"lmstudio", "LM Studio"},
    KnownName{"raycast", "Raycast"},
};

std::string withCapital(std::string_view word)
{
    const std::size_t length = decodeFirst(word).length;
    // English: no language's own rule for the dotted i.
    icu::UnicodeString first = icu::UnicodeString::fromUTF8(std::string(word.substr(0, length)));
    std::string result;
    first.toUpper(icu::Locale::getEnglish()).toUTF8String(result);
    result += word.substr(length);
    return result;
}

std::string words(std::string_view name)
{
    std::string result;
    while (!name.empty()) {
        const std::size_t end = std::min(name.find_first_of("-_"), name.size());
        if (end > 0) {
            result += result.empty() ? "" : " ";
            result += withCapital(name.substr(0, end));
        }
        name.remove_prefix(std::min(end + 1, name.size()));
    }
    return result;
}

std::string oneLine(std::string text)
{
    text = repairedUTF8(text);
    std::string result;
    for (const std::string_view character : graphemes(graphemePrefix(text, Limits::lineLength))) {
        result += hasControlCharacter(character) ? " " : character;
    }
    return result;
}

/// A text of the client's, or a number as text. Empty: not given.
std::string given(const JSON* info, std::string_view key)
{
    const JSON* value = info == nullptr ? nullptr : info->find(key);
    return value == nullptr ? "" : oneLine(value->text().value_or(""));
}

} // namespace

std::string KnownAssistants::displayName(std::string_view name, std::string_view title)
{
    const std::string lowerCased = lowerCasedASCII(name);
    for (const KnownName& known : knownNames) {
        if (lowerCased.find(known.key) != std::string::npos) {
            return std::string(known.displayName);
        }
    }
    if (!title.empty()) {
        return std::string(title);
    }
    const std::string result = words(name);
    return result.empty() ? AssistantClient().displayName : result;
}

AssistantClient KnownAssistants::client(const JSON* info)
{
    AssistantClient result;
    std::string name = given(info, "name");
    result.displayName = displayName(name, given(info, "title"));
    result.version = given(info, "version");
    if (!name.empty()) {
        result.name = std::move(name);
    }
    return result;
}

} // namespace Quillary
