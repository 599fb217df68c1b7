#include "Quillary/BuildInfo.h"

#include "QuillaryCore/Model/DataModel.h"

#include <fmt/format.h>
#include <sqlite3.h>
#include <unicode/uversion.h>

namespace Quillary {

std::string_view version()
{
    return QUILLARY_VERSION;
}

std::string buildInfo()
{
    return fmt::format("Quillary {}\nLibrary schema {}, fingerprint {}\nCompiler {}\nSQLite {}\nICU {}\nQt {}\n",
                       version(),
                       DataModel::currentVersion,
                       DataModel::fingerprint(DataModel::model()),
                       __VERSION__,
                       sqlite3_libversion(),
                       U_ICU_VERSION,
                       QUILLARY_QT_VERSION);
}

} // namespace Quillary
