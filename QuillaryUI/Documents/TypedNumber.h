#pragma once

#include "QuillaryCore/Foundation/Locale.h"

#include <QString>

#include <optional>
#include <string>
#include <string_view>

/// Numbers as people type them into cells.
namespace Quillary::TypedNumber {

/// What a cell of a line's table is given, as an operation takes it: texts as they are, numbers in plain digits. Number
/// cells reckon: "3*12.50", "1200/4", "10+2,5". `column` is a `LinesModel::Column`. No value: no number.
[[nodiscard]] std::optional<std::string>
cell(const QString& typed, int column, std::string_view currencyCode, const Locale& locale);

/// An amount. Unit: minor units of the currency.
[[nodiscard]] std::optional<std::int64_t>
amount(const QString& typed, std::string_view currencyCode, const Locale& locale);

} // namespace Quillary::TypedNumber
