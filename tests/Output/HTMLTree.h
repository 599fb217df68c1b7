#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// An element of a page as a browser would see it, for tests that ask where a text ended up.
struct HTMLElement
{
    std::string name;
    std::map<std::string, std::string> attributes;
    std::vector<std::unique_ptr<HTMLElement>> children;
    std::string text; ///< its own text and its children's, entities resolved

    /// "body > header.head > div.seller": names and classes of all elements below, one line each, so that two pages can be
    /// compared without their texts.
    [[nodiscard]] std::string outline() const;

    /// All elements below with this class, in order.
    [[nodiscard]] std::vector<const HTMLElement*> withClass(std::string_view name) const;

    /// The first of them; an empty element when there is none.
    [[nodiscard]] const HTMLElement& first(std::string_view name) const;
};

/// Reads a page by the tokenizer rules of the HTML standard, as far as our pages use them. It shares nothing with the
/// writer. Throws: `std::runtime_error` on an element that is not closed in its place, a stray end tag, a comment, an
/// unknown entity, or an attribute without quotes.
[[nodiscard]] std::unique_ptr<HTMLElement> parseHTML(std::string_view page);

} // namespace Quillary
