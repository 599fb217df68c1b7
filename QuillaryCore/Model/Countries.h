#pragma once

#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/TaxLabel.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// What the program knows of countries. Codes are ISO 3166-1 alpha-2, upper case.
namespace Quillary::Countries {

/// What a new business of a country starts with. Rates are those of January 2026.
struct Defaults
{
    std::string_view countryCode;
    std::string_view currencyCode; ///< ISO 4217
    TaxLabel taxLabel = TaxLabel::tax;
    std::span<const std::int32_t> rates; ///< basis points, the standard rate first; empty where rates differ by place
};

/// No value: a country without known defaults.
[[nodiscard]] std::optional<Defaults> defaults(std::string_view countryCode);

/// The language of the country's invoices, where it is one of ours and nearly the only one in use. No value: another, or
/// several.
[[nodiscard]] std::optional<DocumentLanguage> language(std::string_view countryCode);

/// True where letters are written on US Letter paper. Source: CLDR.
[[nodiscard]] bool usesLetterPaper(std::string_view countryCode);

/// True for the 27 members of the European Union.
[[nodiscard]] bool isInEU(std::string_view countryCode);

/// True for an officially assigned code.
[[nodiscard]] bool isKnown(std::string_view countryCode);

/// The currency in use (ISO 4217). Empty: unknown.
[[nodiscard]] std::string currency(std::string_view countryCode);

} // namespace Quillary::Countries
