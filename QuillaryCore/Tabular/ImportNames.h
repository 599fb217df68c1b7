#pragma once

#include "QuillaryCore/Model/DocumentLanguage.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace Quillary {

/// Codes by the names that people write for them, normalised as `ImportText::normalized` does.
using CodesByName = std::unordered_map<std::string, std::string>;

/// Names and codes of countries, currencies and languages, asked of ICU once, when they are first needed.
namespace ImportNames {

/// Countries by their names in the six languages, long and short, and by their codes of three letters.
[[nodiscard]] const CodesByName& countries();

/// Countries by their names in the languages that are spoken there: some milliseconds more, seldom needed.
[[nodiscard]] const CodesByName& countriesInOwnLanguages();

/// Currencies by their names in the six languages, for one and for many.
[[nodiscard]] const CodesByName& currencies();

/// Currencies by their signs as they stand, "€" and "US$"; a sign of several currencies is left out unless it means one
/// of them in English.
[[nodiscard]] const CodesByName& currencySigns();

/// The six languages by their names in each other, and by their codes of two and three letters.
[[nodiscard]] const std::unordered_map<std::string, DocumentLanguage>& languages();

} // namespace ImportNames

} // namespace Quillary
