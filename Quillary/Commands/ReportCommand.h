#pragma once

#include "Quillary/Commands/Command.h"

#include <array>
#include <string>

namespace CLI {
class App;
}

namespace Quillary {

/// `quillary report tax|tax-documents|aging|clients|invoices`: on the terminal as a table, into a file as CSV. Reads what
/// is saved, also beside a running Quillary, and writes nothing to the library.
class ReportCommand : public Command
{
public:
    explicit ReportCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

    enum class Kind { tax, taxDocuments, aging, clients, invoices };

    /// What was typed.
    struct Options
    {
        std::string period;
        std::string from;
        std::string to;
        std::string basis = "invoiced";
        std::string currency;
        std::string format = "standard";
        std::string output;
    };

private:
    void addReport(Kind kind, const std::string& name, const std::string& description);
    [[nodiscard]] Kind kind() const;

    static constexpr std::size_t kindCount = 5;

    CLI::App* m_app;
    std::array<CLI::App*, kindCount> m_reports{};
    Options m_options;
};

} // namespace Quillary
