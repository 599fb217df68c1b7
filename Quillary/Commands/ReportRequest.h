#pragma once

#include "QuillaryCore/Reports/FinishedReport.h"

#include <filesystem>
#include <string>

namespace Quillary {

class AppEnvironment;

/// Which report was asked for, as it was typed.
struct ReportRequest
{
    ReportOrder::Kind kind = ReportOrder::Kind::tax;
    std::string period;
    std::string from;
    std::string to;
    std::string basis = "invoiced"; ///< one of `ReportBasis`
    std::string currency;

    /// Reads the library as it is saved, and lets go of it: whoever reads what is printed may take long over it.
    /// Throws: `UserError`; a report that could not be read is none.
    [[nodiscard]] FinishedReport report(const std::filesystem::path& library, AppEnvironment& environment) const;
};

} // namespace Quillary
