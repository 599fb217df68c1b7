#pragma once

#include "Quillary/Commands/Command.h"
#include "Quillary/Commands/ReportRequest.h"

#include <array>
#include <cstddef>
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

private:
    void addReport(ReportOrder::Kind kind, const std::string& name, const std::string& description);
    [[nodiscard]] ReportRequest request() const;

    static constexpr std::size_t kindCount = 5;

    CLI::App* m_app;
    std::array<CLI::App*, kindCount> m_reports{};
    ReportRequest m_request;
    std::string m_format = "standard";
    std::string m_output;
};

} // namespace Quillary
