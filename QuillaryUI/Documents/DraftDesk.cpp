#include "QuillaryUI/Documents/DraftDesk.h"

#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Documents/DraftLines.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/DeliveryKind.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Store/Context.h"

#include <utility>

namespace Quillary {

const Document* DraftDesk::document() const
{
    return m_library.isOpen() ? m_library.context().find(Ref<Document>(m_document)) : nullptr;
}

std::optional<QString> DraftDesk::change(const QString& name, const JSON& arguments) const
{
    return m_library.perform(name, [&] {
        if (const Document* draft = document()) {
            DocumentSession::open(m_library.environment(), *draft).apply(Arguments(arguments));
        }
    });
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

std::optional<QString> DraftDesk::clearServiceDate() const
{
    return m_library.perform(QObject::tr("Change Document"), [&] {
        if (const Document* draft = document(); draft != nullptr && status(*draft) == DocumentStatus::draft) {
            Document& edited = m_library.context().edit(*draft);
            edited.deliveryKindRaw = std::int16_t(DeliveryKind::none);
            edited.deliveryStart.reset();
            edited.deliveryEnd.reset();
        }
    });
}

} // namespace Quillary
