#pragma once

#include "QuillaryCore/Store/Field.h"

#include <array>
#include <optional>
#include <string_view>
#include <tuple>

namespace Quillary {

/// Which line, discount or fee of an invoice a part of a credit note takes back: a fact that their own records have no
/// field for. All of them are named by `uuid`.
struct CreditedPart : Record<CreditedPart>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<UUID> creditNoteID;
    std::optional<UUID> partID;   ///< of the credit note; it may be gone by now
    std::optional<UUID> sourceID; ///< of the invoice

    static constexpr std::string_view entityName = "CreditedPart";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &CreditedPart::uuid},
                          Field{"creditNoteID", &CreditedPart::creditNoteID},
                          Field{"partID", &CreditedPart::partID},
                          Field{"sourceID", &CreditedPart::sourceID}};
    }

    static constexpr auto references() { return std::tuple{}; }

    static constexpr auto uuidReferences()
    {
        return std::tuple{
            UUIDReference{"creditNoteID", &CreditedPart::creditNoteID, "Document", WhenTargetGoes::erase}};
    }

    static constexpr auto indexes() { return std::array{Index{"CreditedPart_creditNote", "creditNoteID"}}; }

    friend bool operator==(const CreditedPart&, const CreditedPart&) = default;
};

} // namespace Quillary
