#pragma once

#include <string>

namespace Quillary {

/// What a connected assistant app said about itself.
struct AssistantClient
{
    std::string name = "assistant"; ///< as sent in "initialize"
    std::string version;
    std::string displayName = "AI assistant"; ///< shown to the user; approvals and the activity log go by it

    friend bool operator==(const AssistantClient&, const AssistantClient&) = default;
};

} // namespace Quillary
