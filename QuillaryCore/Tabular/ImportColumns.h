#pragma once

#include "QuillaryCore/Tabular/CSVRows.h"
#include "QuillaryCore/Tabular/ClientField.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// Which column of a client list holds what, and where its clients begin. A value.
class ImportColumns
{
public:
    /// Looks for headings in the first rows (a title may stand above them) and reads them. Where there are none that mean
    /// something, the columns are told by what stands in them.
    [[nodiscard]] static ImportColumns recognised(const CSVRows& rows);

    /// Assigns as the user wishes: `column` is a heading, or a number counted from 1; `field` is the name of a field or
    /// one of its headings, or "ignore". Columns that were only guessed to hold the field are ignored then. Throws: `UserError` that names what there is.
    void assign(std::string_view column, std::string_view field);

    /// As many as the widest row has.
    [[nodiscard]] std::size_t size() const { return m_fields.size(); }
    [[nodiscard]] ClientField field(std::size_t column) const { return m_fields[column]; }

    /// The columns of a field, the one that means it most clearly first.
    [[nodiscard]] const std::vector<std::size_t>& columns(ClientField field) const;

    [[nodiscard]] bool hasHeadings() const { return m_firstRow > 0; }

    /// The heading of a column, or "Column 3" where it has none.
    [[nodiscard]] std::string title(std::size_t column) const;

    /// The first row that holds a client.
    [[nodiscard]] std::size_t firstRow() const { return m_firstRow; }

private:
    [[nodiscard]] std::optional<std::size_t> find(std::string_view column) const;
    void arrange();

    std::size_t m_firstRow = 0;
    std::vector<std::string> m_headings;
    std::vector<ClientField> m_fields;
    std::vector<bool> m_isAssigned;                  ///< by the user
    std::vector<std::vector<std::size_t>> m_columns; ///< per field
};

} // namespace Quillary
