#pragma once

#include "Quillary/Commands/Command.h"

#include <string>

namespace CLI {
class App;
}

namespace Quillary {

class AppEnvironment;

/// `quillary email DOCUMENT`: a draft for the user's mail program with the document's PDF in it. It sends nothing and
/// changes nothing.
class EmailCommand : public Command
{
public:
    explicit EmailCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    CLI::App* m_app;
    std::string m_document;
    std::string m_mailFolder;
    std::string m_to;
    std::string m_output = "text";
};

} // namespace Quillary
