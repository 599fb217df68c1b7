#include "QuillaryCore/Model/DocumentTaxTreatment.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"

namespace Quillary {

namespace {

const DocumentTaxTreatment* stored(Context& context, const Document& document)
{
    return document.uuid ? context.first<DocumentTaxTreatment>("documentID = ? ORDER BY id", *document.uuid) : nullptr;
}

} // namespace

std::optional<TaxTreatment> taxTreatmentFromRaw(std::int16_t raw)
{
    if (raw < 0 || raw > 3) {
        return std::nullopt;
    }
    return static_cast<TaxTreatment>(raw);
}

TaxTreatment taxTreatment(Context& context, const Document& document)
{
    if (!document.taxExempt) {
        return TaxTreatment::standard;
    }
    const DocumentTaxTreatment* chosen = stored(context, document);
    const auto treatment = chosen == nullptr ? std::nullopt : taxTreatmentFromRaw(chosen->treatmentRaw);
    return treatment.value_or(TaxTreatment::standard) == TaxTreatment::standard ? TaxTreatment::exempt : *treatment;
}

void setTaxTreatment(Context& context, const Document& document, TaxTreatment treatment)
{
    precondition(document.uuid.has_value(), "a document with a tax treatment has its identifier");
    const DocumentTaxTreatment* chosen = stored(context, document);
    if (chosen == nullptr && treatment == TaxTreatment::standard) {
        return;
    }
    DocumentTaxTreatment& record = chosen == nullptr ? context.insert<DocumentTaxTreatment>() : context.edit(*chosen);
    record.documentID = document.uuid;
    record.treatmentRaw = static_cast<std::int16_t>(treatment);
}

} // namespace Quillary
