#pragma once

#include "Quillary/Commands/Command.h"

#include <string>

namespace CLI {
class App;
}

namespace Quillary {

/// `quillary overdue`: the invoices whose due date has passed, the longest overdue first, with what comes next.
class OverdueCommand : public Command
{
public:
    explicit OverdueCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    CLI::App* m_app;
    std::string m_output = "text";
};

} // namespace Quillary
