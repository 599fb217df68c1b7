#include "QuillaryCore/Model/DocumentKind.h"

#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/NumberedKind.h"

namespace Quillary {

std::optional<DocumentKind> documentKindFromRaw(std::int16_t raw)
{
    if (raw < 0 || raw > 3) {
        return std::nullopt;
    }
    return static_cast<DocumentKind>(raw);
}

std::optional<DocumentKind> kind(const Document& document)
{
    return documentKindFromRaw(document.kindRaw);
}

std::string_view title(DocumentKind kind)
{
    switch (kind) {
    case DocumentKind::invoice:
        return "Invoice";
    case DocumentKind::quote:
        return "Quote";
    case DocumentKind::creditNote:
        return "Credit Note";
    case DocumentKind::recurring:
        return "Recurring Invoice";
    }
    return {};
}

NumberedKind numbered(DocumentKind kind)
{
    switch (kind) {
    case DocumentKind::invoice:
    case DocumentKind::recurring:
        return NumberedKind::invoice;
    case DocumentKind::quote:
        return NumberedKind::quote;
    case DocumentKind::creditNote:
        return NumberedKind::creditNote;
    }
    return NumberedKind::invoice;
}

} // namespace Quillary
