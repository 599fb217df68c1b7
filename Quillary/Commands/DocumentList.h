#pragma once

#include <cstddef>
#include <string>

namespace Quillary {

struct CommandAnswer;
class CommandSession;

/// What a list of documents was asked to hold, as it was typed; empty is all.
struct DocumentListRequest
{
    std::string kind;
    std::string status;
    std::string period;
    std::string client;
    std::string project;
    std::string tag;
    std::string text;
    std::size_t limit = 50;
};

/// The documents that fit, the newest first, as a table. Throws: `UserError`.
[[nodiscard]] CommandAnswer listDocuments(CommandSession& session, const DocumentListRequest& request);

} // namespace Quillary
