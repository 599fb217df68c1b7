#include "QuillaryCore/Tabular/ImportText.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Tabular/ClientField.h"

#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

TEST(ClientFieldTest, recognisesHeadings)
{
    using enum ClientField;
    const std::pair<std::string_view, ClientField> cases[] = {
        {"Kunden-Nr.", number},
        {"Firma", company},
        {"Vorname", firstName},
        {"Straße und Hausnummer", street},
        {"STRASSE", street},
        {"PLZ", postalCode},
        {"USt-IdNr.", vatID},
        {"Client", name},
        {"Account", company},
        {"Staat", country},
        {"State/Province", state},
        {"E-mail", email},
        {"ＥＭＡＩＬ", email},
        {"Prénom", firstName},
        {"Währung", currency},
        {"address_2", street2},
        {"Ref", number},
        {"PIN", postalCode},
        {"EIN", taxID},
        {"UID", vatID},
        {"Name of company", ignore}, // whole headings only
        {"Names", ignore},
        {"--- / ---", ignore},
        {"", ignore},
    };
    for (const auto& [heading, field] : cases) {
        EXPECT_EQ(ClientFields::guess(heading), field) << heading;
    }
}

TEST(ClientFieldTest, hasAliasesThatCanBeFound)
{
    std::set<std::string_view> seen;
    for (std::size_t i = 0; i < clientFieldCount; ++i) {
        const auto field = static_cast<ClientField>(i);
        EXPECT_EQ(ClientFields::fromRawValue(rawValue(field)), field);
        for (const std::string_view alias : ClientFields::aliases(field)) {
            EXPECT_EQ(ImportText::normalized(alias), alias);
            EXPECT_TRUE(seen.insert(alias).second) << alias << " means two things";
        }
    }
}

TEST(ImportTextTest, readsCountries)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"DE",
         "de|DEU| Deutschland |GERMANY|Allemagne|Alemania|Duitsland|germania|D|"
         "Germany (DE)"},
        {"AT", "AT - Österreich"},
        {"GB", "UK|U.K.|United Kingdom|England|XI"},
        {"GR", "EL"},
        {"US", "USA|U.S.A."},
        {"NL", "the Netherlands|Holland"},
        {"CZ", "CZECH REPUBLIC|Tschechien"},
        {"TR", "Türkei"},
        {"CI", "Cote d'Ivoire"},
        {"PL", "Polska"},
        {"JP", "日本"},
        {"CH", "CH"},
        {"BA", "Bosnia-Herzegovina"},
        {"", "Atlantis|XX|-|"},
    };
    for (const auto& [expected, texts] : cases) {
        for (const std::string_view text : split(texts, '|')) {
            EXPECT_EQ(ImportText::countryCode(text).value_or(""), expected) << text;
        }
    }
    EXPECT_EQ(ImportText::countryCode(std::string(100'000, 'a')), std::nullopt);
}

TEST(ImportTextTest, readsCurrencies)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"EUR", "eur|€|Euros|EUR (€)"},
        {"USD", "$|US$|US-Dollar|dólares estadounidenses"},
        {"GBP", "£|livres sterling"},
        {"CHF", "Schweizer Franken|SFr.|Zwitserse frank"},
        {"JPY", "¥"},
        {"PLN", "zł"},
        {"CAD", "CA$"},
        {"", "kr|DEM|XYZ|"},
    };
    for (const auto& [expected, texts] : cases) {
        for (const std::string_view text : split(texts, '|')) {
            EXPECT_EQ(ImportText::currencyCode(text).value_or(""), expected) << text;
        }
    }
}

TEST(ImportTextTest, readsLanguages)
{
    const std::pair<std::optional<DocumentLanguage>, std::string_view> cases[] = {
        {DocumentLanguage::german, "de|de_AT.UTF-8|DE-ch|ger|Deutsch|allemand"},
        {DocumentLanguage::english, "English (US)"},
        {DocumentLanguage::french, "Français"},
        {DocumentLanguage::spanish, "castellano"},
        {DocumentLanguage::dutch, "Nederlands"},
        {DocumentLanguage::italian, "ITALIANO"},
        {std::nullopt, "pl|Polish|"},
    };
    for (const auto& [expected, texts] : cases) {
        for (const std::string_view text : split(texts, '|')) {
            EXPECT_EQ(ImportText::language(text), expected) << text;
        }
    }
}

TEST(ImportTextTest, readsKinds)
{
    EXPECT_EQ(ImportText::kind("Company"), ClientKind::organization);
    EXPECT_EQ(ImportText::kind("Société"), ClientKind::organization);
    EXPECT_EQ(ImportText::kind("Geschäftskunde"), ClientKind::organization);
    EXPECT_EQ(ImportText::kind("Privat"), ClientKind::person);
    EXPECT_EQ(ImportText::kind("Natürliche Person"), ClientKind::person);
    EXPECT_EQ(ImportText::kind("gold"), std::nullopt);
    EXPECT_EQ(ImportText::kind(""), std::nullopt);
}

} // namespace

} // namespace Quillary
