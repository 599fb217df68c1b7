#pragma once

#include "QuillaryCore/Tabular/CSVRows.h"
#include "QuillaryCore/Tabular/ClientField.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace Quillary {

/// True for what no heading looks like: an email or web address, a number, a phone number.
[[nodiscard]] bool looksLikeData(std::string_view cell);

/// The fields of a list without headings, by what stands in its columns from `firstRow` on. What can't be told, such as
/// a first name beside a last name, is ignored.
[[nodiscard]] std::vector<ClientField>
fieldsByContents(const CSVRows& rows, std::size_t firstRow, std::size_t columnCount);

} // namespace Quillary
