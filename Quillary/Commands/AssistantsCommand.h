#pragma once

#include "Quillary/Commands/Command.h"

#include <cstddef>
#include <string>

namespace CLI {
class App;
}

namespace Quillary {

class AppEnvironment;
class AssistantSettingsFile;
struct AssistantSettings;

/// `quillary assistants [on|off|allow NAME|deny NAME|forget NAME|log] [--access LEVEL]`: what AI assistants may do, which
/// of them the user knows, what they did, and how to connect one.
class AssistantsCommand : public Command
{
public:
    explicit AssistantsCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    /// Without anything to change, prints the state. Returns the exit status. Throws: `UserError`.
    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    [[nodiscard]] bool changesSomething() const;
    void apply(AssistantSettings& settings) const;
    void change(AssistantSettingsFile& file) const;
    [[nodiscard]] bool answersJSON() const { return m_output == "json"; }
    void printState(AssistantSettingsFile& file, const AppEnvironment& environment) const;
    void printLog(const AppEnvironment& environment) const;

    CLI::App* m_app;
    bool m_isShown = false; ///< asked for by a flag
    CLI::App* m_on;
    CLI::App* m_off;
    CLI::App* m_allow;
    CLI::App* m_deny;
    CLI::App* m_forget;
    CLI::App* m_log;
    std::string m_access;
    std::string m_output = "text";
    std::string m_name;
    std::size_t m_limit = 20;
};

} // namespace Quillary
