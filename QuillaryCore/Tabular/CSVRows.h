#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

/// Where a cell lies in the text of its table. Eight bytes, so that the cells of a file take less room than the file.
struct CSVCell
{
    std::uint32_t begin = 0;
    std::uint32_t size = 0;
};

/// Rows without content, which a table leaves out and a spreadsheet shows.
struct CSVBlankRows
{
    std::uint32_t before = 0; ///< the row that they stand above
    std::uint32_t count = 0;  ///< of all blank rows up to there
};

/// Walks over what `Sequence` gives for 0, 1, 2 ...
template <class Sequence>
class CSVIterator
{
public:
    // NOLINTBEGIN(readability-identifier-naming): the standard looks for these names
    using iterator_category = std::input_iterator_tag;
    using value_type = typename Sequence::Element;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = value_type;
    // NOLINTEND(readability-identifier-naming)

    CSVIterator() = default;
    CSVIterator(const Sequence* sequence, std::size_t index)
        : m_sequence(sequence)
        , m_index(index)
    {
    }

    value_type operator*() const { return (*m_sequence)[m_index]; }
    CSVIterator& operator++()
    {
        ++m_index;
        return *this;
    }
    CSVIterator operator++(int)
    {
        CSVIterator before = *this;
        ++m_index;
        return before;
    }
    friend bool operator==(const CSVIterator& left, const CSVIterator& right) { return left.m_index == right.m_index; }

private:
    const Sequence* m_sequence = nullptr;
    std::size_t m_index = 0;
};

/// One row: a view into the table that it comes from, valid as long as that one stays where it is.
class CSVRow
{
public:
    using Element = std::string_view;

    CSVRow(const char* text, std::span<const CSVCell> cells)
        : m_text(text)
        , m_cells(cells)
    {
    }

    [[nodiscard]] std::size_t size() const { return m_cells.size(); }

    /// `index` is below `size()`.
    [[nodiscard]] std::string_view operator[](std::size_t index) const
    {
        return {m_text + m_cells[index].begin, m_cells[index].size};
    }

    /// The cell of a column; empty where the row is shorter than others.
    [[nodiscard]] std::string_view cell(std::size_t column) const
    {
        return column < m_cells.size() ? (*this)[column] : std::string_view();
    }

    [[nodiscard]] CSVIterator<CSVRow> begin() const { return {this, 0}; }
    [[nodiscard]] CSVIterator<CSVRow> end() const { return {this, size()}; }

private:
    const char* m_text;
    std::span<const CSVCell> m_cells;
};

/// The rows of a CSV text, each a list of text cells: trimmed of spaces and tabs, at least one of a row not empty.
///
/// A value. Holds the text once; the cells are views into it. Rows may differ in length.
class CSVRows
{
public:
    using Element = CSVRow;

    CSVRows() = default;

    /// `rowEnds` are the numbers of cells up to the end of each row; `blankRows` stand in the order of the rows.
    CSVRows(std::string text,
            std::vector<CSVCell> cells,
            std::vector<std::uint32_t> rowEnds,
            std::vector<CSVBlankRows> blankRows)
        : m_text(std::move(text))
        , m_cells(std::move(cells))
        , m_rowEnds(std::move(rowEnds))
        , m_blankRows(std::move(blankRows))
    {
    }

    [[nodiscard]] std::size_t size() const { return m_rowEnds.size(); }
    [[nodiscard]] bool empty() const { return m_rowEnds.empty(); }

    /// `index` is below `size()`.
    [[nodiscard]] CSVRow operator[](std::size_t index) const
    {
        const std::size_t begin = index == 0 ? 0 : m_rowEnds[index - 1];
        return {m_text.data(), std::span(m_cells).subspan(begin, m_rowEnds[index] - begin)};
    }

    /// The number that a spreadsheet shows beside a row: from 1, counting blank rows, and a row whose cells hold line
    /// breaks once. A line "sep=;" is none. `index` is below `size()`.
    [[nodiscard]] std::size_t number(std::size_t index) const
    {
        const auto next = std::ranges::upper_bound(m_blankRows, index, {}, &CSVBlankRows::before);
        return index + 1 + (next == m_blankRows.begin() ? 0 : std::prev(next)->count);
    }

    [[nodiscard]] CSVIterator<CSVRows> begin() const { return {this, 0}; }
    [[nodiscard]] CSVIterator<CSVRows> end() const { return {this, size()}; }

private:
    std::string m_text;
    std::vector<CSVCell> m_cells;
    std::vector<std::uint32_t> m_rowEnds;
    std::vector<CSVBlankRows> m_blankRows; ///< empty for most files
};

} // namespace Quillary
