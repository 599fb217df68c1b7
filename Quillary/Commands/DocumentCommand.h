#pragma once

#include "Quillary/Commands/Command.h"
#include "Quillary/Commands/DocumentChanges.h"
#include "Quillary/Commands/DocumentList.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace CLI {
class App;
}

namespace Quillary {

struct CommandAnswer;
class CommandSession;

/// `quillary document list|show|credit-note|invoice|duplicate|status|pay|tag|project|delete`: the life of a document after
/// its draft.
class DocumentCommand : public Command
{
public:
    explicit DocumentCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    using Work = std::function<CommandAnswer(CommandSession& session)>;

    CLI::App& add(const std::string& name, const std::string& description, Work work);
    CLI::App& addOnDocument(const std::string& name, const std::string& description, Work work);
    void addList();
    void addCopies();
    void addChanges();

    CLI::App* m_app;
    std::vector<std::pair<CLI::App*, Work>> m_commands;
    DocumentListRequest m_list;
    DocumentChangeRequest m_change;
    std::string m_output = "text";
};

} // namespace Quillary
