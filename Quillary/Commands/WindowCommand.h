#pragma once

#include "Quillary/Commands/Command.h"

#include <string>

namespace CLI {
class App;
}

namespace Quillary {

/// `quillary` alone: the window; `--show-recurring` and `--show-assistants` open it there. A second start brings the first one's window to the front. `--screenshots` draws every
/// section of the sample library into a folder instead, and needs no screen.
class WindowCommand : public Command
{
public:
    explicit WindowCommand(CLI::App& app);

    /// Asked last: true when nothing else was asked for and there is a screen, or one of its own flags was given.
    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    [[nodiscard]] int open(const CommandSetting& setting) const;
    /// What the window shows first: empty, or the name of a section and perhaps of a page of it.
    [[nodiscard]] std::string wantedSection() const;
    [[nodiscard]] int drawSections(const CommandSetting& setting) const;

    CLI::App& m_app;
    std::string m_screenshots;
};

} // namespace Quillary
