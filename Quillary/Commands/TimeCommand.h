#pragma once

#include "Quillary/Commands/Command.h"
#include "QuillaryCore/Schedules/TimeTracking.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace Quillary {

class TimeDesk;

/// `quillary time`: the timer, the recorded time, and what becomes of it on invoices.
class TimeCommand : public Command
{
public:
    explicit TimeCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    /// What goes to standard output, once the library is let go of, and to standard error.
    struct Answer
    {
        std::string text;
        std::string warning;
    };
    using Action = Answer (TimeCommand::*)(TimeDesk&) const;

    CLI::App* add(const char* name, const char* description, Action action);
    void addWork(CLI::App* command);
    void addFilter(CLI::App* command);
    void addTimer();
    void addEntries();
    void addInvoice();

    [[nodiscard]] Answer start(TimeDesk& desk) const;
    [[nodiscard]] Answer stop(TimeDesk& desk) const;
    [[nodiscard]] Answer status(TimeDesk& desk) const;
    [[nodiscard]] Answer record(TimeDesk& desk) const;
    [[nodiscard]] Answer list(TimeDesk& desk) const;
    [[nodiscard]] Answer edit(TimeDesk& desk) const;
    [[nodiscard]] Answer erase(TimeDesk& desk) const;
    [[nodiscard]] Answer invoice(TimeDesk& desk) const;

    [[nodiscard]] TimeTracking::Work work(TimeDesk& desk) const;
    [[nodiscard]] TimeTracking::Change change(TimeDesk& desk, const TimeEntry& entry) const;
    [[nodiscard]] bool isJSON() const { return m_output == "json"; }

    CLI::App* m_app;
    std::map<CLI::App*, Action> m_actions;
    std::string m_output = "text";
    std::optional<std::string> m_client;
    std::optional<std::string> m_project;
    std::optional<std::string> m_note;
    std::optional<std::string> m_at;
    std::optional<std::string> m_time;
    std::optional<std::string> m_date;
    std::optional<std::string> m_from;
    std::optional<std::string> m_until;
    std::optional<std::string> m_document;
    std::optional<std::string> m_grouping;
    std::optional<int> m_rounding;
    std::optional<bool> m_isBillable;
    std::vector<std::string> m_entries;
    bool m_isUnbilled = false;
};

} // namespace Quillary
