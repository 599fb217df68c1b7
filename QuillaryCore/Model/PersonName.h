#pragma once

#include <string>
#include <string_view>

namespace Quillary {

/// A person's name in the two parts that a client stores.
struct PersonName
{
    std::string first; ///< may hold a title and further names; empty where there is only one word
    std::string last;

    friend bool operator==(const PersonName&, const PersonName&) = default;
};

/// Takes a full name apart: "Anna Maria Schmidt", "Ludwig van Beethoven" (the particles belong to the last name),
/// "Schmidt, Anna", "Martin Luther King Jr.". The last word is the family name, as in most of the countries whose
/// languages we print.
[[nodiscard]] PersonName personName(std::string_view fullName);

} // namespace Quillary
