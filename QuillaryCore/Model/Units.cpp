#include "QuillaryCore/Model/Units.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/CustomUnit.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace Quillary {

namespace {

constexpr std::string_view one = "C62";
constexpr std::string_view customPrefix = "custom:";
constexpr char hiddenUnitSeparator = ',';

struct Alias
{
    std::string_view text;
    std::string_view code;
};

/// Symbols, and other usual names, of the built-in units.
constexpr Alias aliases[] = {
    {"h", "hour"},
    {"hr", "hour"},
    {"hrs", "hour"},
    {"Std", "hour"},
    {"uren", "hour"},
    {"d", "day"},
    {"business day", "workingDay"},
    {"business days", "workingDay"},
    {"workday", "workingDay"},
    {"workdays", "workingDay"},
    {"mo", "month"},
    {"yr", "year"},
    {"année", "year"},
    {"années", "year"},
    {"jaren", "year"},
    {"min", "minute"},
    {"mins", "minute"},
    {"sec", "second"},
    {"s", "second"},
    {"pc", "piece"},
    {"pcs", "piece"},
    {"item", "piece"},
    {"items", "piece"},
    {"Stk", "piece"},
    {"Stücke", "piece"},
    {"flat", "flatRate"},
    {"flat fee", "flatRate"},
    {"fixed price", "flatRate"},
    {"fixed rate", "flatRate"},
    {"lump sum", "flatRate"},
    {"pauschal", "flatRate"},
    {"tanto alzado", "flatRate"},
    {"persons", "person"},
    {"license", "licence"},
    {"licenses", "licence"},
    {"package", "pack"},
    {"packages", "pack"},
    {"carton", "box"},
    {"cartons", "box"},
    {"kg", "kilogram"},
    {"kilo", "kilogram"},
    {"kilos", "kilogram"},
    {"kilogramme", "kilogram"},
    {"g", "gram"},
    {"t", "tonne"},
    {"tons", "tonne"},
    {"lb", "pound"},
    {"lbs", "pound"},
    {"l", "litre"},
    {"liters", "litre"},
    {"ml", "millilitre"},
    {"milliliters", "millilitre"},
    {"m³", "cubicMetre"},
    {"m3", "cubicMetre"},
    {"cubic meter", "cubicMetre"},
    {"cubic meters", "cubicMetre"},
    {"m", "metre"},
    {"meters", "metre"},
    {"cm", "centimetre"},
    {"centimeters", "centimetre"},
    {"mm", "millimetre"},
    {"millimeters", "millimetre"},
    {"km", "kilometre"},
    {"kilometers", "kilometre"},
    {"mi", "mile"},
    {"ft", "foot"},
    {"m²", "squareMetre"},
    {"m2", "squareMetre"},
    {"qm", "squareMetre"},
    {"sqm", "squareMetre"},
    {"square meter", "squareMetre"},
    {"square meters", "squareMetre"},
    {"sq ft", "squareFoot"},
    {"ft²", "squareFoot"},
    {"ha", "hectare"},
    {"kWh", "kilowattHour"},
    {"GB", "gigabyte"},
};

/// A name as it is compared: without case and accents, and without the point of an abbreviation.
std::string comparable(std::string_view name)
{
    std::string_view text = trimmed(name);
    if (text.ends_with('.')) {
        text.remove_suffix(1);
    }
    return folded(text);
}

/// Every name of every built-in unit. Where two languages use one word for different things ("dozen" are boxes in
/// Dutch), the language listed first has it.
std::unordered_map<std::string, std::string_view> allNames()
{
    std::unordered_map<std::string, std::string_view> names;
    for (const DocumentLanguage language : allDocumentLanguages) {
        for (const BuiltInUnit& unit : Units::builtIn()) {
            names.try_emplace(comparable(unit.singular(language)), unit.code);
            names.try_emplace(comparable(unit.plural(language)), unit.code);
        }
        if (language == DocumentLanguage::english) {
            for (const Alias& alias : aliases) {
                names.try_emplace(comparable(alias.text), alias.code);
            }
        }
    }
    return names;
}

std::size_t index(DocumentLanguage language)
{
    return static_cast<std::size_t>(language);
}

} // namespace

std::string_view BuiltInUnit::singular(DocumentLanguage language) const
{
    const std::string_view word = words.at(index(language)).singular;
    return word.empty() ? words.at(index(DocumentLanguage::english)).singular : word;
}

std::string_view BuiltInUnit::plural(DocumentLanguage language) const
{
    const std::string_view word = words.at(index(language)).plural;
    return word.empty() ? words.at(index(DocumentLanguage::english)).plural : word;
}

namespace Units {

const BuiltInUnit* builtIn(std::string_view code)
{
    const auto unit = std::ranges::find(builtIn(), code, &BuiltInUnit::code);
    return unit == builtIn().end() ? nullptr : &*unit;
}

std::optional<std::string> named(std::string_view text)
{
    if (builtIn(trimmed(text)) != nullptr) {
        return std::string(trimmed(text));
    }
    static const std::unordered_map<std::string, std::string_view> names = allNames();
    const auto name = names.find(comparable(text));
    return name == names.end() ? std::nullopt : std::optional<std::string>(name->second);
}

bool isSingular(std::int64_t quantityThousandths, DocumentLanguage language)
{
    if (language == DocumentLanguage::french) {
        return quantityThousandths > -2000 && quantityThousandths < 2000;
    }
    return quantityThousandths == 1000 || quantityThousandths == -1000;
}

std::string unitID(const CustomUnit& unit)
{
    return unit.uuid ? std::string(customPrefix) + unit.uuid->text() : std::string();
}

std::vector<std::string> hiddenUnits(const Business& business)
{
    std::vector<std::string> codes;
    for (const std::string_view piece : split(business.hiddenUnits, hiddenUnitSeparator)) {
        const std::string_view code = trimmed(piece);
        if (!code.empty() && std::ranges::find(codes, code) == codes.end()) {
            codes.emplace_back(code);
        }
    }
    return codes;
}

void setHiddenUnits(Business& business, std::span<const std::string> codes)
{
    std::string stored;
    for (const std::string& code : codes) {
        if (!stored.empty()) {
            stored += hiddenUnitSeparator;
        }
        stored += code;
    }
    business.hiddenUnits = std::move(stored);
}

} // namespace Units

UnitLibrary::UnitLibrary(Context& context, const Business& business)
{
    const std::vector<std::string> hidden = Units::hiddenUnits(business);
    for (const BuiltInUnit& unit : Units::builtIn()) {
        if (std::ranges::find(hidden, unit.code) == hidden.end()) {
            m_offered.emplace_back(unit.code);
        }
    }
    for (const CustomUnit* unit : context.fetch<CustomUnit>("uuid IS NOT NULL ORDER BY sortIndex, id")) {
        m_offered.push_back(Units::unitID(*unit));
        const std::string& plural = unit->plural.empty() ? unit->singular : unit->plural;
        m_own.try_emplace(m_offered.back(), OwnUnit{{unit->singular, plural}, unit->code});
    }
}

std::optional<UnitLibrary::Words> UnitLibrary::words(std::string_view unitID, DocumentLanguage language) const
{
    if (const BuiltInUnit* unit = Units::builtIn(unitID); unit != nullptr) {
        return Words{std::string(unit->singular(language)), std::string(unit->plural(language))};
    }
    const auto own = m_own.find(unitID);
    return own == m_own.end() ? std::nullopt : std::optional(own->second.words);
}

std::optional<std::string> UnitLibrary::named(std::string_view text) const
{
    const std::string wanted = comparable(text);
    if (wanted.empty()) {
        return std::nullopt;
    }
    for (const std::string& unitID : m_offered) {
        const auto own = m_own.find(unitID);
        if (own != m_own.end() &&
            (comparable(own->second.words.singular) == wanted || comparable(own->second.words.plural) == wanted)) {
            return unitID;
        }
    }
    if (m_own.contains(trimmed(text))) {
        return std::string(trimmed(text));
    }
    return Units::named(text);
}

std::string UnitLibrary::rec20(std::string_view unitID) const
{
    if (const BuiltInUnit* unit = Units::builtIn(unitID); unit != nullptr) {
        return std::string(unit->rec20);
    }
    const auto own = m_own.find(unitID);
    return own == m_own.end() || own->second.rec20.empty() ? std::string(one) : own->second.rec20;
}

std::string unitLabel(const LineItem& line, DocumentLanguage language, const UnitLibrary& library)
{
    if (line.unit.empty()) {
        return {};
    }
    const UnitLibrary::Words words =
        library.words(line.unit, language).value_or(UnitLibrary::Words{line.unitSingular, line.unitPlural});
    return Units::isSingular(line.quantityThousandths, language) ? words.singular : words.plural;
}

void setUnit(LineItem& line, std::string_view unitID, const UnitLibrary& library, DocumentLanguage language)
{
    if (unitID.empty()) {
        line.unit.clear();
        line.unitSingular.clear();
        line.unitPlural.clear();
        return;
    }
    const bool isSame = line.unit == unitID;
    line.unit = unitID;
    if (auto words = library.words(unitID, language)) {
        line.unitSingular = std::move(words->singular);
        line.unitPlural = std::move(words->plural);
    } else if (!isSame) { // a unit that has gone keeps the words that the line has for it
        line.unitSingular.clear();
        line.unitPlural.clear();
    }
}

} // namespace Quillary
