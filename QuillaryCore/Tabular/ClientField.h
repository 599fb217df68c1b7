#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace Quillary {

/// What a column of a client list holds. In the order in which headings are tried.
enum class ClientField : std::uint8_t {
    ignore, ///< nothing of ours
    number,
    company,
    name, ///< of a company or a person
    firstName,
    lastName,
    kind,
    email,
    phone,
    website,
    street,
    street2, ///< what stands below the street
    postalCode,
    city,
    state,
    country,
    vatID,
    taxID,
    currency,
    language,
    notes,
};

inline constexpr std::size_t clientFieldCount = static_cast<std::size_t>(ClientField::notes) + 1;

/// The field's name: "postalCode".
[[nodiscard]] std::string_view rawValue(ClientField field);

namespace ClientFields {

/// The field of exactly this name. No value: any other text.
[[nodiscard]] std::optional<ClientField> fromRawValue(std::string_view text);

/// What is written above columns of this field in the six languages and by other programs, normalised; what means the
/// field most clearly comes first. `ignore` has none.
[[nodiscard]] std::span<const std::string_view> aliases(ClientField field);

/// The field that a heading names, in whatever case, spacing and punctuation; `ignore` when it is none of those known.
[[nodiscard]] ClientField guess(std::string_view heading);

} // namespace ClientFields

} // namespace Quillary
