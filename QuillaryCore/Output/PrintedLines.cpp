#include "QuillaryCore/Output/PrintedLines.h"

namespace Quillary {

PrintedLines::PrintedLines(std::initializer_list<Line> lines)
{
    for (const Line& line : lines) {
        add(line);
    }
}

void PrintedLines::reserve(std::size_t lines, std::size_t bytes)
{
    m_marks.reserve(lines);
    m_texts.reserve(bytes);
}

void PrintedLines::add(const Line& line)
{
    const auto end = [this](std::string_view text) {
        if (!text.empty()) {
            m_texts += text;
        }
        return m_texts.size();
    };
    m_marks.push_back({{end(line.title),
                        end(line.details),
                        end(line.quantity),
                        end(line.unitPrice),
                        end(line.taxRate),
                        end(line.amount)},
                       line.isSubLine});
}

PrintedLines::Line PrintedLines::operator[](std::size_t index) const
{
    const Marks& marks = m_marks[index];
    std::size_t begin = index == 0 ? 0 : m_marks[index - 1].ends.back();
    auto next = [&, end = marks.ends.begin()]() mutable {
        const std::string_view text(m_texts.data() + begin, *end - begin);
        begin = *end++;
        return text;
    };
    // A list in braces is read from left to right.
    return {next(), next(), next(), next(), next(), next(), marks.isSubLine};
}

} // namespace Quillary
