#include "QuillaryCore/Assistant/Access/AssistantSettings.h"

#include "QuillaryCore/Assistant/Access/ShownText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <utility>

namespace Quillary {

namespace {

constexpr std::int64_t currentVersion = 1;

constexpr std::array<std::pair<AssistantApproval, std::string_view>, 3> approvalTexts = {{
    {AssistantApproval::allowed, "allowed"},
    {AssistantApproval::denied, "denied"},
    {AssistantApproval::waiting, "waiting"},
}};

std::string_view textOf(AssistantApproval approval)
{
    return std::ranges::find(approvalTexts, approval, &std::pair<AssistantApproval, std::string_view>::first)->second;
}

std::optional<AssistantApproval> approvalNamed(std::string_view text)
{
    const auto* const found =
        std::ranges::find(approvalTexts, text, &std::pair<AssistantApproval, std::string_view>::second);
    return found == approvalTexts.end() ? std::nullopt : std::optional(found->first);
}

std::optional<AssistantAccess> readAccess(const JSON* value)
{
    const auto raw = value == nullptr ? std::nullopt : value->integer();
    if (!raw || *raw < 0 || *raw > std::numeric_limits<std::int16_t>::max()) {
        return std::nullopt;
    }
    return assistantAccess(static_cast<std::int16_t>(*raw));
}

std::optional<KnownAssistant> readAssistant(const JSON& value)
{
    const JSON* name = value.find("name");
    const JSON* approval = value.find("approval");
    if (name == nullptr || name->string() == nullptr || approval == nullptr || approval->string() == nullptr) {
        return std::nullopt;
    }
    const auto kind = approvalNamed(*approval->string());
    if (!kind || ShownText::assistantName(*name->string()) != *name->string()) {
        return std::nullopt;
    }
    KnownAssistant result{.name = *name->string(), .approval = *kind};
    if (const JSON* asked = value.find("asked")) {
        result.askedAt = asked->string() == nullptr ? std::nullopt : ShownText::parseTimestamp(*asked->string());
        if (!result.askedAt) {
            return std::nullopt;
        }
    }
    return result;
}

} // namespace

const KnownAssistant* AssistantSettings::find(std::string_view name) const
{
    const auto found = std::ranges::find(assistants, name, &KnownAssistant::name);
    return found == assistants.end() ? nullptr : &*found;
}

void AssistantSettings::decide(std::string_view name, AssistantApproval approval)
{
    const auto found = std::ranges::find(assistants, name, &KnownAssistant::name);
    if (found == assistants.end()) {
        assistants.push_back({.name = std::string(name), .approval = approval});
    } else {
        found->approval = approval;
        found->askedAt.reset();
    }
}

void AssistantSettings::keepWaiting(std::string_view name, Instant now)
{
    const auto isWaiting = [](const KnownAssistant& known) {
        return known.approval == AssistantApproval::waiting;
    };
    const auto found = std::ranges::find(assistants, name, &KnownAssistant::name);
    if (found != assistants.end()) {
        found->askedAt = isWaiting(*found) ? std::optional(now) : found->askedAt;
        return;
    }
    if (static_cast<std::size_t>(std::ranges::count_if(assistants, isWaiting)) >= mostWaiting) {
        const auto oldest = std::ranges::min_element(
            assistants, {}, [&](const KnownAssistant& known) { return std::pair(!isWaiting(known), known.askedAt); });
        assistants.erase(oldest);
    }
    assistants.push_back({.name = std::string(name), .approval = AssistantApproval::waiting, .askedAt = now});
}

bool AssistantSettings::forget(std::string_view name)
{
    return std::erase_if(assistants, [&](const KnownAssistant& known) { return known.name == name; }) > 0;
}

JSON AssistantSettings::json() const
{
    JSON::Array list;
    for (const KnownAssistant& known : assistants) {
        JSON entry = JSON::object({{"name", known.name}, {"approval", textOf(known.approval)}});
        if (known.askedAt) {
            entry.set("asked", ShownText::timestamp(*known.askedAt));
        }
        list.push_back(std::move(entry));
    }
    return JSON::object({{"version", currentVersion},
                         {"on", isOn},
                         {"access", static_cast<std::int16_t>(access)},
                         {"assistants", std::move(list)}});
}

std::optional<AssistantSettings> AssistantSettings::read(std::string_view text)
{
    const auto value = JSON::parse(text);
    const JSON* version = value ? value->find("version") : nullptr;
    const JSON* on = value ? value->find("on") : nullptr;
    const JSON* list = value ? value->find("assistants") : nullptr;
    const auto level = readAccess(value ? value->find("access") : nullptr);
    if (version == nullptr || version->integer() != currentVersion || on == nullptr || on->boolean() == nullptr ||
        list == nullptr || list->array() == nullptr || !level) {
        return std::nullopt;
    }
    AssistantSettings result{.isOn = *on->boolean(), .access = *level};
    for (const JSON& entry : *list->array()) {
        auto known = readAssistant(entry);
        if (!known || result.find(known->name) != nullptr) {
            return std::nullopt;
        }
        result.assistants.push_back(std::move(*known));
    }
    return result;
}

} // namespace Quillary
