#pragma once

#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Store/Field.h"

#include <optional>
#include <string>
#include <utility>

namespace Quillary {

/// What every operation answers.
struct ToolResult
{
    std::string text;                ///< what the assistant or the terminal reads; always present
    std::optional<JSON> data = {};   ///< the same as structured data, an object
    std::optional<Bytes> image = {}; ///< a PNG
    bool isError = false;
    std::optional<UUID> documentID = {};     ///< the document that the call made or touched
    std::optional<std::string> summary = {}; ///< one line for the activity log

    [[nodiscard]] static ToolResult error(std::string message)
    {
        ToolResult result{.text = std::move(message)};
        result.isError = true;
        return result;
    }
};

/// Unusable arguments, or a call that can't be carried out: one finished sentence for whoever called.
class AssistantError : public UserError
{
public:
    using UserError::UserError;
};

} // namespace Quillary
