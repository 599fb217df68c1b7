#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace Quillary {

struct Document;
enum class NumberedKind;

/// What a document is. The values are stored in `Document::kindRaw`.
enum class DocumentKind : std::int16_t {
    invoice = 0,
    quote = 1,
    creditNote = 2,
    recurring = 3, ///< a template from which invoices are made
};

/// No value: a stored number that no kind has.
[[nodiscard]] std::optional<DocumentKind> documentKindFromRaw(std::int16_t raw);

/// The kind of a stored document. No value: it can't be read; such a document is treated as an invoice.
[[nodiscard]] std::optional<DocumentKind> kind(const Document& document);

/// "Invoice", "Credit Note": the English word of the screen; printed words come from the document's language.
[[nodiscard]] std::string_view title(DocumentKind kind);

/// The series that numbers this kind: a recurring template numbers the invoices it makes.
[[nodiscard]] NumberedKind numbered(DocumentKind kind);

} // namespace Quillary
