#include "QuillaryCore/Documents/DocumentFilter.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Store/Columns.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <string_view>

namespace Quillary {

namespace {

constexpr std::string_view everything =
    "SELECT id, kindRaw, statusRaw, dueDate, validUntil, cachedTotalMinorUnits, cachedPaidMinorUnits, "
    "cachedLateFeesMinorUnits, client, project, tags FROM Document ORDER BY issueDate DESC, id DESC";
/// Dates are whole numbers in the file, so the ends of their range stand for a missing bound.
constexpr std::string_view ofPeriod =
    "SELECT id, kindRaw, statusRaw, dueDate, validUntil, cachedTotalMinorUnits, cachedPaidMinorUnits, "
    "cachedLateFeesMinorUnits, client, project, tags FROM Document WHERE issueDate >= ? AND issueDate < ? "
    "ORDER BY issueDate DESC, id DESC";

/// The columns of a row in a document that has nothing else.
void read(const Statement& row, Document& facts, bool needsTags)
{
    facts.ref = Ref<Document>(row.integer(0));
    Column<std::int16_t>::read(row, 1, facts.kindRaw);
    Column<std::int16_t>::read(row, 2, facts.statusRaw);
    facts.dueDate = row.instant(3);
    facts.validUntil = row.instant(4);
    facts.cachedTotalMinorUnits = row.integer(5);
    facts.cachedPaidMinorUnits = row.integer(6);
    facts.cachedLateFeesMinorUnits = row.integer(7);
    facts.client = Ref<Client>(row.integer(8));
    facts.project = Ref<Project>(row.integer(9));
    if (needsTags) {
        facts.tags = row.text(10);
    }
}

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
        read(row, facts, !wantedTag.empty());
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
        context.query(ofPeriod, visit, start.value_or(Instant::min()), end.value_or(Instant::max()));
    } else {
        context.query(everything, visit);
    }
    return found;
}

} // namespace Quillary
