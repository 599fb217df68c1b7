#pragma once

#include "QuillaryCore/Foundation/Locale.h"

#include <cstddef>
#include <functional>
#include <string>

namespace Quillary {

/// A dialect of CSV: what stands between cells, and between the whole and the fractional digits of amounts and rates.
struct CSVFormat
{
    char separator = ','; ///< ASCII
    std::string decimalSeparator = ".";

    /// Commas and points, for programs.
    [[nodiscard]] static CSVFormat standard() { return {}; }

    /// For a spreadsheet program that runs in this locale: its decimal separator, and semicolons where that is a comma.
    [[nodiscard]] static CSVFormat excel(const Locale& locale);

    friend bool operator==(const CSVFormat&, const CSVFormat&) = default;
};

} // namespace Quillary

template <>
struct std::hash<Quillary::CSVFormat>
{
    std::size_t operator()(const Quillary::CSVFormat& format) const noexcept;
};
