#include "QuillaryCore/Model/NumberedKind.h"

namespace Quillary {

std::string_view id(NumberedKind kind)
{
    switch (kind) {
    case NumberedKind::invoice:
        return "invoice";
    case NumberedKind::quote:
        return "quote";
    case NumberedKind::creditNote:
        return "creditNote";
    case NumberedKind::client:
        return "client";
    }
    return {};
}

std::optional<NumberedKind> numberedKindFromID(std::string_view text)
{
    for (const NumberedKind kind : allNumberedKinds) {
        if (id(kind) == text) {
            return kind;
        }
    }
    return std::nullopt;
}

std::string_view title(NumberedKind kind)
{
    switch (kind) {
    case NumberedKind::invoice:
        return "Invoices";
    case NumberedKind::quote:
        return "Quotes";
    case NumberedKind::creditNote:
        return "Credit notes";
    case NumberedKind::client:
        return "Clients";
    }
    return {};
}

bool allowsClient(NumberedKind kind)
{
    return kind != NumberedKind::client;
}

} // namespace Quillary
