#pragma once

#include "Quillary/Commands/Command.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Documents/Desk.h"
#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/JSON.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace CLI {
class App;
}

namespace Quillary {

struct CatalogItem;
struct Client;
struct Document;
struct Project;

/// What a command answers: for people, and as data.
struct CommandAnswer
{
    std::string text; ///< whole lines
    JSON data;
    std::string complaint = {}; ///< what went wrong in part, as whole lines for standard error; the status is 1 then
};

/// One command's work on the library: open, with everything that the operations need.
class CommandSession
{
public:
    using Work = std::function<CommandAnswer(CommandSession& session)>;

    /// Opens the library, does the work, and lets go of the library before the answer is printed: a running Quillary waits
    /// for it, and whoever reads what is printed may take long over it. `output` is "text" or "json". Returns the exit
    /// status. Throws: `UserError`.
    static int run(const CommandSetting& setting, const std::string& output, const Work& work);

    /// Adds `--output text|json` to a command and its own commands' lines.
    static void addOutput(CLI::App& command, std::string& output);

    [[nodiscard]] Context& context() { return m_library.context(); }
    [[nodiscard]] const AssistantEnvironment& environment() const { return m_environment; }
    [[nodiscard]] const Business& business() { return m_library.business(); }
    [[nodiscard]] Desk desk() { return {m_library.context(), m_library.business(), m_environment.calendar}; }
    [[nodiscard]] PrintingHost& host() { return m_host; }
    [[nodiscard]] Instant now() const { return m_environment.clock.now(); }

    /// Today, or the day that was typed as "YYYY-MM-DD", as it is stored. Throws: `UserError`.
    [[nodiscard]] Instant day(const std::string& typed) const;

    // By id, number or name; a name that fits several is a question with the candidates. Throws: `UserError`.
    [[nodiscard]] const Document& document(std::string_view asked);
    [[nodiscard]] const Client& client(std::string_view asked);
    [[nodiscard]] const Project& project(std::string_view asked);

    /// What was typed as arguments of an operation; what was not typed, or is empty, is left out.
    [[nodiscard]] static JSON typed(std::initializer_list<std::pair<std::string_view, const std::string&>> values);

private:
    explicit CommandSession(const CommandSetting& setting);

    OpenLibrary m_library;
    PrintingHost m_host;
    AssistantEnvironment m_environment;
};

} // namespace Quillary
