#pragma once

#include "Quillary/Commands/Command.h"

#include <string>

namespace CLI {
class App;
}

namespace Quillary {

class OpenLibrary;

/// `quillary recurring`: the recurring invoices, and what is due of them. `--show-recurring` shows the list too: there
/// is no window for it yet.
class RecurringCommand : public Command
{
public:
    explicit RecurringCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    /// What goes to standard output, once the library is let go of, and to standard error.
    struct Answer
    {
        std::string text;
        std::string complaint;
    };

    [[nodiscard]] Answer list(OpenLibrary& library, const AppEnvironment& environment) const;
    [[nodiscard]] Answer runDue(OpenLibrary& library, const AppEnvironment& environment) const;
    [[nodiscard]] Answer showDue(OpenLibrary& library, const AppEnvironment& environment) const;
    [[nodiscard]] Answer pause(OpenLibrary& library, const AppEnvironment& environment) const;
    [[nodiscard]] Answer resume(OpenLibrary& library, const AppEnvironment& environment) const;

    CLI::App* m_app;
    CLI::App* m_list;
    CLI::App* m_run;
    CLI::App* m_pause;
    CLI::App* m_resume;
    std::string m_output = "text";
    std::string m_template;
    bool m_isShown = false;
    bool m_isDryRun = false;
    bool m_makesUp = false;
};

} // namespace Quillary
