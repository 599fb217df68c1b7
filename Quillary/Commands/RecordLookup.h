#pragma once

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Foundation/PlainText.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// Finding one of the few records of a kind that a user keeps (projects, rates, units) by what was typed.
namespace RecordLookup {

/// By id, by the name without regard to case and accents, or by a part of it that only one has. `word` is what such a
/// record is called, `command` the command that lists them. Throws: `UserError`, for several with the candidates.
template <class Record, class Name>
const Record&
find(Context& context, std::string_view asked, std::string_view word, std::string_view command, const Name& name)
{
    if (const std::optional<UUID> uuid = Lookup::idIn(asked)) {
        if (const Record* record = context.find<Record>(*uuid)) {
            return *record;
        }
    }
    const std::string wanted = folded(trimmed(asked));
    std::vector<const Record*> same;
    std::vector<const Record*> near;
    for (const Record* record : context.fetch<Record>("")) {
        const std::string own = folded(name(*record));
        if (own == wanted) {
            same.push_back(record);
        } else if (!wanted.empty() && own.find(wanted) != std::string::npos) {
            near.push_back(record);
        }
    }
    const std::vector<const Record*>& fitting = same.empty() ? near : same;
    if (fitting.size() == 1) {
        return *fitting.front();
    }
    if (fitting.empty()) {
        throw UserError(
            fmt::format("There's no {} {}. `quillary {} list` lists them.", word, inQuotes(asked), command));
    }
    std::string list;
    for (const Record* record : fitting) {
        list +=
            fmt::format("{}{} [{}]", list.empty() ? "" : "; ", plainText(name(*record)), Lookup::idText(record->uuid));
    }
    throw UserError(fmt::format("{} fits several. Which one? {}.", inQuotes(asked), list));
}

} // namespace RecordLookup

} // namespace Quillary
