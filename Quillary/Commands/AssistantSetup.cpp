#include "Quillary/Commands/AssistantSetup.h"

#include "QuillaryChannel/AssistantChannel.h"
#include "QuillaryCore/Foundation/Text.h"

#include <fmt/format.h>

#include <utility>

namespace Quillary::AssistantSetup {

namespace fs = std::filesystem;

namespace {

constexpr const char* serverName = "quillary";

/// The form of one app differs from the usual in the name of the list and in a type.
JSON typedConfiguration(const fs::path& helper)
{
    JSON server = JSON::object({{"type", "stdio"}, {"command", helper.string()}});
    return JSON::object({{"servers", JSON::object({{serverName, std::move(server)}})}});
}

} // namespace

fs::path helperBeside(const fs::path& program)
{
    return program.parent_path() / AssistantChannel::helperName;
}

JSON configuration(const fs::path& helper)
{
    JSON server = JSON::object({{"command", helper.string()}, {"args", JSON::array({})}});
    return JSON::object({{"mcpServers", JSON::object({{serverName, std::move(server)}})}});
}

std::string shellWord(std::string_view text)
{
    constexpr std::string_view plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-";
    if (!text.empty() && text.find_first_not_of(plain) == std::string_view::npos) {
        return std::string(text);
    }
    return "'" + replacing(text, "'", R"('\'')") + "'";
}

std::string instructions(const fs::path& helper)
{
    const std::string path = helper.string();
    const std::string command = shellWord(path);
    return fmt::format("To connect an assistant app, add Quillary to its MCP servers, then start the app anew.\n"
                       "\n"
                       "Most apps (Claude, Cursor, Windsurf, LM Studio and others) take this in their settings:\n"
                       "\n{}\n"
                       "\n"
                       "VS Code and GitHub Copilot take this in .vscode/mcp.json or the user's mcp.json:\n"
                       "\n{}\n"
                       "\n"
                       "Apps with a command line take one of these:\n"
                       "\n"
                       "  claude mcp add quillary -- {}\n"
                       "  codex mcp add quillary -- {}\n"
                       "\n"
                       "Any other app: the server's type is “stdio”, its command is {}, and it has no arguments.\n",
                       configuration(helper).pretty(),
                       typedConfiguration(helper).pretty(),
                       command,
                       command,
                       path);
}

} // namespace Quillary::AssistantSetup
