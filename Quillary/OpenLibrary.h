#pragma once

#include "QuillaryCore/Assistant/AssistantActions.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"

#include <filesystem>

namespace Quillary {

class AppEnvironment;
class PrintingHost;
struct Business;

/// The library that a command works on, open for writing, with its business. A new library gets one with what is usual
/// in the locale's country.
class OpenLibrary
{
public:
    /// Throws: `StoreError`.
    OpenLibrary(const std::filesystem::path& folder, AppEnvironment& environment);

    [[nodiscard]] Context& context() { return m_context; }
    [[nodiscard]] const Business& business();

    /// What the operations work with; borrows this library, the environment and the host.
    [[nodiscard]] AssistantEnvironment actionsEnvironment(AppEnvironment& environment, PrintingHost& host);

    /// Makes the day's automatic backup when it is due. A failure is told on standard error and is no failure of the
    /// command: what the user asked for has been done.
    void backUpIfDue(AppEnvironment& environment);

private:
    Store m_store;
    Context m_context;
};

} // namespace Quillary
