#include "QuillaryCore/Tabular/CSVParser.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Tabular/ByteMasks.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t';
}

bool isBlank(const char* begin, const char* end)
{
    while (begin != end && isBlank(*begin)) {
        ++begin;
    }
    return begin == end;
}

/// One pass over a text from one special byte (delimiter, quote, line break) to the next.
///
/// A cell is where it stands in the text. Only where quotes are doubled, or something follows a closing quote, its later
/// parts move up to the earlier ones: the text shrinks in its own place, always behind what is still to be read.
class Parser
{
public:
    Parser(std::string& text, char delimiter, std::uint32_t blankRows)
        : m_text(text.data())
        , m_size(text.size())
        , m_delimiter(delimiter)
        , m_blankCount(blankRows)
    {
        // Room for all that there can be: growing later would hold old and new side by side.
        m_cells.reserve(ByteMasks({delimiter, '\r', '\n', '\n'}).count(text) + 1);
        m_rowEnds.reserve(ByteMasks({'\r', '\n', '\n', '\n'}).count(text) + 1);
    }

    void run()
    {
        const ByteMasks special({m_delimiter, '"', '\r', '\n'});
        for (std::size_t begin = 0; begin < m_size; begin += ByteMasks::blockSize) {
            std::uint64_t mask = special.maskAt({m_text, m_size}, begin);
            while (mask != 0) {
                const std::size_t position = begin + static_cast<std::size_t>(std::countr_zero(mask));
                mask &= mask - 1;
                if (position >= m_next) {
                    take(position);
                }
            }
        }
        flush(m_size);
        if (m_end != m_begin || m_cells.size() != m_rowBegin) {
            endField();
            endRow();
        }
    }

    /// What was found; `text` is what the parser went over.
    CSVRows rows(std::string text)
    {
        return {std::move(text), std::move(m_cells), std::move(m_rowEnds), std::move(m_blankRows)};
    }

private:
    void take(std::size_t position)
    {
        const char byte = m_text[position];
        if (byte == '"') {
            takeQuote(position);
        } else if (m_isQuoted) {
            return;
        } else if (byte == m_delimiter) {
            flush(position);
            endField();
            startField(position + 1);
        } else {
            flush(position);
            endField();
            endRow();
            const bool isPair = byte == '\r' && isAt('\n', position + 1);
            m_next = position + (isPair ? 2 : 1);
            startField(m_next);
        }
    }

    void takeQuote(std::size_t position)
    {
        if (!m_isQuoted) {
            if (isBlank(m_text + m_begin, m_text + m_end) && isBlank(m_text + m_pending, m_text + position)) {
                m_isQuoted = true;
                startField(position + 1);
            }
        } else if (isAt('"', position + 1)) {
            flush(position + 1);
            m_pending = position + 2;
            m_next = m_pending;
        } else {
            flush(position);
            m_pending = position + 1;
            m_isQuoted = false;
        }
    }

    [[nodiscard]] bool isAt(char byte, std::size_t position) const
    {
        return position < m_size && m_text[position] == byte;
    }

    void startField(std::size_t position) { m_begin = m_end = m_pending = position; }

    /// Adds the text from `m_pending` to `position` to the field.
    void flush(std::size_t position)
    {
        const std::size_t size = position - m_pending;
        if (m_end != m_pending) {
            std::memmove(m_text + m_end, m_text + m_pending, size);
        }
        m_end += size;
        m_pending = position;
    }

    void endField()
    {
        while (m_begin != m_end && isBlank(m_text[m_begin])) {
            ++m_begin;
        }
        while (m_begin != m_end && isBlank(m_text[m_end - 1])) {
            --m_end;
        }
        m_rowHasContent = m_rowHasContent || m_begin != m_end;
        m_cells.push_back({static_cast<std::uint32_t>(m_begin), static_cast<std::uint32_t>(m_end - m_begin)});
    }

    void endRow()
    {
        if (m_rowHasContent) {
            noteBlankRows();
            m_rowBegin = m_cells.size();
            m_rowEnds.push_back(static_cast<std::uint32_t>(m_rowBegin));
        } else {
            m_cells.resize(m_rowBegin);
            ++m_blankCount;
        }
        m_rowHasContent = false;
    }

    void noteBlankRows()
    {
        if (m_blankCount > (m_blankRows.empty() ? 0 : m_blankRows.back().count)) {
            m_blankRows.push_back({static_cast<std::uint32_t>(m_rowEnds.size()), m_blankCount});
        }
    }

    char* m_text;
    std::size_t m_size;
    char m_delimiter;
    std::uint32_t m_blankCount;
    std::vector<CSVCell> m_cells;
    std::vector<std::uint32_t> m_rowEnds;
    std::vector<CSVBlankRows> m_blankRows;
    std::size_t m_begin = 0;   ///< of the field
    std::size_t m_end = 0;     ///< of what the field holds so far
    std::size_t m_pending = 0; ///< of what belongs to the field and isn't added to it yet
    std::size_t m_next = 0;    ///< special bytes before it are used up: second halves of pairs
    std::size_t m_rowBegin = 0;
    bool m_rowHasContent = false;
    bool m_isQuoted = false;
};

} // namespace

CSVRows parseCSV(std::string text, char delimiter, std::uint32_t blankRows)
{
    precondition(text.size() <= longestCSVText, "a CSV text is shorter than 4 GiB");
    precondition(delimiter != '"' && delimiter != '\r' && delimiter != '\n', "a delimiter is no quote or line break");
    Parser parser(text, delimiter, blankRows);
    parser.run();
    return parser.rows(std::move(text));
}

} // namespace Quillary
