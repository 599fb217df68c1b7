#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// The columns of a terminal that a text takes: two for each wide or full-width character of East Asia and most pictures
/// (UAX #11), none for marks that stand on another character. Tabs and other control characters count as a space.
[[nodiscard]] std::size_t displayWidth(std::string_view text);

/// A table for the terminal: a line of headings, a rule, a line per row; the columns aligned and two spaces apart.
///
/// Cells stand on one line each and hold nothing that a terminal takes for a command, whatever the data are.
class TextTable
{
public:
    enum class Alignment { left, right };

    struct Column
    {
        std::string heading;
        Alignment alignment = Alignment::left;
        /// Longer cells end in "…". Unit: columns of the terminal.
        std::size_t widest = std::numeric_limits<std::size_t>::max();
    };

    explicit TextTable(std::vector<Column> columns);

    /// Missing cells are empty; there are no more cells than columns.
    void addRow(std::vector<std::string> cells);

    /// A line across the table, in front of a sum.
    void addRule();

    /// Every line ended by a line feed, without spaces at its end.
    [[nodiscard]] std::string text() const;

private:
    struct Row
    {
        std::vector<std::string> cells;
        bool isRule = false;
    };

    [[nodiscard]] std::vector<std::size_t> widths() const;

    std::vector<Column> m_columns;
    std::vector<Row> m_rows; ///< the headings first
};

} // namespace Quillary
