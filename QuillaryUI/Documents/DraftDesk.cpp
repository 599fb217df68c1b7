#include "QuillaryUI/Documents/DraftDesk.h"

#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Documents/DraftLines.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/WindowWords.h"

#include <utility>

namespace Quillary {

const Document* DraftDesk::document() const
{
    return m_library.isOpen() ? m_library.context().find(Ref<Document>(m_document)) : nullptr;
}

std::optional<QString> DraftDesk::change(const QString& name, const JSON& arguments) const
{
    const std::optional<QString> refusal = m_library.perform(name, [&] {
        if (const Document* draft = document()) {
            DocumentSession::open(m_library.environment(), *draft).apply(Arguments(arguments));
        }
    });
    return refusal ? std::optional(WindowWords::refusal(*refusal)) : std::nullopt;
}

std::optional<QString> DraftDesk::change(const QString& name, std::string_view field, JSON value) const
{
    return change(name, JSON::object({{std::string(field), std::move(value)}}));
}

std::optional<QString> DraftDesk::moveLine(int from, int before) const
{
    return m_library.perform(QObject::tr("Move Line"), [&] {
        if (const Document* draft = document()) {
            DraftLines::move(
                m_library.context(), *draft, static_cast<std::size_t>(from), static_cast<std::size_t>(before));
        }
    });
}

std::optional<QString> DraftDesk::changeLine(const QString& name, int line, LineChange work) const
{
    return m_library.perform(name, [&] {
        if (const Document* draft = document()) {
            work(m_library.context(), *draft, static_cast<std::size_t>(line));
        }
    });
}

std::optional<QString> DraftDesk::nestLine(int line) const
{
    return changeLine(QObject::tr("Make Sub-Line"), line, &DraftLines::nest);
}

std::optional<QString> DraftDesk::unnestLine(int line) const
{
    return changeLine(QObject::tr("Take Out of Line"), line, &DraftLines::unnest);
}

bool DraftDesk::preview(const JSON& arguments, const std::function<void(const Document&)>& look) const
{
    const Document* draft = document();
    if (draft == nullptr) {
        return false;
    }
    bool isSeen = false;
    m_library.tryOut([&] {
        DocumentSession session = DocumentSession::open(m_library.environment(), *draft);
        session.apply(Arguments(arguments));
        look(session.document());
        isSeen = true;
    });
    return isSeen;
}

} // namespace Quillary
