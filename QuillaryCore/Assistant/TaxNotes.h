#pragma once

#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"

#include <string_view>

namespace Quillary {

/// The printed reason why a document carries no VAT, in its language, with the article of Directive 2006/112/EC that
/// EU practice names. Empty for the treatments whose reason the user words (`exempt`) or that need none (`standard`).
[[nodiscard]] std::string_view taxNote(TaxTreatment treatment, DocumentLanguage language);

} // namespace Quillary
