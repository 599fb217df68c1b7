#pragma once

#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Model/DocumentLanguage.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Quillary {

struct Business;

/// Words on paper that depend on more than the language.
namespace PrintedTerms {

/// The word for tax in front of its rate: the business's own label, "VAT" and the like in the document's language.
[[nodiscard]] std::string tax(const Business& business, DocumentLanguage language);

/// What the number that a country's tax office gave out for VAT or GST is called: "VAT ID" in the document's language,
/// the country's own word where it has one ("GSTIN", "ABN").
[[nodiscard]] std::string_view vatID(std::string_view countryCode, DocumentLanguage language);

/// For a fee without a title.
[[nodiscard]] std::string_view fee(DocumentLanguage language);

/// A rate as the locale writes numbers and the language sets the sign: "7.5%", "7,5 %". Unit: basis points.
[[nodiscard]] std::string percentage(std::int32_t basisPoints, const Locale& locale, DocumentLanguage language);

} // namespace PrintedTerms

} // namespace Quillary
