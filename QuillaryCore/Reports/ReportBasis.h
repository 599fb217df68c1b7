#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace Quillary {

/// By which dates a tax report counts.
enum class ReportBasis {
    invoiced, ///< by the documents' own dates
    paid,     ///< by the dates on which money came in
};

/// In the order of a picker.
inline constexpr std::array allReportBases = {ReportBasis::invoiced, ReportBasis::paid};

/// "invoiced", "paid": the name in settings and on the command line.
[[nodiscard]] std::string_view rawText(ReportBasis basis);
[[nodiscard]] std::optional<ReportBasis> reportBasisFromRaw(std::string_view text);

/// "By invoice date": the English words of the screen.
[[nodiscard]] std::string_view title(ReportBasis basis);

} // namespace Quillary
