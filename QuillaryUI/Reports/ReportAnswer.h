#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"
#include "QuillaryCore/Reports/FinishedReport.h"

#include <string>
#include <vector>

namespace Quillary {

/// A report, and the currencies in which there is something to report at all: the business's own first.
struct ReportAnswer
{
    std::vector<std::string> currencies;
    FinishedReport report;

    /// In the order's currency where there is anything in it, else in the business's own. Throws: `StoreError`.
    [[nodiscard]] static ReportAnswer read(const AssistantEnvironment& environment, ReportOrder order);
};

} // namespace Quillary
