#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace Quillary {

struct AssistantEnvironment;
struct Document;

namespace FilledIn {

using Fields = std::set<std::string, std::less<>>;

/// What stands in a draft as its client, the business's settings or today's date would fill it in: by the names of the
/// arguments of `update_document`, with "valid_until" for a quote's last day and "tax" for how it is taxed.
[[nodiscard]] Fields fields(const AssistantEnvironment& environment, const Document& draft);

/// What stands in a line as its catalog item or the settings fill it in.
struct Line
{
    std::string item;          ///< the name of its catalog item, if that is still there
    Fields ofItem;             ///< what is as the item has it, by the names of a line's arguments
    bool hasUsualRate = false; ///< its tax rate is the business's usual one, and not the item's own
};

/// The lines of a draft, in their order.
[[nodiscard]] std::vector<Line> lines(const AssistantEnvironment& environment, const Document& draft);

} // namespace FilledIn

} // namespace Quillary
