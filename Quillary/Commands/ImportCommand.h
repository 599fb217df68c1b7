#pragma once

#include "Quillary/Commands/Command.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace Quillary {

/// `quillary import clients FILE [--dry-run] [--map COLUMN=FIELD ...]`.
class ImportCommand : public Command
{
public:
    explicit ImportCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    /// A dry run reads the library beside whoever holds it.
    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    CLI::App* m_app;
    std::string m_file;
    std::vector<std::string> m_assignments;
    bool m_isDryRun = false;
};

} // namespace Quillary
