#pragma once

#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"

#include <string_view>

namespace Quillary {

/// The printed reason why a document carries no VAT, in its language, with the article of Directive 2006/112/EC that
/// EU practice names. Empty for the treatments whose reason the user words (`exempt`) or that need none (`standard`).
[[nodiscard]] std::string_view taxNote(TaxTreatment treatment, DocumentLanguage language);

/// Whether a printed reason is ours for this treatment, in whatever language: then it follows treatment and language.
[[nodiscard]] bool isTaxNote(std::string_view note, TaxTreatment treatment);

} // namespace Quillary
