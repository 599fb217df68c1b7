#include "QuillaryCore/Tabular/ImportText.h"

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
        {"de", "DE"},
        {"DEU", "DE"},
        {" Deutschland ", "DE"},
        {"GERMANY", "DE"},
        {"Allemagne", "DE"},
        {"Alemania", "DE"},
        {"Duitsland", "DE"},
        {"germania", "DE"},
        {"D", "DE"},
        {"Germany (DE)", "DE"},
        {"AT - Österreich", "AT"},
        {"UK", "GB"},
        {"U.K.", "GB"},
        {"United Kingdom", "GB"},
        {"England", "GB"},
        {"XI", "GB"},
        {"EL", "GR"},
        {"USA", "US"},
        {"U.S.A.", "US"},
        {"the Netherlands", "NL"},
        {"Holland", "NL"},
        {"CZECH REPUBLIC", "CZ"},
        {"Tschechien", "CZ"},
        {"Türkei", "TR"},
        {"Cote d'Ivoire", "CI"},
        {"Polska", "PL"},
        {"日本", "JP"},
        {"CH", "CH"},
        {"Bosnia-Herzegovina", "BA"},
        {"Atlantis", ""},
        {"XX", ""},
        {"-", ""},
        {"", ""},
    };
    for (const auto& [text, code] : cases) {
        EXPECT_EQ(ImportText::countryCode(text).value_or(""), code) << text;
    }
    EXPECT_EQ(ImportText::countryCode(std::string(100'000, 'a')), std::nullopt);
}

TEST(ImportTextTest, readsCurrencies)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"eur", "EUR"},
        {"€", "EUR"},
        {"Euros", "EUR"},
        {"EUR (€)", "EUR"},
        {"$", "USD"},
        {"US$", "USD"},
        {"US-Dollar", "USD"},
        {"dólares estadounidenses", "USD"},
        {"£", "GBP"},
        {"livres sterling", "GBP"},
        {"Schweizer Franken", "CHF"},
        {"SFr.", "CHF"},
        {"¥", "JPY"},
        {"zł", "PLN"},
        {"Zwitserse frank", "CHF"},
        {"CA$", "CAD"},
        {"kr", ""}, // of four countries
        {"DEM", ""},
        {"XYZ", ""},
        {"", ""},
    };
    for (const auto& [text, code] : cases) {
        EXPECT_EQ(ImportText::currencyCode(text).value_or(""), code) << text;
    }
}

TEST(ImportTextTest, readsLanguages)
{
    const std::pair<std::string_view, std::optional<DocumentLanguage>> cases[] = {
        {"de", DocumentLanguage::german},
        {"de_AT.UTF-8", DocumentLanguage::german},
        {"DE-ch", DocumentLanguage::german},
        {"ger", DocumentLanguage::german},
        {"Deutsch", DocumentLanguage::german},
        {"allemand", DocumentLanguage::german},
        {"English (US)", DocumentLanguage::english},
        {"Français", DocumentLanguage::french},
        {"castellano", DocumentLanguage::spanish},
        {"Nederlands", DocumentLanguage::dutch},
        {"ITALIANO", DocumentLanguage::italian},
        {"pl", std::nullopt},
        {"Polish", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [text, language] : cases) {
        EXPECT_EQ(ImportText::language(text), language) << text;
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
