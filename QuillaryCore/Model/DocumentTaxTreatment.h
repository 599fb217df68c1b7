#pragma once

#include "QuillaryCore/Store/Field.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <tuple>

namespace Quillary {

class Context;
struct Document;

/// Why a document is taxed or not. The values are stored in `DocumentTaxTreatment::treatmentRaw`.
enum class TaxTreatment : std::int16_t {
    standard = 0,
    reverseCharge = 1, ///< the client owes the tax (within the EU)
    outsideEU = 2,     ///< taxed where the client is
    exempt = 3,        ///< any other reason, as the document's note words it
};

/// No value: a stored number that no treatment has.
[[nodiscard]] std::optional<TaxTreatment> taxTreatmentFromRaw(std::int16_t raw);

/// Why a document is taxed as it is. `Document::taxExempt` has the last word: a taxed document is standard, and one
/// that is exempt for no remembered reason is exempt.
[[nodiscard]] TaxTreatment taxTreatment(Context& context, const Document& document);

/// Remembers the treatment; `Document::taxExempt` and the note are the caller's. The document has its `uuid`.
void setTaxTreatment(Context& context, const Document& document, TaxTreatment treatment);

/// A fact about a document that its own record has no field for, tied to it by `uuid`.
struct DocumentTaxTreatment : Record<DocumentTaxTreatment>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<UUID> documentID;
    std::int16_t treatmentRaw = 0; ///< `TaxTreatment`

    static constexpr std::string_view entityName = "DocumentTaxTreatment";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &DocumentTaxTreatment::uuid},
                          Field{"documentID", &DocumentTaxTreatment::documentID},
                          Field{"treatmentRaw", &DocumentTaxTreatment::treatmentRaw}};
    }

    static constexpr auto references() { return std::tuple{}; }

    static constexpr auto uuidReferences()
    {
        return std::tuple{
            UUIDReference{"documentID", &DocumentTaxTreatment::documentID, "Document", WhenTargetGoes::erase}};
    }

    static constexpr auto indexes() { return std::array{Index{"DocumentTaxTreatment_document", "documentID"}}; }

    friend bool operator==(const DocumentTaxTreatment&, const DocumentTaxTreatment&) = default;
};

} // namespace Quillary
