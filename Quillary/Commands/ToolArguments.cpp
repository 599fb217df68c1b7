#include "Quillary/Commands/ToolArguments.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

namespace Quillary {

namespace {

std::string_view typeOf(const JSON& schema)
{
    return *schema.find("type")->string();
}

std::optional<bool> truth(std::string_view text)
{
    const std::string word = lowerCasedASCII(text);
    if (word == "true" || word == "yes" || word == "on" || word == "1") {
        return true;
    }
    if (word == "false" || word == "no" || word == "off" || word == "0") {
        return false;
    }
    return std::nullopt;
}

JSON scalar(const JSON& schema, const std::string& name, const std::string& typed)
{
    if (typeOf(schema) == "boolean") {
        const std::optional<bool> value = truth(typed);
        if (!value) {
            throw UserError(fmt::format("--{} must be true or false.", name));
        }
        return {*value};
    }
    return {typed};
}

/// Reads "title=Design; quantity=2". A semicolon inside a value is written twice.
JSON pairs(const JSON& schema, const std::string& name, const std::string& typed)
{
    constexpr std::string_view keptSemicolon = "\x1F";
    JSON object = JSON::object({});
    const std::string marked = replacing(typed, ";;", keptSemicolon);
    for (const std::string_view piece : split(marked, ';')) {
        if (trimmed(piece).empty()) {
            continue;
        }
        const std::size_t equals = piece.find('=');
        if (equals == std::string_view::npos) {
            throw UserError(fmt::format("--{} takes name=value pairs separated by semicolons, such as "
                                        "\"title=Design; quantity=2; unit_price=90\", or a JSON object.",
                                        name));
        }
        const std::string key(trimmed(piece.substr(0, equals)));
        const std::string value = replacing(trimmed(piece.substr(equals + 1)), keptSemicolon, ";");
        const JSON* property = schema.find("properties")->find(key);
        object.set(key, property == nullptr ? JSON(value) : scalar(*property, name, value));
    }
    return object;
}

JSON parsed(const std::string& name, const std::string& typed)
{
    std::optional<JSON> value = JSON::parse(typed);
    if (!value) {
        throw UserError(fmt::format("--{} isn't readable as JSON.", name));
    }
    return std::move(*value);
}

JSON list(const JSON& schema, const std::string& name, const std::vector<std::string>& typed)
{
    const JSON& items = *schema.find("items");
    JSON::Array values;
    for (const std::string& text : typed) {
        if (trimmed(text).starts_with('[')) {
            const JSON array = parsed(name, text);
            values.insert(values.end(), array.array()->begin(), array.array()->end());
        } else if (typeOf(items) == "object") {
            values.push_back(trimmed(text).starts_with('{') ? parsed(name, text) : pairs(items, name, text));
        } else {
            for (const std::string_view piece : split(text, ',')) {
                values.emplace_back(std::string(trimmed(piece)));
            }
        }
    }
    return {std::move(values)};
}

} // namespace

JSON ToolArguments::fromTyped(const JSON& schema, const TypedValues& values, JSON base)
{
    if (base.isNull()) {
        base = JSON::object({});
    }
    if (base.object() == nullptr) {
        throw UserError("The arguments must be a JSON object.");
    }
    for (const auto& [name, typed] : values) {
        const JSON& property = *schema.find("properties")->find(name);
        if (typeOf(property) == "array") {
            base.set(name, list(property, name, typed));
        } else if (typed.size() > 1) {
            throw UserError(fmt::format("--{} was given more than once.", name));
        } else {
            base.set(name, scalar(property, name, typed.front()));
        }
    }
    return base;
}

} // namespace Quillary
