#pragma once

#include "QuillaryCore/Store/Field.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

struct Document;

/// Money received against a document.
struct Payment : Record<Payment>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<Instant> createdAt;
    std::optional<Instant> date;
    std::int64_t amountMinorUnits = 0; ///< in the document's currency
    std::string method;                ///< `PaymentMethod`
    std::string note;

    Ref<Document> document;

    static constexpr std::string_view entityName = "Payment";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &Payment::uuid},
                          Field{"createdAt", &Payment::createdAt},
                          Field{"date", &Payment::date},
                          Field{"amountMinorUnits", &Payment::amountMinorUnits},
                          Field{"method", &Payment::method},
                          Field{"note", &Payment::note}};
    }

    static constexpr auto references()
    {
        return std::tuple{Reference{"document", &Payment::document, WhenTargetGoes::erase}};
    }

    static constexpr auto indexes()
    {
        return std::array{Index{"Payment_document", "document"},
                          Index{"Payment_date", "date, document, amountMinorUnits"}};
    }

    friend bool operator==(const Payment&, const Payment&) = default;
};

} // namespace Quillary
