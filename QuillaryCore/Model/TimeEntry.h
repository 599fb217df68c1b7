#pragma once

#include "QuillaryCore/Store/Field.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

struct Client;
struct Project;

/// Tracked time.
struct TimeEntry : Record<TimeEntry>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<Instant> createdAt;
    std::optional<Instant> start;
    std::optional<Instant> end; ///< absent while the timer runs
    std::string note;
    bool isBillable = false;
    std::optional<UUID> invoiceID; ///< the invoice that billed it; absent while unbilled

    Ref<Client> client;
    Ref<Project> project;

    static constexpr std::string_view entityName = "TimeEntry";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &TimeEntry::uuid},
                          Field{"createdAt", &TimeEntry::createdAt},
                          Field{"start", &TimeEntry::start},
                          Field{"end", &TimeEntry::end},
                          Field{"note", &TimeEntry::note},
                          Field{"isBillable", &TimeEntry::isBillable},
                          Field{"invoiceID", &TimeEntry::invoiceID}};
    }

    static constexpr auto references()
    {
        return std::tuple{Reference{"client", &TimeEntry::client, WhenTargetGoes::clear},
                          Reference{"project", &TimeEntry::project, WhenTargetGoes::clear}};
    }

    /// Time whose invoice is deleted can be billed again.
    static constexpr auto uuidReferences()
    {
        return std::tuple{UUIDReference{"invoiceID", &TimeEntry::invoiceID, "Document", WhenTargetGoes::clear}};
    }

    static constexpr auto indexes()
    {
        return std::array{Index{"TimeEntry_client", "client"},
                          Index{"TimeEntry_project", "project"},
                          Index{"TimeEntry_start", "start"},
                          Index{"TimeEntry_running", "start", "\"end\" IS NULL"},
                          Index{"TimeEntry_invoice", "invoiceID", "invoiceID IS NOT NULL"}};
    }

    friend bool operator==(const TimeEntry&, const TimeEntry&) = default;
};

} // namespace Quillary
