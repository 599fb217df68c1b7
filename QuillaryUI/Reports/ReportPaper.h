#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantHost.h"
#include "QuillaryCore/Reports/FinishedReport.h"
#include "QuillaryUI/Look/Formats.h"

#include <QString>

namespace Quillary {

class ReportModel;
struct Business;

/// A report on paper: what stands on the screen, in its words, under the business's name.
namespace ReportPaper {

/// "Tax report by invoice date, 1 Jul 2026 – 30 Sep 2026, EUR", in the language of the windows.
[[nodiscard]] QString title(const FinishedReport& report);

/// "Not in this report: amounts in USD." Empty: nothing is left out.
[[nodiscard]] QString note(const FinishedReport& report);

/// Without its ending: "Tax Report 2026-07-01 to 2026-09-30".
[[nodiscard]] QString fileName(const ReportOrder& order);

/// `model` shows the report. `now` is when it was made.
[[nodiscard]] PageJob page(const FinishedReport& report,
                           const ReportModel& model,
                           const Business& business,
                           const Formats& formats,
                           Instant now);

} // namespace ReportPaper

} // namespace Quillary
