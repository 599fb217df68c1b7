#pragma once

#include "QuillaryCore/Model/ClientKind.h"
#include "QuillaryCore/Model/DocumentLanguage.h"

#include <optional>
#include <string>
#include <string_view>

/// Reads what people write in the columns of a client list: in any of the six languages, as a name, a code or a sign.
namespace Quillary::ImportText {

/// A text as headings and names are compared: letters and digits only, without case, accents and width, "ss" for "ß".
[[nodiscard]] std::string normalized(std::string_view text);

/// The country (ISO 3166-1 alpha-2) of a code of two or three letters, of its name in one of the six languages or its
/// own, of a usual short name ("Holland", "USA") or of the sign on its cars ("D"). "Germany (DE)" and "AT - Österreich"
/// are read by their parts. No value: none of these.
[[nodiscard]] std::optional<std::string> countryCode(std::string_view text);

/// The currency (ISO 4217) of a code, a sign or a name: "eur", "€", "US-Dollar", "livres sterling". A sign that several
/// currencies share is the one that it means in English ("$" is the US dollar); "kr" means none. No value: none of these.
[[nodiscard]] std::optional<std::string> currencyCode(std::string_view text);

/// The language of a code ("de", "de_AT", "deu"), or of its name in one of the six. No value: none of these, or a
/// language that documents aren't printed in.
[[nodiscard]] std::optional<DocumentLanguage> language(std::string_view text);

/// "Company", "Privatkunde", "particulier". No value: another word.
[[nodiscard]] std::optional<ClientKind> kind(std::string_view text);

} // namespace Quillary::ImportText
