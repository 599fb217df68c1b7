#pragma once

#include "QuillaryCore/Foundation/JSON.h"

#include <span>
#include <string>
#include <string_view>

namespace Quillary {

/// An argument of a prompt, an optional text.
struct MCPPromptArgument
{
    std::string_view name;
    std::string_view description;
};

/// A request in words that an assistant app offers its user ready to send.
struct MCPPrompt
{
    std::string_view name;
    std::string_view title;
    std::string_view description;
    std::span<const MCPPromptArgument> arguments;
    std::string (*text)(const JSON& given); ///< from an object with the arguments that were given

    /// The entry as "prompts/list" shows it.
    [[nodiscard]] JSON listing() const;
};

/// The prompts in the order in which they are listed.
namespace MCPPrompts {

[[nodiscard]] std::span<const MCPPrompt> all();

/// The prompt of exactly this name. Null: there is none.
[[nodiscard]] const MCPPrompt* find(std::string_view name);

} // namespace MCPPrompts

} // namespace Quillary
