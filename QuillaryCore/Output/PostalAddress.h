#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

struct Business;
struct Client;

/// Where somebody gets letters. Refers to texts that live elsewhere.
struct PostalAddress
{
    std::string_view addressLine; ///< street and number; may hold several lines
    std::string_view postalCode;
    std::string_view city;
    std::string_view state;
    std::string_view countryCode; ///< ISO 3166-1 alpha-2

    [[nodiscard]] static PostalAddress of(const Business& business);
    [[nodiscard]] static PostalAddress of(const Client& client);

    /// The lines below the name, in the order the country's post wants: "10115 Berlin", "Austin, TX 78701", "London" and
    /// "SW1A 1AA" below each other. A state is left out where letters don't carry one. Without the country's name.
    /// Source: the addressing guides of the Universal Postal Union.
    [[nodiscard]] std::vector<std::string> lines() const;
};

} // namespace Quillary
