#include "Quillary/Commands/AccessWord.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Quillary {

namespace {

using Pair = std::pair<std::string_view, AssistantAccess>;

constexpr std::array<Pair, 3> levels = {{
    {"look", AssistantAccess::readOnly},
    {"drafts", AssistantAccess::drafts},
    {"everything", AssistantAccess::everything},
}};

} // namespace

std::optional<AssistantAccess> AccessWord::read(std::string_view word)
{
    const auto* const found = std::ranges::find(levels, word, &Pair::first);
    return found == levels.end() ? std::nullopt : std::optional(found->second);
}

std::string_view AccessWord::of(AssistantAccess access)
{
    return std::ranges::find(levels, access, &Pair::second)->first;
}

} // namespace Quillary
