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
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

struct Business;
class LibrarySearch;

/// What an operation works with. All of it is borrowed and outlives the call.
struct AssistantEnvironment
{
    Context& context;
    Ref<Business> business;
    AssistantHost* host = nullptr; ///< null where nothing can be printed or opened
    std::string assistantName;     ///< kept as `Document::madeBy`; empty for the user's own commands
    const Clock& clock;
    Calendar calendar;
    Locale locale;                   ///< for number and date text
    LibrarySearch* search = nullptr; ///< shared by all who work on the context; null: `AssistantActions` makes its own

    /// The business's record. A library without one is a programmer's mistake.
    [[nodiscard]] const Business& ownBusiness() const;

    /// `host`. Throws: `AssistantError` where there is none.
    [[nodiscard]] AssistantHost& printer() const;

    /// `search`. Null is a programmer's mistake.
    [[nodiscard]] LibrarySearch& librarySearch() const;
};

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
