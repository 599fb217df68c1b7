#pragma once

#include "Quillary/Commands/Command.h"

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace Quillary {

class Context;
class OpenLibrary;

/// `quillary email-template list|show|set|restore`: the words that emails begin with.
class EmailTemplateCommand : public Command
{
public:
    explicit EmailTemplateCommand(CLI::App& app);

    [[nodiscard]] bool wasGiven() const override;

    [[nodiscard]] int run(const CommandSetting& setting) const override;

private:
    [[nodiscard]] std::string answer(const CommandSetting& setting) const;
    [[nodiscard]] std::string list(OpenLibrary& open) const;
    [[nodiscard]] std::string show(OpenLibrary& open, const CommandSetting& setting) const;
    [[nodiscard]] std::string set(OpenLibrary& open, const CommandSetting& setting) const;
    [[nodiscard]] std::string restore(OpenLibrary& open) const;
    [[nodiscard]] std::optional<std::string> givenBody() const;

    CLI::App* m_app;
    CLI::App* m_list;
    CLI::App* m_show;
    CLI::App* m_set;
    CLI::App* m_restore;
    std::string m_kind;
    std::string m_language;
    std::optional<std::string> m_subject;
    std::optional<std::string> m_body;
    std::string m_bodyFile;
    bool m_filled = false;
    std::string m_output = "text";
};

} // namespace Quillary
