#pragma once

#include <string>

namespace CLI {
class App;
}

namespace Quillary {

class AppEnvironment;

/// `quillary --render-samples FOLDER`: the pages of every kind, design and language, as HTML, PDF and PNG.
class SamplesCommand
{
public:
    explicit SamplesCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const { return !m_folder.empty(); }

    /// Returns the exit status. Throws: `UserError`.
    [[nodiscard]] int run(AppEnvironment& environment) const;

private:
    std::string m_folder;
    std::string m_currency;
    bool m_englishOnly = false;
};

} // namespace Quillary
