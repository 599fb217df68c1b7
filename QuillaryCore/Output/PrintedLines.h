#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// The lines of a printed document. A plain value that holds on to nothing.
///
/// There may be hundreds of them, each of a few short texts, so the texts stand one behind the other in one string:
/// texts of their own would cost more time than writing the page.
class PrintedLines
{
public:
    /// An empty text is left out.
    struct Line
    {
        std::string_view title;
        std::string_view details; ///< light markup
        std::string_view quantity;
        std::string_view unitPrice;
        std::string_view taxRate; ///< the number alone; its column is headed "%"
        std::string_view amount;
        bool isSubLine = false;
    };

    PrintedLines() = default;
    PrintedLines(std::initializer_list<Line> lines);

    /// Makes room for so many lines, with texts of so many bytes together.
    void reserve(std::size_t lines, std::size_t bytes);

    /// Copies the texts.
    void add(const Line& line);

    [[nodiscard]] bool empty() const { return m_marks.empty(); }
    [[nodiscard]] std::size_t size() const { return m_marks.size(); }

    /// The bytes of all texts.
    [[nodiscard]] std::size_t textSize() const { return m_texts.size(); }

    /// The line at `index`, which is below `size`. Refers to texts in here, until the next change.
    [[nodiscard]] Line operator[](std::size_t index) const;

private:
    /// Where a line's texts end, in the order of `Line`; each begins where the one before it ends.
    struct Marks
    {
        std::array<std::size_t, 6> ends;
        bool isSubLine;
    };

    std::string m_texts;
    std::vector<Marks> m_marks;
};

} // namespace Quillary
