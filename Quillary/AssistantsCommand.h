#pragma once

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
class AssistantsCommand
{
public:
    explicit AssistantsCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const;

    /// Without anything to change, prints the state. Returns the exit status. Throws: `UserError`.
    [[nodiscard]] int run(const AppEnvironment& environment) const;

private:
    [[nodiscard]] bool changesSomething() const;
    void apply(AssistantSettings& settings) const;
    void change(AssistantSettingsFile& file) const;
    [[nodiscard]] bool answersJSON() const { return m_output == "json"; }
    void printState(AssistantSettingsFile& file, const AppEnvironment& environment) const;
    void printLog(const AppEnvironment& environment) const;

    CLI::App* m_app;
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
