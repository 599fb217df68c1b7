#include "QuillaryCore/Tabular/ClientField.h"

#include "QuillaryCore/Tabular/ImportText.h"

#include <array>
#include <cstddef>
#include <string>
#include <unordered_map>

namespace Quillary {

namespace {

constexpr std::string_view numberNames[] = {
    "number",     "clientnumber", "clientno",      "clientnr",     "clientid",      "customernumber", "customerno",
    "customerid", "customernr",   "accountnumber", "kundennummer", "kundennr",      "kdnr",           "nr",
    "no",         "id",           "numero",        "numeroclient", "numerocliente", "klantnummer",    "codicecliente",
    "ref",        "reference"};
constexpr std::string_view companyNames[] = {
    "company",     "companyname", "organization", "organisation", "organizationname", "business",      "businessname",
    "firma",       "firmenname",  "unternehmen",  "entreprise",   "societe",          "raisonsociale", "empresa",
    "razonsocial", "bedrijf",     "bedrijfsnaam", "azienda",      "ragionesociale",   "account",       "accountname"};
constexpr std::string_view nameNames[] = {"name",
                                          "clientname",
                                          "customername",
                                          "fullname",
                                          "displayname",
                                          "contactname",
                                          "nom",
                                          "nombre",
                                          "naam",
                                          "nome",
                                          "kunde",
                                          "kundenname",
                                          "client",
                                          "customer",
                                          "cliente",
                                          "klant"};
constexpr std::string_view firstNameNames[] = {
    "firstname", "givenname", "first", "forename", "vorname", "prenom", "nombredepila", "voornaam", "nomeproprio"};
constexpr std::string_view lastNameNames[] = {"lastname",
                                              "surname",
                                              "familyname",
                                              "last",
                                              "nachname",
                                              "familienname",
                                              "nomdefamille",
                                              "apellido",
                                              "apellidos",
                                              "achternaam",
                                              "cognome"};
constexpr std::string_view kindNames[] = {"type", "kind", "clienttype", "customertype", "typ", "kundentyp", "tipo"};
constexpr std::string_view emailNames[] = {"email",
                                           "emailaddress",
                                           "mail",
                                           "mailaddress",
                                           "emailadresse",
                                           "correo",
                                           "correoelectronico",
                                           "courriel",
                                           "adressemail",
                                           "emailadres",
                                           "posta",
                                           "postaelettronica"};
constexpr std::string_view phoneNames[] = {"phone",
                                           "telephone",
                                           "tel",
                                           "phonenumber",
                                           "mobile",
                                           "mobilephone",
                                           "cell",
                                           "cellphone",
                                           "telefon",
                                           "telefonnummer",
                                           "handy",
                                           "mobil",
                                           "telefono",
                                           "movil",
                                           "telefoon",
                                           "portable",
                                           "cellulare"};
constexpr std::string_view websiteNames[] = {
    "website", "web", "url", "homepage", "site", "siteweb", "sitioweb", "sitoweb", "webseite", "internet"};
constexpr std::string_view streetNames[] = {"street",
                                            "streetaddress",
                                            "address",
                                            "address1",
                                            "addressline1",
                                            "addressline",
                                            "street1",
                                            "billingaddress",
                                            "billingstreet",
                                            "strasse",
                                            "strasseundhausnummer",
                                            "anschrift",
                                            "adresse",
                                            "rue",
                                            "calle",
                                            "direccion",
                                            "domicilio",
                                            "straat",
                                            "adres",
                                            "indirizzo",
                                            "via"};
constexpr std::string_view street2Names[] = {
    "address2", "addressline2", "street2", "adresszusatz", "zusatz", "complement", "complementdadresse"};
constexpr std::string_view postalCodeNames[] = {"zip",
                                                "zipcode",
                                                "postalcode",
                                                "postcode",
                                                "postcodeplaats",
                                                "plz",
                                                "postleitzahl",
                                                "codepostal",
                                                "cp",
                                                "codigopostal",
                                                "cap",
                                                "billingpostalcode",
                                                "billingzip",
                                                "pin",
                                                "pincode"};
constexpr std::string_view cityNames[] = {"city",
                                          "town",
                                          "ort",
                                          "stadt",
                                          "wohnort",
                                          "ville",
                                          "ciudad",
                                          "localidad",
                                          "plaats",
                                          "stad",
                                          "woonplaats",
                                          "citta",
                                          "localita",
                                          "comune",
                                          "billingcity"};
constexpr std::string_view stateNames[] = {"state",
                                           "region",
                                           "province",
                                           "county",
                                           "stateprovince",
                                           "bundesland",
                                           "kanton",
                                           "provincia",
                                           "provincie",
                                           "departement",
                                           "billingstate"};
constexpr std::string_view countryNames[] = {
    "country", "countrycode", "land", "staat", "pays", "pais", "nazione", "paese", "billingcountry"};
constexpr std::string_view vatIDNames[] = {"vat",
                                           "vatid",
                                           "vatnumber",
                                           "vatno",
                                           "vatreg",
                                           "vatregistrationnumber",
                                           "ustid",
                                           "ustidnr",
                                           "ustidnummer",
                                           "umsatzsteuerid",
                                           "umsatzsteueridentifikationsnummer",
                                           "gstin",
                                           "gst",
                                           "gstno",
                                           "gstnumber",
                                           "tva",
                                           "numerotva",
                                           "nif",
                                           "cif",
                                           "nifiva",
                                           "btw",
                                           "btwnummer",
                                           "btwnr",
                                           "partitaiva",
                                           "piva",
                                           "uid"};
constexpr std::string_view taxIDNames[] = {"taxid",
                                           "taxnumber",
                                           "taxno",
                                           "steuernummer",
                                           "stnr",
                                           "tin",
                                           "ein",
                                           "pan",
                                           "abn",
                                           "siret",
                                           "siren",
                                           "codicefiscale",
                                           "kvk",
                                           "rfc"};
constexpr std::string_view currencyNames[] = {
    "currency", "currencycode", "wahrung", "devise", "monnaie", "moneda", "divisa", "valuta"};
constexpr std::string_view languageNames[] = {
    "language", "lang", "languagecode", "sprache", "langue", "idioma", "taal", "lingua"};
constexpr std::string_view notesNames[] = {"notes",
                                           "note",
                                           "comment",
                                           "comments",
                                           "remarks",
                                           "memo",
                                           "description",
                                           "notizen",
                                           "notiz",
                                           "bemerkung",
                                           "bemerkungen",
                                           "kommentar",
                                           "remarques",
                                           "commentaire",
                                           "notas",
                                           "comentarios",
                                           "opmerkingen",
                                           "notitie",
                                           "commenti"};

struct Row
{
    std::string_view rawValue;
    std::span<const std::string_view> aliases;
};

constexpr std::array<Row, clientFieldCount> rows = {{
    {"ignore", {}},
    {"number", numberNames},
    {"company", companyNames},
    {"name", nameNames},
    {"firstName", firstNameNames},
    {"lastName", lastNameNames},
    {"kind", kindNames},
    {"email", emailNames},
    {"phone", phoneNames},
    {"website", websiteNames},
    {"street", streetNames},
    {"street2", street2Names},
    {"postalCode", postalCodeNames},
    {"city", cityNames},
    {"state", stateNames},
    {"country", countryNames},
    {"vatID", vatIDNames},
    {"taxID", taxIDNames},
    {"currency", currencyNames},
    {"language", languageNames},
    {"notes", notesNames},
}};

const Row& row(ClientField field)
{
    return rows.at(static_cast<std::size_t>(field));
}

} // namespace

std::string_view rawValue(ClientField field)
{
    return row(field).rawValue;
}

std::optional<ClientField> ClientFields::fromRawValue(std::string_view text)
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows.at(i).rawValue == text) {
            return static_cast<ClientField>(i);
        }
    }
    return std::nullopt;
}

std::span<const std::string_view> ClientFields::aliases(ClientField field)
{
    return row(field).aliases;
}

ClientField ClientFields::guess(std::string_view heading)
{
    static const auto fields = [] {
        std::unordered_map<std::string_view, ClientField> result;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            for (const std::string_view alias : rows.at(i).aliases) {
                result.emplace(alias, static_cast<ClientField>(i)); // the first field that has it keeps it
            }
        }
        return result;
    }();
    const auto found = fields.find(ImportText::normalized(heading));
    return found == fields.end() ? ClientField::ignore : found->second;
}

} // namespace Quillary
