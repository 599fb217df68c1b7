#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"

#include "QuillaryCore/Assistant/Description/DocumentDescription.h"
#include "QuillaryCore/Assistant/Operations/SettingWriter.h"
#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Foundation/PlainText.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Numbering/FileNameFormat.h"
#include "QuillaryCore/Numbering/Numbering.h"
#include "QuillaryCore/Numbering/NumberingError.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>

namespace Quillary {

namespace {

using BusinessSettings::Entry;

/// Fields that people know by another name than the model.
constexpr std::array<std::pair<std::string_view, std::string_view>, 6> otherNames = {
    {{"countryCode", "country"},
     {"currencyCode", "currency"},
     {"languageCode", "language"},
     {"logoData", "logo"},
     {"accentColorHex", "accent_color"},
     {"templateID", "template"}}};

bool isUpper(char letter)
{
    return letter >= 'A' && letter <= 'Z';
}

/// "showPaymentQRCode" gives "show_payment_qr_code"; the unit that a field's name ends in is left out.
std::string settingName(std::string_view field)
{
    const auto* const other =
        std::ranges::find(otherNames, field, &std::pair<std::string_view, std::string_view>::first);
    if (other != otherNames.end()) {
        return std::string(other->second);
    }
    std::string name = replacing(replacing(field, "MinorUnits", ""), "BasisPoints", "Percent");
    if (name.ends_with("Raw")) {
        name.resize(name.size() - 3);
    }
    std::string words;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool endsAcronym = i + 1 < name.size() && i > 0 && isUpper(name[i - 1]) && !isUpper(name[i + 1]);
        if (i > 0 && isUpper(name[i]) && (!isUpper(name[i - 1]) || endsAcronym)) {
            words += '_';
        }
        words += name[i];
    }
    return lowerCasedASCII(words);
}

/// Calls `visit(name, field)` for each attribute that people set.
template <class Visitor>
void forEachSetting(const Visitor& visit)
{
    const auto visitOne = [&]<class Value>(const Field<Business, Value>& field) {
        // Its identifier and when it was made are nobody's to set.
        if constexpr (!std::is_same_v<Value, std::optional<UUID>> && !std::is_same_v<Value, std::optional<Instant>>) {
            visit(settingName(field.name), field);
        }
    };
    const auto fields = Business::fields();
    std::apply([&](const auto&... field) { (visitOne(field), ...); }, fields);
}

JSON number(std::string text)
{
    return JSON::Number{std::move(text)};
}

template <class Value>
JSON valueOf(const std::string& name, const Value& value, const Business& business)
{
    if constexpr (std::is_same_v<Value, std::string> || std::is_same_v<Value, bool>) {
        return value;
    } else if constexpr (std::is_same_v<Value, Bytes>) {
        return value.size();
    } else if constexpr (std::is_same_v<Value, std::int64_t>) {
        return number(Money(value, business.currencyCode).plainText());
    } else if constexpr (std::is_same_v<Value, std::int32_t>) {
        return number(rateFigure(value));
    } else {
        const std::optional<std::string_view> word = SettingWriter::choiceWord(name, value);
        return word ? JSON(*word) : JSON(value);
    }
}

std::string textOf(const JSON& value)
{
    if (const bool* flag = value.boolean()) {
        return *flag ? "yes" : "no";
    }
    return value.text().value_or("");
}

std::string sampleFileName(const AssistantEnvironment& environment)
{
    const Business& business = environment.ownBusiness();
    return FileNameFormat::stored(business).render({.number = "2026-001",
                                                    .type = "Invoice",
                                                    .client = "Acme",
                                                    .title = "Website",
                                                    .business = business.name,
                                                    .date = environment.clock.now()},
                                                   environment.calendar) +
           ".pdf";
}

/// What a pattern makes now.
std::string noteOf(const AssistantEnvironment& environment, const std::string& name)
{
    if (name == "file_name_format") {
        return "example: " + sampleFileName(environment);
    }
    const std::optional<NumberedKind> kind = SettingWriter::numberedKind(name);
    if (!kind) {
        return {};
    }
    try {
        return "next: " + Numbering::example(environment.context,
                                             *kind,
                                             environment.clock.now(),
                                             environment.ownBusiness(),
                                             environment.calendar);
    } catch (const NumberingError& error) {
        return error.message();
    }
}

} // namespace

std::vector<BusinessSettings::Entry> BusinessSettings::all(const AssistantEnvironment& environment)
{
    const Business& business = environment.ownBusiness();
    std::vector<Entry> entries;
    forEachSetting([&](const std::string& name, const auto& field) {
        JSON value = valueOf(name, business.*field.member, business);
        std::string text = name != logo                ? textOf(value)
                           : business.logoData.empty() ? std::string()
                                                       : fmt::format("a PNG of {} bytes", business.logoData.size());
        entries.push_back(
            {.name = name, .value = std::move(value), .text = std::move(text), .note = noteOf(environment, name)});
    });
    return entries;
}

std::string BusinessSettings::nameOf(std::string_view typed)
{
    const auto bare = [](std::string_view name) {
        return replacing(replacing(lowerCasedASCII(trimmed(name)), "-", ""), "_", "");
    };
    std::string found;
    forEachSetting([&](const std::string& name, const auto& field) {
        // The model's own name for it serves as well.
        if (bare(name) == bare(typed) || bare(field.name) == bare(typed)) {
            found = name;
        }
    });
    if (found.empty()) {
        throw AssistantError(fmt::format("There is no setting {}.", inQuotes(typed)));
    }
    return found;
}

BusinessSettings::Entry BusinessSettings::entry(const AssistantEnvironment& environment, std::string_view name)
{
    const std::string meant = nameOf(name);
    std::vector<Entry> entries = all(environment);
    return *std::ranges::find(entries, meant, &Entry::name);
}

std::vector<std::string> BusinessSettings::choices(std::string_view name)
{
    return SettingWriter::choices(nameOf(name));
}

bool BusinessSettings::hasParagraphs(std::string_view name)
{
    return SettingWriter::hasParagraphs(nameOf(name));
}

void BusinessSettings::set(const AssistantEnvironment& environment, std::string_view name, std::string_view typed)
{
    const std::string meant = nameOf(name);
    Business& business = environment.context.edit(environment.ownBusiness());
    const JSON given = JSON::object({{meant, SettingWriter::typedValue(meant, typed)}});
    const Arguments arguments(given);
    const SettingWriter writer(environment, business, arguments, meant, typed);
    forEachSetting([&](const std::string& candidate, const auto& field) {
        if (candidate == meant) {
            writer.write(business.*field.member);
        }
    });
}

void BusinessSettings::setLogo(const AssistantEnvironment& environment, Bytes png)
{
    environment.context.edit(environment.ownBusiness()).logoData = std::move(png);
}

} // namespace Quillary
