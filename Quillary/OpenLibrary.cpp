#include "Quillary/OpenLibrary.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Backups.h"

#include <fmt/format.h>

#include <cstdio>
#include <tuple>

namespace Quillary {

namespace fs = std::filesystem;

OpenLibrary::OpenLibrary(const fs::path& folder, AppEnvironment& environment)
    : m_store(Store::Location::directory(folder),
              DataModel::records(),
              DataModel::history(),
              environment.clock(),
              environment.uuids())
    , m_context(m_store, environment.clock(), environment.uuids())
{
    if (Quillary::business(m_context) == nullptr) {
        auto scope = m_context.beginScope("New library");
        makeFirstBusiness(m_context, environment.locale());
        scope.commit(Scope::Undo::impossible);
    }
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
            .locale = environment.locale()};
}

void OpenLibrary::backUpIfDue(AppEnvironment& environment)
{
    try {
        const Backups backups(m_store.location().folder(), DataModel::history(), environment.calendar());
        std::ignore = backups.makeDaily(environment.clock().now());
    } catch (const UserError& error) {
        fmt::print(stderr, "The daily backup was not made: {}\n", error.message());
    }
}

} // namespace Quillary
