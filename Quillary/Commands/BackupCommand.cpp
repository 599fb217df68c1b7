#include "Quillary/Commands/BackupCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/Control/LibraryClaim.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Backups.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <optional>
#include <vector>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

int list(const Backups& backups)
{
    const std::vector<Backups::Entry> entries = backups.list();
    if (entries.empty()) {
        fmt::print("There are no backups of this library yet.\n");
    }
    for (const Backups::Entry& entry : entries) {
        fmt::print("{:>9.1f} MB  {}\n", static_cast<double>(entry.bytes) / 1e6, entry.file.string());
    }
    return 0;
}

int makeNow(const Backups& backups, const AppEnvironment& environment)
{
    fmt::print("Made {}\n", backups.makeNow(environment.clock().now()).string());
    return 0;
}

int restore(const Backups& backups, const fs::path& library, const fs::path& file, const AppEnvironment& environment)
{
    // The library is let go of before anything is printed: whoever reads that may take long over it.
    const std::optional<fs::path> kept = backups.restore(file, environment.clock().now(), *claimLibrary(library).lock);
    fmt::print("Restored {}\n", file.string());
    if (kept) {
        fmt::print("The library as it was before is kept as {}\n", kept->string());
    }
    return 0;
}

} // namespace

BackupCommand::BackupCommand(CLI::App& app)
    : m_app(app.add_subcommand("backup", "Makes, lists and restores backups of the library."))
    , m_now(m_app->add_subcommand("now", "Makes a backup now."))
    , m_list(m_app->add_subcommand("list", "Lists the backups, the newest first."))
    , m_restore(m_app->add_subcommand("restore", "Puts a backup in the place of the library, which is kept."))
{
    m_app->require_subcommand(1);
    m_restore->add_option("file", m_file, "The backup: a path, or a name from the list.")->required();
}

bool BackupCommand::wasGiven() const
{
    return m_app->parsed();
}

int BackupCommand::run(const CommandSetting& setting) const
{
    const AppEnvironment& environment = setting.environment;
    const Backups backups(fs::absolute(setting.library), DataModel::history(), environment.calendar());
    if (m_list->parsed()) {
        return list(backups);
    }
    return m_now->parsed() ? makeNow(backups, environment) : restore(backups, setting.library, m_file, environment);
}

} // namespace Quillary
