#include "QuillaryCore/Documents/DocumentFilter.h"

#include "QuillaryCore/Documents/ListedFacts.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

namespace Quillary {

namespace {

constexpr std::string_view newestFirst = "ORDER BY issueDate DESC, id DESC";

bool hasTag(const Document& document, const std::string& foldedTag)
{
    const std::vector<std::string> tags = tagList(document);
    return std::ranges::any_of(tags, [&](const std::string& tag) { return folded(tag) == foldedTag; });
}

} // namespace

std::vector<Ref<Document>> DocumentFilter::find(Context& context, Instant today, const Calendar& calendar) const
{
    std::vector<Ref<Document>> found;
    const std::string wantedTag = folded(tag);
    Document facts;
    const auto visit = [&](const Statement& row) {
        ListedFacts::read(row, facts);
        if (!wantedTag.empty()) {
            facts.tags = row.text(ListedFacts::tags);
        }
        // The cheap questions first.
        const bool fits =
            (!kind || Quillary::kind(facts) == *kind) && (!client || facts.client == *client) &&
            (!project || facts.project == *project) && (!among || among->contains(facts.ref.key())) &&
            (wantedTag.empty() || hasTag(facts, wantedTag)) &&
            (statuses.empty() || std::ranges::find(statuses, displayStatus(facts, today, calendar)) != statuses.end());
        if (fits) {
            found.push_back(facts.ref);
        }
    };
    if (start || end) {
        // Dates are whole numbers in the file, so the ends of their range stand for a missing bound.
        context.query(fmt::format("{} FROM Document WHERE issueDate >= ? AND issueDate < ? {}",
                                  ListedFacts::selection,
                                  newestFirst),
                      visit,
                      start.value_or(Instant::min()),
                      end.value_or(Instant::max()));
    } else {
        context.query(fmt::format("{} FROM Document {}", ListedFacts::selection, newestFirst), visit);
    }
    return found;
}

} // namespace Quillary
