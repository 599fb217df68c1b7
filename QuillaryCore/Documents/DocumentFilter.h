#pragma once

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Store/Ref.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace Quillary {

class Context;
struct Client;
struct Document;
struct Project;

/// What a list of documents is narrowed to: the facts that a saved view keeps, a client, and what a search found.
struct DocumentFilter
{
    std::optional<DocumentKind> kind = {};
    std::vector<DisplayStatus> statuses = {}; ///< any of them; none: all
    std::optional<Instant> start = {};        ///< issued then or later
    std::optional<Instant> end = {};          ///< and before this
    std::string tag = {};                     ///< without regard to case and accents; empty: all
    std::optional<Ref<Client>> client = {};
    std::optional<Ref<Project>> project = {};                   ///< an empty one: documents of no project
    std::optional<std::unordered_set<std::int64_t>> among = {}; ///< the keys that a search found

    /// The documents that fit, the newest first. Reads only what the filter needs of each.
    [[nodiscard]] std::vector<Ref<Document>> find(Context& context, Instant today, const Calendar& calendar) const;
};

} // namespace Quillary
