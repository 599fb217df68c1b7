#pragma once

#include "Quillary/Commands/Command.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Foundation/JSON.h"

#include <filesystem>
#include <string>

namespace CLI {
class App;
}

namespace Quillary {

class AppEnvironment;
class PrintingHost;

/// `quillary make-example FILE --output FOLDER`: makes the invoice that a JSON file describes in a fresh library, through
/// the same operations as everybody, and writes its page as HTML, PDF and PNG.
class ExampleCommand : public Command
{
public:
    explicit ExampleCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    /// Says what was made and where it lies. Returns the exit status. Throws: `UserError`.
    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    /// What is left to do when the records are made.
    struct Pages
    {
        std::string told; ///< about the records
        std::string name; ///< of the files, without an extension
        PageJob job;
    };

    [[nodiscard]] Pages pagesOf(const std::filesystem::path& folder,
                                const JSON& example,
                                AppEnvironment& environment,
                                PrintingHost& host) const;

    CLI::App* m_app;
    std::string m_file;
    std::string m_output = "quillary-example";
};

} // namespace Quillary
