#include "QuillaryCore/Assistant/Tools/SchemaCheck.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Money/Decimal.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

namespace Quillary {

namespace {

std::optional<std::string> misfitOfObject(const JSON& schema, const JSON& value, const std::string& where);

std::string_view stringMember(const JSON& schema, std::string_view key)
{
    const JSON* member = schema.find(key);
    return member != nullptr && member->string() != nullptr ? std::string_view(*member->string()) : std::string_view();
}

std::string joined(const JSON::Array& values)
{
    std::string text;
    for (const JSON& value : values) {
        text += text.empty() ? "" : ", ";
        text += value.text().value_or("");
    }
    return text;
}

std::string joinedKeys(const JSON& properties)
{
    std::string text;
    for (const auto& [key, value] : *properties.object()) {
        text += text.empty() ? "" : ", ";
        text += key;
    }
    return text;
}

bool holdsNumber(const JSON& value)
{
    if (value.number() != nullptr) {
        return value.decimalText().has_value();
    }
    return value.string() != nullptr && Decimal::parse(trimmed(*value.string())).has_value();
}

std::optional<std::string> misfitOfArray(const JSON& schema, const JSON& value, const std::string& where)
{
    if (value.array() == nullptr) {
        return fmt::format("“{}” must be a list.", where);
    }
    const JSON* items = schema.find("items");
    int position = 0;
    for (const JSON& item : *value.array()) {
        position += 1;
        const std::string place = fmt::format("{} {}", where, position);
        if (stringMember(*items, "type") == "object") {
            if (auto sentence = misfitOfObject(*items, item, place)) {
                return sentence;
            }
        } else if (!holdsNumber(item)) {
            return fmt::format("“{}” must be a number.", place);
        }
    }
    return std::nullopt;
}

std::optional<std::string> misfitOfValue(const JSON& schema, const JSON& value, const std::string& where)
{
    const std::string_view type = stringMember(schema, "type");
    if (type == "number") {
        return holdsNumber(value) ? std::nullopt
                                  : std::optional(fmt::format("“{}” must be a plain number such as 12.5.", where));
    }
    if (type == "boolean") {
        return value.boolean() != nullptr ? std::nullopt
                                          : std::optional(fmt::format("“{}” must be true or false.", where));
    }
    if (type == "array") {
        return misfitOfArray(schema, value, where);
    }
    const std::optional<std::string> text = value.text();
    if (!text) {
        return fmt::format("“{}” must be a text.", where);
    }
    const JSON* choices = schema.find("enum");
    if (choices != nullptr && std::ranges::find(*choices->array(), JSON(*text)) == choices->array()->end()) {
        return fmt::format("“{}” must be one of: {}.", where, joined(*choices->array()));
    }
    return std::nullopt;
}

std::optional<std::string> misfitOfObject(const JSON& schema, const JSON& value, const std::string& where)
{
    if (value.object() == nullptr) {
        return where.empty() ? "The arguments must be an object with named values."
                             : fmt::format("“{}” must be an object with named values.", where);
    }
    const std::string place = where.empty() ? "" : where + ": ";
    const JSON* properties = schema.find("properties");
    for (const auto& [key, argument] : *value.object()) {
        const JSON* property = properties->find(key);
        if (property == nullptr) {
            return properties->object()->empty()
                       ? fmt::format("“{}{}” isn't known here; this takes no arguments.", place, repairedUTF8(key))
                       : fmt::format("“{}{}” isn't known here. The arguments are: {}.",
                                     place,
                                     repairedUTF8(key),
                                     joinedKeys(*properties));
        }
        if (argument.isNull()) {
            continue;
        }
        if (auto sentence = misfitOfValue(*property, argument, place + key)) {
            return sentence;
        }
    }
    for (const JSON& required : *schema.find("required")->array()) {
        const JSON* given = value.find(*required.string());
        if (given == nullptr || given->isNull()) {
            const JSON* property = properties->find(*required.string());
            return fmt::format(
                "“{}{}” is missing: {}", place, *required.string(), stringMember(*property, "description"));
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> SchemaCheck::misfit(const JSON& schema, const JSON& arguments)
{
    static const JSON none = JSON::object({});
    return misfitOfObject(schema, arguments.isNull() ? none : arguments, "");
}

} // namespace Quillary
