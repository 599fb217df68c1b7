#pragma once

#include "QuillaryCore/Foundation/JSON.h"

#include <string>
#include <string_view>

namespace Quillary {

class Locale;
class UnitLibrary;

/// Lines out of rows that somebody copied from a spreadsheet or a table.
namespace PastedLines {

/// What the cells are read with.
struct Reading
{
    const UnitLibrary& units;
    const Locale& locale;
    std::string_view currencyCode;
};

/// One object of "add_lines" a row. The first text is what the line is about, a unit is one that has a name, what ends in
/// a percent sign is the tax; of the numbers, in whatever style they are written, a single one is the price, and of
/// several the first is the quantity and the second the price. Other texts become details. A number of the position before
/// the first text, and a first row that only names the columns, are left out.
[[nodiscard]] JSON::Array lines(std::string text, const Reading& reading);

} // namespace PastedLines

} // namespace Quillary
