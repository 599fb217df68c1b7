#pragma once

#include <filesystem>

namespace Quillary {

class AppEnvironment;

/// What a command works on. Borrows the environment.
struct CommandSetting
{
    std::filesystem::path library; ///< the folder that was named, else the user's own
    bool isLibraryNamed = false;   ///< false: it is the user's own
    AppEnvironment& environment;
};

/// One command of the command line. Its constructor adds its words and options to the line; what was typed stays in it.
class Command
{
public:
    Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    virtual ~Command() = default;

    /// True when the line that was parsed asks for this command.
    [[nodiscard]] virtual bool wasGiven() const = 0;

    /// Returns the exit status; what went wrong without an exception is already told. Throws: `UserError`.
    [[nodiscard]] virtual int run(const CommandSetting& setting) const = 0;
};

} // namespace Quillary
