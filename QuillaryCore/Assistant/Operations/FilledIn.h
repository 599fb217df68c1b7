#pragma once

#include <functional>
#include <set>
#include <string>

namespace Quillary {

struct AssistantEnvironment;
struct Document;

namespace FilledIn {

using Fields = std::set<std::string, std::less<>>;

/// What stands in a draft as its client, the business's settings or today's date would fill it in: by the names of the
/// arguments of `update_document`, with "valid_until" for a quote's last day and "tax" for how it is taxed.
[[nodiscard]] Fields fields(const AssistantEnvironment& environment, const Document& draft);

} // namespace FilledIn

} // namespace Quillary
