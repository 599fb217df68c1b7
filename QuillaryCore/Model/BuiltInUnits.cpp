#include "QuillaryCore/Model/Units.h"

namespace Quillary::Units {

namespace {

// Words as they stand after a number on an invoice. German and Dutch leave most measures in the singular there
// ("3 Kilogramm", "2 uur", "5 meter"), French and Spanish don't. German nouns are capitalised.
//
// Codes: UN/ECE Recommendation 20, revision 17; packages are those of Recommendation 21 with an X before them.
// clang-format off
constexpr BuiltInUnit units[] = {
    {"hour", "HUR", {{{"hour", "hours"}, {"Stunde", "Stunden"}, {"heure", "heures"}, {"hora", "horas"}, {"uur", "uur"}, {"ora", "ore"}}}},
    {"day", "DAY", {{{"day", "days"}, {"Tag", "Tage"}, {"jour", "jours"}, {"día", "días"}, {"dag", "dagen"}, {"giorno", "giorni"}}}},
    {"week", "WEE", {{{"week", "weeks"}, {"Woche", "Wochen"}, {"semaine", "semaines"}, {"semana", "semanas"}, {"week", "weken"}, {"settimana", "settimane"}}}},
    {"month", "MON", {{{"month", "months"}, {"Monat", "Monate"}, {"mois", "mois"}, {"mes", "meses"}, {"maand", "maanden"}, {"mese", "mesi"}}}},
    {"quarter", "QAN", {{{"quarter", "quarters"}, {"Quartal", "Quartale"}, {"trimestre", "trimestres"}, {"trimestre", "trimestres"}, {"kwartaal", "kwartalen"}, {"trimestre", "trimestri"}}}},
    {"year", "ANN", {{{"year", "years"}, {"Jahr", "Jahre"}, {"an", "ans"}, {"año", "años"}, {"jaar", "jaar"}, {"anno", "anni"}}}},
    {"workingDay", "E49", {{{"working day", "working days"}, {"Arbeitstag", "Arbeitstage"}, {"jour ouvré", "jours ouvrés"}, {"día laborable", "días laborables"}, {"werkdag", "werkdagen"}, {"giorno lavorativo", "giorni lavorativi"}}}},
    {"minute", "MIN", {{{"minute", "minutes"}, {"Minute", "Minuten"}, {"minute", "minutes"}, {"minuto", "minutos"}, {"minuut", "minuten"}, {"minuto", "minuti"}}}},
    {"second", "SEC", {{{"second", "seconds"}, {"Sekunde", "Sekunden"}, {"seconde", "secondes"}, {"segundo", "segundos"}, {"seconde", "seconden"}, {"secondo", "secondi"}}}},
    {"night", "C62", {{{"night", "nights"}, {"Nacht", "Nächte"}, {"nuit", "nuits"}, {"noche", "noches"}, {"nacht", "nachten"}, {"notte", "notti"}}}},

    {"piece", "H87", {{{"piece", "pieces"}, {"Stück", "Stück"}, {"pièce", "pièces"}, {"pieza", "piezas"}, {"stuk", "stuks"}, {"pezzo", "pezzi"}}}},
    {"unit", "C62", {{{"unit", "units"}, {"Einheit", "Einheiten"}, {"unité", "unités"}, {"unidad", "unidades"}, {"eenheid", "eenheden"}, {"unità", "unità"}}}},
    {"flatRate", "LS", {{{"flat rate", "flat rates"}, {"Pauschale", "Pauschalen"}, {"forfait", "forfaits"}, {"tarifa fija", "tarifas fijas"}, {"vast bedrag", "vaste bedragen"}, {"forfait", "forfait"}}}},
    {"page", "ZP", {{{"page", "pages"}, {"Seite", "Seiten"}, {"page", "pages"}, {"página", "páginas"}, {"pagina", "pagina’s"}, {"pagina", "pagine"}}}},
    {"word", "D68", {{{"word", "words"}, {"Wort", "Wörter"}, {"mot", "mots"}, {"palabra", "palabras"}, {"woord", "woorden"}, {"parola", "parole"}}}},
    {"photo", "C62", {{{"photo", "photos"}, {"Foto", "Fotos"}, {"photo", "photos"}, {"foto", "fotos"}, {"foto", "foto’s"}, {"foto", "foto"}}}},
    {"person", "IE", {{{"person", "people"}, {"Person", "Personen"}, {"personne", "personnes"}, {"persona", "personas"}, {"persoon", "personen"}, {"persona", "persone"}}}},
    {"user", "C62", {{{"user", "users"}, {"Benutzer", "Benutzer"}, {"utilisateur", "utilisateurs"}, {"usuario", "usuarios"}, {"gebruiker", "gebruikers"}, {"utente", "utenti"}}}},
    {"licence", "C62", {{{"licence", "licences"}, {"Lizenz", "Lizenzen"}, {"licence", "licences"}, {"licencia", "licencias"}, {"licentie", "licenties"}, {"licenza", "licenze"}}}},
    {"session", "C62", {{{"session", "sessions"}, {"Sitzung", "Sitzungen"}, {"séance", "séances"}, {"sesión", "sesiones"}, {"sessie", "sessies"}, {"seduta", "sedute"}}}},
    {"lesson", "C62", {{{"lesson", "lessons"}, {"Unterrichtsstunde", "Unterrichtsstunden"}, {"leçon", "leçons"}, {"clase", "clases"}, {"les", "lessen"}, {"lezione", "lezioni"}}}},
    {"visit", "C62", {{{"visit", "visits"}, {"Besuch", "Besuche"}, {"visite", "visites"}, {"visita", "visitas"}, {"bezoek", "bezoeken"}, {"visita", "visite"}}}},
    {"trip", "E54", {{{"trip", "trips"}, {"Fahrt", "Fahrten"}, {"trajet", "trajets"}, {"viaje", "viajes"}, {"rit", "ritten"}, {"viaggio", "viaggi"}}}},

    {"set", "SET", {{{"set", "sets"}, {"Set", "Sets"}, {"lot", "lots"}, {"juego", "juegos"}, {"set", "sets"}, {"set", "set"}}}},
    {"pair", "PR", {{{"pair", "pairs"}, {"Paar", "Paar"}, {"paire", "paires"}, {"par", "pares"}, {"paar", "paar"}, {"paio", "paia"}}}},
    {"dozen", "DZN", {{{"dozen", "dozen"}, {"Dutzend", "Dutzend"}, {"douzaine", "douzaines"}, {"docena", "docenas"}, {"dozijn", "dozijn"}, {"dozzina", "dozzine"}}}},
    {"pack", "XPK", {{{"pack", "packs"}, {"Packung", "Packungen"}, {"paquet", "paquets"}, {"paquete", "paquetes"}, {"pak", "pakken"}, {"confezione", "confezioni"}}}},
    {"box", "XBX", {{{"box", "boxes"}, {"Karton", "Kartons"}, {"boîte", "boîtes"}, {"caja", "cajas"}, {"doos", "dozen"}, {"scatola", "scatole"}}}},
    {"bottle", "XBO", {{{"bottle", "bottles"}, {"Flasche", "Flaschen"}, {"bouteille", "bouteilles"}, {"botella", "botellas"}, {"fles", "flessen"}, {"bottiglia", "bottiglie"}}}},
    {"bag", "XBG", {{{"bag", "bags"}, {"Sack", "Säcke"}, {"sac", "sacs"}, {"saco", "sacos"}, {"zak", "zakken"}, {"sacco", "sacchi"}}}},
    {"roll", "XRO", {{{"roll", "rolls"}, {"Rolle", "Rollen"}, {"rouleau", "rouleaux"}, {"rollo", "rollos"}, {"rol", "rollen"}, {"rotolo", "rotoli"}}}},
    {"pallet", "XPX", {{{"pallet", "pallets"}, {"Palette", "Paletten"}, {"palette", "palettes"}, {"palé", "palés"}, {"pallet", "pallets"}, {"pallet", "pallet"}}}},

    {"kilogram", "KGM", {{{"kilogram", "kilograms"}, {"Kilogramm", "Kilogramm"}, {"kilogramme", "kilogrammes"}, {"kilogramo", "kilogramos"}, {"kilogram", "kilogram"}, {"chilogrammo", "chilogrammi"}}}},
    {"gram", "GRM", {{{"gram", "grams"}, {"Gramm", "Gramm"}, {"gramme", "grammes"}, {"gramo", "gramos"}, {"gram", "gram"}, {"grammo", "grammi"}}}},
    {"tonne", "TNE", {{{"tonne", "tonnes"}, {"Tonne", "Tonnen"}, {"tonne", "tonnes"}, {"tonelada", "toneladas"}, {"ton", "ton"}, {"tonnellata", "tonnellate"}}}},
    {"pound", "LBR", {{{"pound", "pounds"}, {"Pfund", "Pfund"}, {"livre", "livres"}, {"libra", "libras"}, {"pond", "pond"}, {"libbra", "libbre"}}}},
    {"litre", "LTR", {{{"litre", "litres"}, {"Liter", "Liter"}, {"litre", "litres"}, {"litro", "litros"}, {"liter", "liter"}, {"litro", "litri"}}}},
    {"millilitre", "MLT", {{{"millilitre", "millilitres"}, {"Milliliter", "Milliliter"}, {"millilitre", "millilitres"}, {"mililitro", "mililitros"}, {"milliliter", "milliliter"}, {"millilitro", "millilitri"}}}},
    {"cubicMetre", "MTQ", {{{"cubic metre", "cubic metres"}, {"Kubikmeter", "Kubikmeter"}, {"mètre cube", "mètres cubes"}, {"metro cúbico", "metros cúbicos"}, {"kubieke meter", "kubieke meter"}, {"metro cubo", "metri cubi"}}}},
    {"metre", "MTR", {{{"metre", "metres"}, {"Meter", "Meter"}, {"mètre", "mètres"}, {"metro", "metros"}, {"meter", "meter"}, {"metro", "metri"}}}},
    {"centimetre", "CMT", {{{"centimetre", "centimetres"}, {"Zentimeter", "Zentimeter"}, {"centimètre", "centimètres"}, {"centímetro", "centímetros"}, {"centimeter", "centimeter"}, {"centimetro", "centimetri"}}}},
    {"millimetre", "MMT", {{{"millimetre", "millimetres"}, {"Millimeter", "Millimeter"}, {"millimètre", "millimètres"}, {"milímetro", "milímetros"}, {"millimeter", "millimeter"}, {"millimetro", "millimetri"}}}},
    {"kilometre", "KMT", {{{"kilometre", "kilometres"}, {"Kilometer", "Kilometer"}, {"kilomètre", "kilomètres"}, {"kilómetro", "kilómetros"}, {"kilometer", "kilometer"}, {"chilometro", "chilometri"}}}},
    {"mile", "SMI", {{{"mile", "miles"}, {"Meile", "Meilen"}, {"mile", "miles"}, {"milla", "millas"}, {"mijl", "mijl"}, {"miglio", "miglia"}}}},
    {"foot", "FOT", {{{"foot", "feet"}, {"Fuß", "Fuß"}, {"pied", "pieds"}, {"pie", "pies"}, {"voet", "voet"}, {"piede", "piedi"}}}},
    {"squareMetre", "MTK", {{{"square metre", "square metres"}, {"Quadratmeter", "Quadratmeter"}, {"mètre carré", "mètres carrés"}, {"metro cuadrado", "metros cuadrados"}, {"vierkante meter", "vierkante meter"}, {"metro quadrato", "metri quadrati"}}}},
    {"squareFoot", "FTK", {{{"square foot", "square feet"}, {"Quadratfuß", "Quadratfuß"}, {"pied carré", "pieds carrés"}, {"pie cuadrado", "pies cuadrados"}, {"vierkante voet", "vierkante voet"}, {"piede quadrato", "piedi quadrati"}}}},
    {"hectare", "HAR", {{{"hectare", "hectares"}, {"Hektar", "Hektar"}, {"hectare", "hectares"}, {"hectárea", "hectáreas"}, {"hectare", "hectare"}, {"ettaro", "ettari"}}}},
    {"kilowattHour", "KWH", {{{"kilowatt hour", "kilowatt hours"}, {"Kilowattstunde", "Kilowattstunden"}, {"kilowattheure", "kilowattheures"}, {"kilovatio hora", "kilovatios hora"}, {"kilowattuur", "kilowattuur"}, {"kilowattora", "kilowattora"}}}},
    {"gigabyte", "E34", {{{"gigabyte", "gigabytes"}, {"Gigabyte", "Gigabyte"}, {"gigaoctet", "gigaoctets"}, {"gigabyte", "gigabytes"}, {"gigabyte", "gigabyte"}, {"gigabyte", "gigabyte"}}}},
};
// clang-format on

} // namespace

std::span<const BuiltInUnit> builtIn()
{
    return units;
}

} // namespace Quillary::Units
