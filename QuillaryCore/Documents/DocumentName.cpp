#include "QuillaryCore/Documents/DocumentName.h"

#include "QuillaryCore/Foundation/PlainText.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

namespace Quillary {

std::string documentName(const Document& document)
{
    const std::optional<DocumentKind> known = kind(document);
    const std::string number = plainText(document.number);
    return fmt::format("{} {}", known ? title(*known) : "Document", number.empty() ? "without a number" : number);
}

std::string kindInSentence(const Document& document)
{
    const std::optional<DocumentKind> known = kind(document);
    return known ? lowerCasedASCII(title(*known)) : "document";
}

std::string derivedNumbers(Context& context, const Document& document, DocumentKind kind)
{
    std::string numbers;
    for (const Document* derived : derivedDocuments(context, document)) {
        if (Quillary::kind(*derived) == kind) {
            const std::string number = plainText(derived->number);
            numbers += (numbers.empty() ? "" : ", ") + (number.empty() ? "one without a number" : number);
        }
    }
    return numbers;
}

} // namespace Quillary
