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

/// A payment reminder sent for a document.
struct Reminder : Record<Reminder>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<Instant> createdAt;
    std::optional<Instant> date;    ///< when it was sent
    std::int16_t level = 0;         ///< `ReminderLevel`
    std::int64_t feeMinorUnits = 0; ///< late fee charged with it, in the document's currency
    std::optional<Instant> payBy;   ///< the new deadline

    Ref<Document> document;

    static constexpr std::string_view entityName = "Reminder";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &Reminder::uuid},
                          Field{"createdAt", &Reminder::createdAt},
                          Field{"date", &Reminder::date},
                          Field{"level", &Reminder::level},
                          Field{"feeMinorUnits", &Reminder::feeMinorUnits},
                          Field{"payBy", &Reminder::payBy}};
    }

    static constexpr auto references()
    {
        return std::tuple{Reference{"document", &Reminder::document, WhenTargetGoes::erase}};
    }

    static constexpr auto indexes() { return std::array{Index{"Reminder_document", "document"}}; }

    friend bool operator==(const Reminder&, const Reminder&) = default;
};

} // namespace Quillary
