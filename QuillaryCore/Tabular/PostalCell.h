#pragma once

#include <string>

namespace Quillary {

/// A postal code and its city.
struct PostalCell
{
    std::string code;
    std::string city;

    friend bool operator==(const PostalCell&, const PostalCell&) = default;
};

/// Takes a city out of a postal code such as "12345 Berlin" or "1012 AB Amsterdam" where no other cell names it.
[[nodiscard]] PostalCell postalCell(std::string code, std::string city);

} // namespace Quillary
