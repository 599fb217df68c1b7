#pragma once

#include "QuillaryCore/Assistant/AssistantHost.h"
#include "QuillaryCore/Assistant/AssistantTool.h"
#include "QuillaryCore/Assistant/ToolResult.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Clock.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Store/Context.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

struct Business;

/// What an operation works with. All of it is borrowed and outlives the call.
struct AssistantEnvironment
{
    Context& context;
    Ref<Business> business;
    AssistantHost* host = nullptr; ///< null where nothing can be printed or opened
    std::string assistantName;     ///< kept as `Document::madeBy`; empty for the user's own commands
    const Clock& clock;
    Calendar calendar;
    Locale locale; ///< for number and date text

    /// The business's record. A library without one is a programmer's mistake.
    [[nodiscard]] const Business& ownBusiness() const;
};

/// The operations that an assistant, a script or a test may run on the user's data.
///
/// Each call is one scope of the context: it is saved whole, or changes nothing.
class AssistantActions
{
public:
    using Reply = std::function<void(ToolResult)>;

    explicit AssistantActions(AssistantEnvironment environment);

    /// The catalogue, in the order in which it is listed.
    [[nodiscard]] static const std::vector<AssistantTool>& tools() { return ToolCatalogue::tools(); }

    /// Runs the tool of exactly this name and hands its result to `reply`: at once, or later when a page has to be
    /// printed first; always on the calling thread and never as an exception.
    void call(std::string_view name, const JSON& arguments, const Reply& reply);

private:
    AssistantEnvironment m_environment;
};

} // namespace Quillary
