// Whatever bytes a file holds, reading it ends with rows or a failure; the rows are as promised, and writing them gives a
// text that reads as the same rows.

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Tabular/CSV.h"
#include "QuillaryCore/Tabular/CSVWriter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

using namespace Quillary;

namespace {

bool isTrimmed(std::string_view cell)
{
    constexpr std::string_view blanks = " \t";
    return cell.empty() ||
           (blanks.find(cell.front()) == std::string_view::npos && blanks.find(cell.back()) == std::string_view::npos);
}

std::string written(const CSVRows& rows, const CSVFormat& format)
{
    std::string text;
    for (const CSVRow row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            text += i == 0 ? "" : std::string(1, format.separator);
            text += CSVWriter::field(row[i], format);
        }
        text += "\r\n";
    }
    return text;
}

void compare(const CSVRows& left, const CSVRows& right)
{
    precondition(left.size() == right.size(), "no row is lost");
    for (std::size_t i = 0; i < left.size(); ++i) {
        const CSVRow one = left[i];
        const CSVRow other = right[i];
        precondition(std::equal(one.begin(), one.end(), other.begin(), other.end()), "no cell is changed");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        const CSV csv(std::string(reinterpret_cast<const char*>(data), size));
        precondition(std::ranges::find(CSV::delimiters, csv.delimiter()) != CSV::delimiters.end(), "a known delimiter");
        precondition(!csv.rows().empty(), "a file without rows is a failure");
        for (const CSVRow row : csv.rows()) {
            precondition(std::any_of(row.begin(), row.end(), [](std::string_view cell) { return !cell.empty(); }),
                         "no row is blank");
            for (const std::string_view cell : row) {
                precondition(isTrimmed(cell), "cells are trimmed");
                precondition(isValidUTF8(cell), "cells are UTF-8");
            }
        }
        for (const char separator : CSV::delimiters) {
            const CSVFormat format{.separator = separator, .decimalSeparator = "."};
            compare(csv.rows(), CSV::parse(written(csv.rows(), format), separator));
        }
    } catch (const CSV::Failure&) {
        return 0;
    }
    return 0;
}
