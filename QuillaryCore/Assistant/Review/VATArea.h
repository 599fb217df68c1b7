#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

class Locale;
struct Business;
struct Client;

/// What is supplied: Northern Ireland belongs to the EU's VAT area for goods, not for services.
enum class Supply { services, goods };

/// Where a party is for VAT. Source: Articles 5 to 7 of Directive 2006/112/EC, and Article 8 and Annex 3 of the Protocol
/// on Ireland/Northern Ireland.
struct VATArea
{
    std::string country; ///< ISO 3166-1 alpha-2, as the address has it
    std::string member;  ///< the member state whose area it is ("FR" for Monaco, "XI" for Northern Ireland); or empty
    std::string place;   ///< the part of the country whose VAT isn't the country's own, such as "Canary Islands"

    [[nodiscard]] bool isInEU() const { return !member.empty(); }

    /// The country as it stands in an English sentence: "the Netherlands". Assistants read English: of a locale in
    /// another language only "en" is used.
    [[nodiscard]] std::string name(const Locale& locale) const;

    /// The same as it stands alone: "Netherlands".
    [[nodiscard]] std::string plainName(const Locale& locale) const;

    [[nodiscard]] static VATArea of(const Business& business, Supply supply);

    /// The address decides; without a country there, the VAT ID. No value: neither tells.
    [[nodiscard]] static std::optional<VATArea> of(const Client& client, Supply supply);

    friend bool operator==(const VATArea&, const VATArea&) = default;
};

/// The member state that gave a VAT ID, by its first two letters: "EL" (and "GR") is Greece, "XI" Northern Ireland.
/// Empty: none of them.
[[nodiscard]] std::string_view memberOfVATID(std::string_view vatID);

} // namespace Quillary
