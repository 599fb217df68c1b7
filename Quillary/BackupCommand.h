#pragma once

#include <filesystem>
#include <string>

namespace CLI {
class App;
}

namespace Quillary {

class AppEnvironment;

/// `quillary backup now|list|restore FILE`.
class BackupCommand
{
public:
    explicit BackupCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const;

    /// Returns the exit status. Throws: `UserError`.
    [[nodiscard]] int run(const std::filesystem::path& library, AppEnvironment& environment) const;

private:
    CLI::App* m_app;
    CLI::App* m_now;
    CLI::App* m_list;
    CLI::App* m_restore;
    std::string m_file;
};

} // namespace Quillary
