#pragma once

#include "Quillary/Commands/Command.h"

#include <string>

namespace CLI {
class App;
}

namespace Quillary {

struct CommandAnswer;
class CommandSession;

/// `quillary settings list|get NAME|set NAME VALUE`: every attribute of the business.
class SettingsCommand : public Command
{
public:
    explicit SettingsCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    [[nodiscard]] CommandAnswer list(CommandSession& session) const;
    [[nodiscard]] CommandAnswer get(CommandSession& session) const;
    [[nodiscard]] CommandAnswer set(CommandSession& session) const;

    CLI::App* m_app;
    CLI::App* m_list;
    CLI::App* m_get;
    CLI::App* m_set;
    std::string m_name;
    std::string m_value;
    std::string m_output = "text";
};

} // namespace Quillary
