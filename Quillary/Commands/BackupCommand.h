#pragma once

#include "Quillary/Commands/Command.h"

#include <string>

namespace CLI {
class App;
}

namespace Quillary {

/// `quillary backup now|list|restore FILE`.
class BackupCommand : public Command
{
public:
    explicit BackupCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    CLI::App* m_app;
    CLI::App* m_now;
    CLI::App* m_list;
    CLI::App* m_restore;
    std::string m_file;
};

} // namespace Quillary
