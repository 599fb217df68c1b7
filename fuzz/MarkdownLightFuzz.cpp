// Whatever is typed as an intro or as details, what comes out is well-formed, holds no element but those of the markup,
// and still says everything that was typed.

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Output/MarkdownLight.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

using namespace Quillary;

namespace {

constexpr std::array<std::string_view, 5> elements = {"p", "ul", "li", "strong", "em"};

/// Takes the page apart: checks each tag against the open ones and returns the text between them.
std::string textOf(std::string_view html)
{
    std::vector<std::string> open;
    std::string text;
    while (!html.empty()) {
        if (html.front() != '<') {
            text += html.front();
            html.remove_prefix(1);
            continue;
        }
        const std::size_t end = html.find('>');
        precondition(end != std::string_view::npos, "a tag is closed");
        std::string_view tag = html.substr(1, end - 1);
        html.remove_prefix(end + 1);
        if (tag == "br") {
            precondition(!open.empty() && open.front() == "p", "a line ends in a paragraph");
        } else if (tag.starts_with('/')) {
            precondition(!open.empty() && open.back() == tag.substr(1), "elements are closed in their order");
            open.pop_back();
        } else {
            tag = tag.ends_with(R"( dir="auto")") ? tag.substr(0, tag.find(' ')) : tag;
            precondition(std::ranges::count(elements, tag) == 1, "no element comes from the text");
            open.emplace_back(tag);
        }
    }
    precondition(open.empty(), "every element is closed");
    return text;
}

/// The capitals and digits, which neither markup nor the names of entities consist of (but "&#39;", whose digits are
/// left out).
std::string substance(std::string_view text)
{
    std::string result;
    std::ranges::copy_if(text, std::back_inserter(result), [](char character) {
        return (character >= 'A' && character <= 'Z') ||
               (character >= '0' && character <= '9' && character != '3' && character != '9');
    });
    return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::string html = MarkdownLight::html(text);
    precondition(isValidUTF8(html), "the page is UTF-8");
    const std::string shown = textOf(html);
    for (std::size_t sign = shown.find('&'); sign != std::string::npos; sign = shown.find('&', sign + 1)) {
        const std::string_view rest = std::string_view(shown).substr(sign);
        precondition(rest.starts_with("&amp;") || rest.starts_with("&lt;") || rest.starts_with("&gt;") ||
                         rest.starts_with("&quot;") || rest.starts_with("&#39;"),
                     "every sign is escaped");
    }
    precondition(shown.find_first_of("\"'") == std::string::npos, "quotes are escaped");
    precondition(substance(shown) == substance(text), "nothing that was typed is lost or moved");
    return 0;
}
