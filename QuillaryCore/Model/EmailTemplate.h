#pragma once

#include "QuillaryCore/Store/Field.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

/// A user-edited email text.
struct EmailTemplate : Record<EmailTemplate>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<Instant> modifiedAt;
    std::int16_t kindRaw = 0;
    std::string languageCode;
    std::string subject;
    std::string body;

    static constexpr std::string_view entityName = "EmailTemplate";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &EmailTemplate::uuid},
                          Field{"modifiedAt", &EmailTemplate::modifiedAt},
                          Field{"kindRaw", &EmailTemplate::kindRaw},
                          Field{"languageCode", &EmailTemplate::languageCode},
                          Field{"subject", &EmailTemplate::subject},
                          Field{"body", &EmailTemplate::body}};
    }

    static constexpr auto references() { return std::tuple{}; }

    friend bool operator==(const EmailTemplate&, const EmailTemplate&) = default;
};

} // namespace Quillary
