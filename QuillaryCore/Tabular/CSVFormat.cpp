#include "QuillaryCore/Tabular/CSVFormat.h"

namespace Quillary {

CSVFormat CSVFormat::excel(const Locale& locale)
{
    const std::string& decimal = locale.decimalSeparator();
    return {.separator = decimal == "," ? ';' : ',', .decimalSeparator = decimal.empty() ? "." : decimal};
}

} // namespace Quillary

std::size_t std::hash<Quillary::CSVFormat>::operator()(const Quillary::CSVFormat& format) const noexcept
{
    return std::hash<std::string>()(format.decimalSeparator) * 31 + static_cast<unsigned char>(format.separator);
}
