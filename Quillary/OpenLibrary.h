#pragma once

#include "Quillary/Control/LibraryClaim.h"
#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryCore/Search/LibrarySearch.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/LogKeeper.h"
#include "QuillaryCore/Store/Store.h"

#include <filesystem>
#include <future>
#include <memory>

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

    /// With a right that the caller has already. Throws: `StoreError`.
    OpenLibrary(const std::filesystem::path& folder, AppEnvironment& environment, LibraryClaim claim);

    /// Closes the library and keeps the right to it.
    [[nodiscard]] static std::unique_ptr<LibraryLock> close(std::unique_ptr<OpenLibrary> library);

    [[nodiscard]] Context& context() { return m_context; }
    [[nodiscard]] const Business& business();

    /// What the operations work with; borrows this library, the environment and the host.
    [[nodiscard]] AssistantEnvironment actionsEnvironment(AppEnvironment& environment, PrintingHost& host);

    /// Makes the day's automatic backup when it is due, on a worker that is waited for when the library is closed. A
    /// failure is told on standard error and is no failure of the command: what the user asked for has been done.
    void backUpIfDue(AppEnvironment& environment);

private:
    Descriptor m_lender; ///< goes on with the library when this one is closed
    Store m_store;
    LogKeeper m_log{m_store};
    Context m_context;
    LibrarySearch m_search{m_context};
    std::future<void> m_backup; ///< its end is awaited before anything above goes
};

} // namespace Quillary
