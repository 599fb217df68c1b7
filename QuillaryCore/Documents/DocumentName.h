#pragma once

#include "QuillaryCore/Model/DocumentKind.h"

#include <string>

namespace Quillary {

class Context;
struct Document;

/// A document in a sentence: "Invoice INV-2026-001", "Quote without a number".
[[nodiscard]] std::string documentName(const Document& document);

/// The same for an article or the middle of a sentence: "invoice", "credit note"; "document" for an unreadable kind.
[[nodiscard]] std::string kindInSentence(const Document& document);

/// The numbers of a document's derived documents of one kind in a sentence: "CN-1, CN-2". Empty: there are none.
[[nodiscard]] std::string derivedNumbers(Context& context, const Document& document, DocumentKind kind);

} // namespace Quillary
