#include "QuillaryCore/Model/DocumentLanguage.h"

#include "QuillaryCore/Model/Document.h"

namespace Quillary {

std::string_view code(DocumentLanguage language)
{
    switch (language) {
    case DocumentLanguage::english:
        return "en";
    case DocumentLanguage::german:
        return "de";
    case DocumentLanguage::french:
        return "fr";
    case DocumentLanguage::spanish:
        return "es";
    case DocumentLanguage::dutch:
        return "nl";
    case DocumentLanguage::italian:
        return "it";
    }
    return {};
}

std::optional<DocumentLanguage> documentLanguageFromCode(std::string_view text)
{
    for (const DocumentLanguage language : allDocumentLanguages) {
        if (code(language) == text) {
            return language;
        }
    }
    return std::nullopt;
}

DocumentLanguage documentLanguage(std::string_view code)
{
    return documentLanguageFromCode(code).value_or(DocumentLanguage::english);
}

DocumentLanguage language(const Document& document)
{
    return documentLanguage(document.languageCode);
}

std::string_view title(DocumentLanguage language)
{
    switch (language) {
    case DocumentLanguage::english:
        return "English";
    case DocumentLanguage::german:
        return "German";
    case DocumentLanguage::french:
        return "French";
    case DocumentLanguage::spanish:
        return "Spanish";
    case DocumentLanguage::dutch:
        return "Dutch";
    case DocumentLanguage::italian:
        return "Italian";
    }
    return {};
}

} // namespace Quillary
