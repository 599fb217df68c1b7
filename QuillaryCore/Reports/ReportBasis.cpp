#include "QuillaryCore/Reports/ReportBasis.h"

namespace Quillary {

std::string_view rawText(ReportBasis basis)
{
    switch (basis) {
    case ReportBasis::invoiced:
        return "invoiced";
    case ReportBasis::paid:
        return "paid";
    }
    return {};
}

std::optional<ReportBasis> reportBasisFromRaw(std::string_view text)
{
    for (const ReportBasis basis : allReportBases) {
        if (rawText(basis) == text) {
            return basis;
        }
    }
    return std::nullopt;
}

std::string_view title(ReportBasis basis)
{
    switch (basis) {
    case ReportBasis::invoiced:
        return "By invoice date";
    case ReportBasis::paid:
        return "By payment date";
    }
    return {};
}

} // namespace Quillary
