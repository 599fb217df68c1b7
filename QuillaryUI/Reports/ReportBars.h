#pragma once

#include "QuillaryCore/Reports/FinishedReport.h"
#include "QuillaryUI/Look/Formats.h"

namespace Quillary {

class BarChart;

/// The chart of a report, in the words and colours of the windows.
namespace ReportBars {

void show(const ReportChart& figures, const std::string& currencyCode, const Formats& formats, BarChart& chart);

} // namespace ReportBars

} // namespace Quillary
