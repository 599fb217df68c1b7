#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantHost.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Clock.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Store/Context.h"

#include <string>

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

} // namespace Quillary
