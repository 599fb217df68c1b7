#include "QuillaryCore/Model/DocumentStatus.h"

#include "QuillaryCore/Model/Document.h"

namespace Quillary {

std::optional<DocumentStatus> documentStatusFromRaw(std::int16_t raw)
{
    if (raw < 0 || raw > 4) {
        return std::nullopt;
    }
    return static_cast<DocumentStatus>(raw);
}

std::optional<DocumentStatus> status(const Document& document)
{
    return documentStatusFromRaw(document.statusRaw);
}

} // namespace Quillary
