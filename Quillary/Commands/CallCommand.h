#pragma once

#include "Quillary/Commands/Command.h"
#include "Quillary/Commands/ToolArguments.h"
#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"

#include <filesystem>
#include <string>

namespace CLI {
class App;
}

namespace Quillary {

class AppEnvironment;

/// `quillary call TOOL --property value …`: runs one tool of the catalogue on the library. Options, help and checks come
/// from the tools' input schemas.
class CallCommand : public Command
{
public:
    /// Adds the command to the command line; the parsed values stay in here.
    explicit CallCommand(CLI::App& app);

    /// True when the command line asked for this command.
    [[nodiscard]] bool wasGiven() const override;

    /// Runs the tool and writes its answer. Returns the exit status: 0, or 1 for an answer that is an error, which goes
    /// to standard error. Throws: `UserError`.
    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    void addTool(CLI::App& call, const AssistantTool& tool);
    [[nodiscard]] JSON arguments() const;
    [[nodiscard]] ToolResult result(const std::filesystem::path& library, AppEnvironment& environment) const;
    [[nodiscard]] int print(const ToolResult& result) const;

    CLI::App* m_app;
    std::string m_tool;
    std::string m_json;
    std::string m_output = "text";
    std::string m_image;
    TypedValues m_values;
};

} // namespace Quillary
