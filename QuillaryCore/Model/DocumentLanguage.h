#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Quillary {

struct Document;

/// The languages that documents are printed in.
enum class DocumentLanguage : std::uint8_t {
    english,
    german,
    french,
    spanish,
    dutch,
    italian,
};

inline constexpr std::array allDocumentLanguages = {DocumentLanguage::english,
                                                    DocumentLanguage::german,
                                                    DocumentLanguage::french,
                                                    DocumentLanguage::spanish,
                                                    DocumentLanguage::dutch,
                                                    DocumentLanguage::italian};

/// "en", "de", "fr", "es", "nl", "it": the stored code (ISO 639-1).
[[nodiscard]] std::string_view code(DocumentLanguage language);

/// The language of exactly this code. No value: any other text.
[[nodiscard]] std::optional<DocumentLanguage> documentLanguageFromCode(std::string_view code);

/// The language of a stored code; an unknown or empty code reads as English.
[[nodiscard]] DocumentLanguage documentLanguage(std::string_view code);

[[nodiscard]] DocumentLanguage language(const Document& document);

/// "English", "German": the English name of the screen.
[[nodiscard]] std::string_view title(DocumentLanguage language);

} // namespace Quillary
