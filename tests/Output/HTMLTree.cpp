#include "tests/Output/HTMLTree.h"

#include "QuillaryCore/Foundation/Text.h"

#include <algorithm>
#include <stdexcept>

namespace Quillary {

namespace {

bool isLetter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

class Parser
{
public:
    explicit Parser(std::string_view page)
        : m_rest(page)
    {
    }

    std::unique_ptr<HTMLElement> parse()
    {
        m_open.push_back(m_root.get());
        while (!m_rest.empty()) {
            if (m_rest.starts_with("</") && m_rest.size() > 2 && isLetter(m_rest[2])) {
                takeEndTag();
            } else if (m_rest.starts_with('<') && m_rest.size() > 1 && isLetter(m_rest[1])) {
                takeStartTag();
            } else if (m_rest.starts_with("<!") || m_rest.starts_with("<?")) {
                takeDeclaration();
            } else {
                takeText(m_rest.substr(0, std::max<std::size_t>(1, m_rest.find('<'))), true);
            }
        }
        if (m_open.size() != 1) {
            throw std::runtime_error("not closed: " + m_open.back()->name);
        }
        return std::move(m_root);
    }

private:
    void takeDeclaration()
    {
        constexpr std::string_view doctype = "<!DOCTYPE html>";
        if (!m_rest.starts_with(doctype)) {
            throw std::runtime_error("a comment or declaration: " + std::string(m_rest.substr(0, 20)));
        }
        m_rest.remove_prefix(doctype.size());
    }

    std::string takeName()
    {
        const std::string name(m_rest.substr(0, m_rest.find_first_of(" \t\n\f/>=")));
        m_rest.remove_prefix(name.size());
        return name;
    }

    void skipSpaces() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(" \t\n\f"), m_rest.size())); }

    void takeStartTag()
    {
        m_rest.remove_prefix(1);
        auto element = std::make_unique<HTMLElement>();
        element->name = takeName();
        for (skipSpaces(); !m_rest.starts_with('>'); skipSpaces()) {
            const std::string attribute = takeName();
            if (!m_rest.starts_with("=\"")) {
                throw std::runtime_error("an attribute without quotes in " + element->name);
            }
            m_rest.remove_prefix(2);
            const std::size_t end = m_rest.find('"');
            element->attributes[attribute] = resolved(m_rest.substr(0, end));
            m_rest.remove_prefix(end + 1);
        }
        m_rest.remove_prefix(1);
        HTMLElement* const opened = element.get();
        m_open.back()->children.push_back(std::move(element));
        if (opened->name == "meta" || opened->name == "img" || opened->name == "br") {
            return;
        }
        m_open.push_back(opened);
        if (opened->name == "style" || opened->name == "title") {
            const std::size_t end = m_rest.find("</" + opened->name);
            takeText(m_rest.substr(0, end), opened->name == "title");
        }
    }

    void takeEndTag()
    {
        m_rest.remove_prefix(2);
        const std::string name = takeName();
        if (m_open.size() < 2 || m_open.back()->name != name || !m_rest.starts_with('>')) {
            throw std::runtime_error("a stray end: " + name + " in " + m_open.back()->name);
        }
        m_rest.remove_prefix(1);
        m_open.pop_back();
    }

    void takeText(std::string_view raw, bool hasEntities)
    {
        const std::string text = hasEntities ? resolved(raw) : std::string(raw);
        for (HTMLElement* element : m_open) {
            element->text += text;
        }
        m_rest.remove_prefix(raw.size());
    }

    static std::string resolved(std::string_view raw)
    {
        static const std::map<std::string, std::string, std::less<>> entities = {
            {"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"#39", "'"}};
        std::string text;
        while (!raw.empty()) {
            const std::size_t sign = std::min(raw.find('&'), raw.size());
            text += raw.substr(0, sign);
            raw.remove_prefix(sign);
            if (raw.empty()) {
                break;
            }
            const std::size_t end = raw.find(';');
            const auto entity = entities.find(raw.substr(1, end == std::string_view::npos ? end : end - 1));
            if (entity == entities.end()) {
                throw std::runtime_error("an unknown entity: " + std::string(raw.substr(0, 12)));
            }
            text += entity->second;
            raw.remove_prefix(end + 1);
        }
        return text;
    }

    std::string_view m_rest;
    std::unique_ptr<HTMLElement> m_root = std::make_unique<HTMLElement>();
    std::vector<HTMLElement*> m_open;
};

std::string classOf(const HTMLElement& element)
{
    const auto found = element.attributes.find("class");
    return found == element.attributes.end() ? "" : found->second;
}

bool hasClass(const HTMLElement& element, std::string_view name)
{
    const std::string classes = classOf(element);
    return std::ranges::count(split(classes, ' '), name) > 0;
}

void collect(const HTMLElement& element, std::string_view name, std::vector<const HTMLElement*>& found)
{
    for (const auto& child : element.children) {
        if (hasClass(*child, name)) {
            found.push_back(child.get());
        }
        collect(*child, name, found);
    }
}

void describe(const HTMLElement& element, const std::string& path, std::string& lines)
{
    for (const auto& child : element.children) {
        std::string here = path + " > " + child->name;
        for (const auto& [attribute, value] : child->attributes) {
            here.append("[").append(attribute).append("=").append(value).append("]");
        }
        lines += here;
        lines += '\n';
        describe(*child, path + " > " + child->name, lines);
    }
}

} // namespace

std::string HTMLElement::outline() const
{
    std::string lines;
    describe(*this, name, lines);
    return lines;
}

std::vector<const HTMLElement*> HTMLElement::withClass(std::string_view className) const
{
    std::vector<const HTMLElement*> found;
    collect(*this, className, found);
    return found;
}

const HTMLElement& HTMLElement::first(std::string_view className) const
{
    static const HTMLElement none;
    const auto found = withClass(className);
    return found.empty() ? none : *found.front();
}

std::unique_ptr<HTMLElement> parseHTML(std::string_view page)
{
    return Parser(page).parse();
}

} // namespace Quillary
