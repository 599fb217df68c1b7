#include "QuillaryCore/Output/MarkdownLight.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UTF8.h"
#include "QuillaryCore/Output/HTMLText.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace Quillary::MarkdownLight {

namespace {

/// A run of asterisks: one slants, two embolden, three do both.
struct Mark
{
    std::size_t position;
    std::size_t length;
    bool canOpen;
    bool canClose;
    bool opens = false;
    bool closes = false;
};

constexpr std::size_t longestMark = 3;
constexpr std::array<std::string_view, longestMark + 1> openings = {"", "<em>", "<strong>", "<strong><em>"};
constexpr std::array<std::string_view, longestMark + 1> closings = {"", "</em>", "</strong>", "</em></strong>"};

/// What stands beside a mark; beyond the line's ends a space.
enum class Neighbour { space, word, sign };

Neighbour neighbour(const DecodedCharacter& character)
{
    if (character.length == 0) {
        return Neighbour::space;
    }
    const auto scalar = static_cast<UChar32>(character.scalar.value_or(U'\uFFFD'));
    if (u_isUWhiteSpace(scalar) != 0) {
        return Neighbour::space;
    }
    return u_isalnum(scalar) != 0 ? Neighbour::word : Neighbour::sign;
}

/// True when a mark belongs to the text on its `inner` side; a footnote's "(*)" belongs to neither.
bool facesInward(Neighbour outer, Neighbour inner)
{
    return inner == Neighbour::word ? outer != Neighbour::word : inner == Neighbour::sign && outer == Neighbour::space;
}

/// The runs of asterisks in a line.
std::vector<Mark> marks(std::string_view line)
{
    std::vector<Mark> result;
    for (std::size_t start = line.find('*'); start != std::string_view::npos;) {
        const std::size_t end = std::min(line.find_first_not_of('*', start), line.size());
        const Neighbour before = neighbour(decodeLast(line.substr(0, start)));
        const Neighbour after = neighbour(decodeFirst(line.substr(end)));
        if (end - start <= longestMark) {
            result.push_back({.position = start,
                              .length = end - start,
                              .canOpen = facesInward(before, after),
                              .canClose = facesInward(after, before)});
        }
        start = line.find('*', end);
    }
    return result;
}

/// Pairs each closing mark with the latest open one of its length; what was opened in between and not closed stays text.
void pair(std::vector<Mark>& marks)
{
    std::vector<std::size_t> open;
    std::array<std::size_t, longestMark + 1> openOfLength{};
    for (std::size_t index = 0; index < marks.size(); ++index) {
        Mark& mark = marks[index];
        if (mark.canClose && openOfLength.at(mark.length) > 0) {
            while (marks[open.back()].length != mark.length) {
                --openOfLength.at(marks[open.back()].length);
                open.pop_back();
            }
            marks[open.back()].opens = true;
            mark.closes = true;
            --openOfLength.at(mark.length);
            open.pop_back();
        } else if (mark.canOpen) {
            open.push_back(index);
            ++openOfLength.at(mark.length);
        }
    }
}

void appendLine(std::string& html, std::string_view line)
{
    if (line.find('*') == std::string_view::npos) {
        HTMLText::append(html, line);
        return;
    }
    std::vector<Mark> found = marks(line);
    pair(found);
    std::size_t done = 0;
    for (const Mark& mark : found) {
        if (mark.opens || mark.closes) {
            HTMLText::append(html, line.substr(done, mark.position - done));
            html += (mark.opens ? openings : closings).at(mark.length);
            done = mark.position + mark.length;
        }
    }
    HTMLText::append(html, line.substr(done));
}

/// The text of a list item. No value: the line is none.
std::optional<std::string_view> listItem(std::string_view line)
{
    for (const std::string_view bullet : {"- ", "* ", "• "}) {
        if (line.starts_with(bullet)) {
            return trimmed(line.substr(bullet.size()));
        }
    }
    return std::nullopt;
}

/// Takes the next line off the text, which is not empty.
std::string_view takeLine(std::string_view& text)
{
    const auto isLineEnd = [](char character) {
        return character >= '\n' && character <= '\r';
    };
    const auto end = static_cast<std::size_t>(std::ranges::find_if(text, isLineEnd) - text.begin());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
    return line;
}

/// The element that is being written.
enum class Block { none, paragraph, list };

class Writer
{
public:
    Writer(std::string& html, std::string_view text)
        : m_html(html)
        , m_openingEnd(HTMLText::hasRightToLeft(text) ? R"( dir="auto">)" : ">")
    {
    }

    void add(std::string_view line)
    {
        line = trimmed(line);
        if (line.empty()) {
            close();
        } else if (const auto item = listItem(line)) {
            begin(Block::list, "<ul");
            m_html += "<li>";
            appendLine(m_html, *item);
            m_html += "</li>";
        } else if (m_block == Block::paragraph) {
            m_html += "<br>";
            appendLine(m_html, line);
        } else {
            begin(Block::paragraph, "<p");
            appendLine(m_html, line);
        }
    }

    void close()
    {
        if (m_block != Block::none) {
            m_html += m_block == Block::list ? "</ul>" : "</p>";
        }
        m_block = Block::none;
    }

private:
    void begin(Block block, std::string_view opening)
    {
        if (m_block != block) {
            close();
            m_html += opening;
            m_html += m_openingEnd;
            m_block = block;
        }
    }

    std::string& m_html;
    std::string_view m_openingEnd;
    Block m_block = Block::none;
};

} // namespace

void append(std::string& html, std::string_view text)
{
    Writer writer(html, text);
    while (!text.empty()) {
        writer.add(takeLine(text));
    }
    writer.close();
}

std::string html(std::string_view text)
{
    std::string result;
    append(result, text);
    return result;
}

} // namespace Quillary::MarkdownLight
