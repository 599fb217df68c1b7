#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Quillary {

/// What the user lets assistants do. Each level includes the ones before it.
enum class AssistantAccess : std::int16_t { readOnly = 0, drafts = 1, everything = 2 };

/// The level that a raw value stands for. No value: not a level.
[[nodiscard]] std::optional<AssistantAccess> assistantAccess(std::int16_t raw);

[[nodiscard]] std::string_view title(AssistantAccess access);
[[nodiscard]] std::string_view detail(AssistantAccess access);

} // namespace Quillary
