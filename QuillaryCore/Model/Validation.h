#pragma once

#include <string>
#include <string_view>

/// Checks of what people type. They look at the form only: no bank or office is asked.
namespace Quillary::Validation {

/// Without white space, upper case: "DE89 3704 …" gives "DE893704…".
[[nodiscard]] std::string compactIBAN(std::string_view text);

/// An IBAN in any spacing and case: known country, its length, and the check digits. Source: ISO 13616, ISO 7064
/// MOD 97-10.
[[nodiscard]] bool isValidIBAN(std::string_view text);

/// A BIC in any spacing and case: 8 or 11 letters and digits, of which the fifth and sixth name a country.
/// Source: ISO 9362.
[[nodiscard]] bool isValidBIC(std::string_view text);

/// "name@bank": letters, digits, ".", "-" and "_" before the sign, letters and digits after it.
[[nodiscard]] bool isValidUPI(std::string_view text);

/// A VAT ID as it is compared and stored: upper case, without the white space, dots, dashes and slashes that people put
/// between its groups.
[[nodiscard]] std::string compactVATID(std::string_view text);

/// A VAT identification number in the form of its country (EU members with EL or GR for Greece, XI, GB, CH, NO), in any
/// spacing, punctuation and case. Numbers of other countries only need letters and digits.
[[nodiscard]] bool isValidVATID(std::string_view text);

/// Something without "@" or white space, "@", a domain with a dot, and a last label of at least two characters.
[[nodiscard]] bool isValidEmail(std::string_view text);

/// "#RRGGBB".
[[nodiscard]] bool isValidHexColor(std::string_view text);

} // namespace Quillary::Validation
