#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace Quillary {

class AppEnvironment;

/// `quillary make-example FILE --output FOLDER`: makes the invoice that a JSON file describes in a fresh library, through
/// the same operations as everybody, and writes its page as HTML, PDF and PNG.
class ExampleCommand
{
public:
    explicit ExampleCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const;

    /// Says what was made and where it lies. Returns the exit status. Throws: `UserError`.
    [[nodiscard]] int run(const std::optional<std::filesystem::path>& library, AppEnvironment& environment) const;

private:
    CLI::App* m_app;
    std::string m_file;
    std::string m_output = "quillary-example";
};

} // namespace Quillary
