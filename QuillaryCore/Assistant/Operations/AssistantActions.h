#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"
#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Foundation/JSON.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

class LibrarySearch;

/// The operations that an assistant, a script or a test may run on the user's data.
///
/// Each call is one scope of the context: it is saved whole, or changes nothing.
class AssistantActions
{
public:
    using Reply = std::function<void(ToolResult)>;

    explicit AssistantActions(AssistantEnvironment environment);
    AssistantActions(const AssistantActions&) = delete;
    AssistantActions& operator=(const AssistantActions&) = delete;
    ~AssistantActions();

    /// The catalogue, in the order in which it is listed.
    [[nodiscard]] static const std::vector<AssistantTool>& tools() { return ToolCatalogue::tools(); }

    /// From now on, see `AssistantEnvironment::assistantName`.
    void setAssistantName(std::string name) { m_environment.assistantName = std::move(name); }

    /// Runs the tool of exactly this name and hands its result to `reply`: at once, or later when a page has to be
    /// printed first; always on the calling thread and never as an exception.
    void call(std::string_view name, const JSON& arguments, const Reply& reply);

private:
    AssistantEnvironment m_environment;
    std::unique_ptr<LibrarySearch> m_ownSearch;
};

} // namespace Quillary
