#pragma once

#include "Quillary/Commands/Command.h"

#include <filesystem>
#include <string>

namespace CLI {
class App;
}

namespace Quillary {

class AppEnvironment;

/// `quillary serve`: the application without its windows. It serves the library to assistant apps until it is told to
/// end. `--assistant-test-server` serves sample documents in a folder of its own instead, with every assistant allowed:
/// for trying an assistant app, and for tests.
class ServeCommand : public Command
{
public:
    explicit ServeCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    [[nodiscard]] int serveSamples(AppEnvironment& environment) const;

    CLI::App* m_app;
    bool m_isBackground = false;
    bool m_isTest = false;
    double m_idleSeconds = 300;
    std::string m_access = "everything";
};

} // namespace Quillary
