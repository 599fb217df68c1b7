#pragma once

#include "Quillary/Commands/Command.h"
#include "QuillaryCore/Foundation/JSON.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace Quillary {

struct CommandAnswer;
class CommandSession;

/// `quillary catalog|project|tax-rate|unit|preset list|add|edit|delete`: the records that a user keeps in short lists.
/// Options, columns and checks come from the records' own fields (`recordFields`).
template <class Record>
class RecordCommand : public Command
{
public:
    /// `word` is what such a record is called in sentences.
    RecordCommand(CLI::App& app, const std::string& command, std::string_view word, const std::string& description);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    void addFields(CLI::App& command);
    [[nodiscard]] const Record& meant(CommandSession& session) const;
    [[nodiscard]] JSON data(CommandSession& session, const Record& record) const;
    [[nodiscard]] CommandAnswer told(CommandSession& session, std::string_view what, const Record& record) const;
    [[nodiscard]] CommandAnswer list(CommandSession& session) const;
    [[nodiscard]] CommandAnswer add(CommandSession& session) const;
    [[nodiscard]] CommandAnswer edit(CommandSession& session) const;
    [[nodiscard]] CommandAnswer remove(CommandSession& session) const;

    std::string_view m_word;
    CLI::App* m_app;
    CLI::App* m_list;
    CLI::App* m_add;
    CLI::App* m_edit;
    CLI::App* m_delete;
    std::string m_name;
    JSON m_values = JSON::object({});
    std::string m_output = "text";
};

/// The commands of all five kinds.
[[nodiscard]] std::vector<std::unique_ptr<Command>> recordCommands(CLI::App& app);

} // namespace Quillary
