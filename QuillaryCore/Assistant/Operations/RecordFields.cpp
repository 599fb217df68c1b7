#include "QuillaryCore/Assistant/Operations/RecordFields.h"

#include "QuillaryCore/Assistant/Description/DocumentDescription.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Foundation/PlainText.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/CustomUnit.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "QuillaryCore/Model/TextPreset.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/SameFigure.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace Quillary {

namespace {

using Environment = AssistantEnvironment;

std::string line(const Arguments& arguments, std::string_view name)
{
    return arguments.line(name, Limits::lineLength).value_or("");
}

std::string yesOrEmpty(bool flag)
{
    return flag ? "yes" : "";
}

void setCurrency(const Environment& /*environment*/, const Arguments& arguments, CatalogItem& item)
{
    const std::string code = upperCasedASCII(line(arguments, "currency"));
    if (!Currencies::isKnown(code)) {
        arguments.refuse("currency", "must be an ISO currency code such as EUR.");
    }
    const auto price = sameFigure(item.unitPriceMinorUnits, item.currencyCode, code);
    if (!price && !arguments.has("price")) {
        arguments.refuse("currency", fmt::format("can't become {}: the price has more decimals than it.", code));
    }
    item.unitPriceMinorUnits = price.value_or(0);
    item.currencyCode = code;
}

void setPrice(const Environment& /*environment*/, const Arguments& arguments, CatalogItem& item)
{
    item.unitPriceMinorUnits =
        arguments.amount("price", "price", item.currencyCode, Sign::any, Limits::unitPriceMinorUnits).value_or(0);
}

void setUnit(const Environment& environment, const Arguments& arguments, CatalogItem& item)
{
    const std::string word = line(arguments, "unit");
    const UnitLibrary library(environment.context, environment.ownBusiness());
    const std::optional<std::string> unit = word.empty() ? std::optional<std::string>("") : library.named(word);
    if (!unit) {
        arguments.refuse("unit",
                         "isn't known. `quillary unit list` shows your own units; hour, day and piece are usual.");
    }
    item.unit = *unit;
}

std::string unitText(const Environment& environment, const CatalogItem& item)
{
    const UnitLibrary library(environment.context, environment.ownBusiness());
    const auto words = library.words(item.unit, DocumentLanguage::english);
    return words ? words->singular : "";
}

void setTaxRate(const Environment& environment, const Arguments& arguments, CatalogItem& item)
{
    const std::string word = line(arguments, "tax_rate");
    if (word.empty()) {
        item.taxRateID.reset();
        return;
    }
    std::string known;
    for (const TaxRate* rate : TaxRates::all(environment.context)) {
        if (folded(rate->name) == folded(word) || rateFigure(rate->basisPoints) == word) {
            item.taxRateID = rate->uuid;
            return;
        }
        known += fmt::format("{}{}", known.empty() ? "" : ", ", rateFigure(rate->basisPoints));
    }
    arguments.refuse("tax_rate",
                     fmt::format("is none of your tax rates: {}.", known.empty() ? "there are none" : known));
}

std::string taxRateText(const Environment& environment, const CatalogItem& item)
{
    const TaxRate* rate = item.taxRateID ? environment.context.find<TaxRate>(*item.taxRateID) : nullptr;
    return rate == nullptr ? "" : rateFigure(rate->basisPoints);
}

/// Two or three letters and digits.
void setCode(const Environment& /*environment*/, const Arguments& arguments, CustomUnit& unit)
{
    const std::string code = upperCasedASCII(line(arguments, "code"));
    const bool isWellFormed = code.size() >= 2 && code.size() <= 3 && std::ranges::all_of(code, [](char letter) {
                                  return (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
                              });
    if (!code.empty() && !isWellFormed) {
        arguments.refuse("code", "must be a code of UN/ECE Recommendation 20 such as HUR or C62.");
    }
    unit.code = code;
}

void setPresetKind(const Environment& /*environment*/, const Arguments& arguments, TextPreset& preset)
{
    const std::string kind = lowerCasedASCII(line(arguments, "kind"));
    if (kind != "intro" && kind != "outro") {
        arguments.refuse("kind", "must be intro or outro.");
    }
    preset.kindRaw = kind == "outro" ? 1 : 0;
}

constexpr std::array catalogFields = {
    RecordField<CatalogItem>{
        .name = "name",
        .description = "What it is called.",
        .set = [](const Environment&, const Arguments& given, CatalogItem& item) { item.name = line(given, "name"); },
        .text =
            [](const Environment&, const CatalogItem& item) {
                return item.name;
            }},
    RecordField<CatalogItem>{.name = "currency",
                             .description = "The currency of its price; the business's by default.",
                             .set = setCurrency,
                             .text =
                                 [](const Environment&, const CatalogItem& item) {
                                     return item.currencyCode;
                                 }},
    RecordField<CatalogItem>{.name = "price",
                             .description = "Its net price, such as 90 or 12.50.",
                             .set = setPrice,
                             .text =
                                 [](const Environment&, const CatalogItem& item) {
                                     return Money(item.unitPriceMinorUnits, item.currencyCode).plainText();
                                 }},
    RecordField<CatalogItem>{.name = "unit", .description = "What it is counted in.", .set = setUnit, .text = unitText},
    RecordField<CatalogItem>{.name = "tax_rate",
                             .description = "One of your tax rates; none for the usual one.",
                             .set = setTaxRate,
                             .text = taxRateText},
    RecordField<CatalogItem>{.name = "details",
                             .description = "The text below the name.",
                             .set =
                                 [](const Environment&, const Arguments& given, CatalogItem& item) {
                                     item.details = given.paragraphs("details", Limits::textLength).value_or("");
                                 },
                             .text =
                                 [](const Environment&, const CatalogItem& item) {
                                     return item.details;
                                 }},
};

constexpr std::array projectFields = {
    RecordField<Project>{
        .name = "name",
        .description = "What it is called.",
        .set = [](const Environment&, const Arguments& given, Project& project) { project.name = line(given, "name"); },
        .text =
            [](const Environment&, const Project& project) {
                return project.name;
            }},
    RecordField<Project>{.name = "archived",
                         .description = "yes: it takes no more documents and time.",
                         .isFlag = true,
                         .set = [](const Environment&,
                                   const Arguments& given,
                                   Project& project) { project.isArchived = given.flag("archived").value_or(false); },
                         .text =
                             [](const Environment&, const Project& project) {
                                 return yesOrEmpty(project.isArchived);
                             }},
};

constexpr std::array taxRateFields = {
    RecordField<TaxRate>{
        .name = "name",
        .description = "What it is called.",
        .set = [](const Environment&, const Arguments& given, TaxRate& rate) { rate.name = line(given, "name"); },
        .text =
            [](const Environment&, const TaxRate& rate) {
                return rate.name;
            }},
    RecordField<TaxRate>{.name = "rate",
                         .description = "In percent, such as 19 or 5.5.",
                         .set = [](const Environment&,
                                   const Arguments& given,
                                   TaxRate& rate) { rate.basisPoints = given.rate("rate").value_or(0); },
                         .text =
                             [](const Environment&, const TaxRate& rate) {
                                 return rateFigure(rate.basisPoints);
                             }},
    RecordField<TaxRate>{.name = "default",
                         .description = "yes: new lines take this rate, and no other.",
                         .isFlag = true,
                         .set =
                             [](const Environment& environment, const Arguments& given, TaxRate& rate) {
                                 if (given.flag("default").value_or(false)) {
                                     TaxRates::makeDefault(environment.context, rate);
                                 } else {
                                     rate.isDefault = false;
                                 }
                             },
                         .text =
                             [](const Environment&, const TaxRate& rate) {
                                 return yesOrEmpty(rate.isDefault);
                             }},
};

constexpr std::array unitFields = {
    RecordField<CustomUnit>{.name = "singular",
                            .description = "The word for one.",
                            .set = [](const Environment&,
                                      const Arguments& given,
                                      CustomUnit& unit) { unit.singular = line(given, "singular"); },
                            .text =
                                [](const Environment&, const CustomUnit& unit) {
                                    return unit.singular;
                                }},
    RecordField<CustomUnit>{.name = "plural",
                            .description = "The word for several.",
                            .set = [](const Environment&,
                                      const Arguments& given,
                                      CustomUnit& unit) { unit.plural = line(given, "plural"); },
                            .text =
                                [](const Environment&, const CustomUnit& unit) {
                                    return unit.plural;
                                }},
    RecordField<CustomUnit>{.name = "code",
                            .description = "Its code in UN/ECE Recommendation 20, for electronic invoices.",
                            .set = setCode,
                            .text =
                                [](const Environment&, const CustomUnit& unit) {
                                    return unit.code;
                                }},
};

constexpr std::array presetFields = {
    RecordField<TextPreset>{.name = "title",
                            .description = "What it is called.",
                            .set = [](const Environment&,
                                      const Arguments& given,
                                      TextPreset& preset) { preset.title = line(given, "title"); },
                            .text =
                                [](const Environment&, const TextPreset& preset) {
                                    return preset.title;
                                }},
    RecordField<TextPreset>{.name = "kind",
                            .description = "intro or outro.",
                            .set = setPresetKind,
                            .text =
                                [](const Environment&, const TextPreset& preset) {
                                    return std::string(preset.kindRaw == 1 ? "outro" : "intro");
                                }},
    RecordField<TextPreset>{.name = "text",
                            .description = "The text itself.",
                            .set =
                                [](const Environment&, const Arguments& given, TextPreset& preset) {
                                    preset.text = given.paragraphs("text", Limits::textLength).value_or("");
                                },
                            .text =
                                [](const Environment&, const TextPreset& preset) {
                                    return preset.text;
                                }},
};

/// What a new record has before anything is typed.
template <class Record>
void prepare(const Environment& environment, Record& record)
{
    if constexpr (requires { record.currencyCode; }) {
        record.currencyCode = environment.ownBusiness().currencyCode;
    }
    if constexpr (requires { record.sortIndex; }) {
        std::int32_t last = -1;
        for (const Record* other : environment.context.fetch<Record>("")) {
            last = other->ref == record.ref ? last : std::max(last, other->sortIndex);
        }
        record.sortIndex = std::min(last, std::numeric_limits<std::int32_t>::max() - 1) + 1;
    }
}

template <class Record>
void applyFields(const Environment& environment, const Arguments& arguments, Record& record)
{
    for (const RecordField<Record>& field : recordFields<Record>()) {
        if (arguments.has(field.name)) {
            field.set(environment, arguments, record);
        }
    }
    const RecordField<Record>& first = recordFields<Record>().front();
    const std::string name = first.text(environment, record);
    if (name.empty()) {
        arguments.refuse(first.name, "is missing.");
    }
    for (const Record* other : environment.context.fetch<Record>("")) {
        if (other->ref != record.ref && folded(first.text(environment, *other)) == folded(name)) {
            arguments.refuse(first.name, fmt::format("{} is there already.", inQuotes(name)));
        }
    }
}

} // namespace

template <>
std::span<const RecordField<CatalogItem>> recordFields()
{
    return catalogFields;
}

template <>
std::span<const RecordField<CustomUnit>> recordFields()
{
    return unitFields;
}

template <>
std::span<const RecordField<Project>> recordFields()
{
    return projectFields;
}

template <>
std::span<const RecordField<TaxRate>> recordFields()
{
    return taxRateFields;
}

template <>
std::span<const RecordField<TextPreset>> recordFields()
{
    return presetFields;
}

template <class Record>
Record& addRecord(const AssistantEnvironment& environment, const Arguments& arguments)
{
    Record& record = environment.context.insert<Record>();
    prepare(environment, record);
    applyFields(environment, arguments, record);
    return record;
}

template <class Record>
void editRecord(const AssistantEnvironment& environment, const Arguments& arguments, const Record& record)
{
    applyFields(environment, arguments, environment.context.edit(record));
}

template <class Record>
void removeRecord(const AssistantEnvironment& environment, const Record& record)
{
    environment.context.erase(record);
}

/// A product counted in a unit that is gone is counted in none.
template <>
void removeRecord(const AssistantEnvironment& environment, const CustomUnit& record)
{
    const std::string unit = Units::unitID(record);
    for (const CatalogItem* item : environment.context.fetch<CatalogItem>("unit = ?", unit)) {
        environment.context.edit(*item).unit.clear();
    }
    environment.context.erase(record);
}

template CatalogItem& addRecord(const AssistantEnvironment&, const Arguments&);
template CustomUnit& addRecord(const AssistantEnvironment&, const Arguments&);
template Project& addRecord(const AssistantEnvironment&, const Arguments&);
template TaxRate& addRecord(const AssistantEnvironment&, const Arguments&);
template TextPreset& addRecord(const AssistantEnvironment&, const Arguments&);
template void editRecord(const AssistantEnvironment&, const Arguments&, const CatalogItem&);
template void editRecord(const AssistantEnvironment&, const Arguments&, const CustomUnit&);
template void editRecord(const AssistantEnvironment&, const Arguments&, const Project&);
template void editRecord(const AssistantEnvironment&, const Arguments&, const TaxRate&);
template void editRecord(const AssistantEnvironment&, const Arguments&, const TextPreset&);
template void removeRecord(const AssistantEnvironment&, const CatalogItem&);
template void removeRecord(const AssistantEnvironment&, const Project&);
template void removeRecord(const AssistantEnvironment&, const TaxRate&);
template void removeRecord(const AssistantEnvironment&, const TextPreset&);

} // namespace Quillary
