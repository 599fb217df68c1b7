#include "Quillary/OpenLibrary.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/ErrorOutput.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Backups.h"

#include <fmt/format.h>

#include <chrono>
#include <tuple>
#include <utility>

namespace Quillary {

namespace fs = std::filesystem;

OpenLibrary::OpenLibrary(const fs::path& folder, AppEnvironment& environment)
    : OpenLibrary(folder, environment, fs::is_directory(folder) ? claimLibrary(folder) : LibraryClaim())
{
}

OpenLibrary::OpenLibrary(const fs::path& folder, AppEnvironment& environment, LibraryClaim claim)
    : m_lender(std::move(claim.lender))
    , m_store(Store::Location::directory(folder),
              DataModel::records(),
              DataModel::history(),
              environment.clock(),
              environment.uuids(),
              std::move(claim.lock))
    , m_context(m_store, environment.clock(), environment.uuids())
{
    if (Quillary::business(m_context) == nullptr) {
        auto scope = m_context.beginScope("New library");
        makeFirstBusiness(m_context, environment.locale());
        scope.commit(Scope::Undo::impossible);
    }
}

std::unique_ptr<LibraryLock> OpenLibrary::close(std::unique_ptr<OpenLibrary> library)
{
    return library->m_store.takeLock();
}

const Business& OpenLibrary::business()
{
    const Business* business = Quillary::business(m_context);
    precondition(business != nullptr, "an open library has its business");
    return *business;
}

AssistantEnvironment OpenLibrary::actionsEnvironment(AppEnvironment& environment, PrintingHost& host)
{
    return {.context = m_context,
            .business = business().ref,
            .host = &host,
            .assistantName = {},
            .clock = environment.clock(),
            .calendar = environment.calendar(),
            .locale = environment.locale(),
            .search = &m_search};
}

void OpenLibrary::backUpIfDue(AppEnvironment& environment)
{
    if (m_backup.valid() && m_backup.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        return;
    }
    // A large library takes seconds to copy and check, which nobody should wait for before the window comes.
    m_backup =
        std::async(std::launch::async,
                   [backups = Backups(m_store.location().folder(), DataModel::history(), environment.calendar()),
                    now = environment.clock().now()] {
                       try {
                           std::ignore = backups.makeDaily(now);
                       } catch (const UserError& error) {
                           ErrorOutput::writeLine(fmt::format("The daily backup was not made: {}", error.message()));
                       }
                   });
}

} // namespace Quillary
