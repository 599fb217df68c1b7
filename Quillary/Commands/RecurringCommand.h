#pragma once

#include "Quillary/Commands/Command.h"
#include "Quillary/Commands/RecurringChanges.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace CLI {
class App;
}

namespace Quillary {

struct CommandAnswer;
class CommandSession;

/// `quillary recurring list|run|create|edit|pause|resume|delete`: the recurring invoices, and what is due of them.
/// `--show-recurring` shows the list too where there is no screen for the window.
class RecurringCommand : public Command
{
public:
    explicit RecurringCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    using Work = std::function<CommandAnswer(CommandSession& session)>;
    using Change = CommandAnswer (*)(CommandSession& session, const RecurringRequest& request);

    CLI::App& add(const std::string& name, const std::string& description, Work work);
    CLI::App& addOnTemplate(const std::string& name, const std::string& description, Change change);
    void addSetup();
    void addChoices(CLI::App& command);

    CLI::App* m_app;
    std::vector<std::pair<CLI::App*, Work>> m_commands;
    RecurringRequest m_request;
    std::string m_output = "text";
    bool m_isShown = false;
    bool m_isDryRun = false;
};

} // namespace Quillary
