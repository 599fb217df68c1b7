#pragma once

#include "Quillary/Commands/Command.h"

#include <string>

namespace CLI {
class App;
}

namespace Quillary {

/// `quillary --render-samples FOLDER`: the pages of every kind, design and language, as HTML, PDF and PNG.
class SamplesCommand : public Command
{
public:
    explicit SamplesCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override { return !m_folder.empty(); }

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    std::string m_folder;
    std::string m_currency;
    bool m_englishOnly = false;
};

} // namespace Quillary
