#include "QuillaryCore/Documents/DraftLines.h"

#include "QuillaryCore/Documents/DocumentError.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <vector>

namespace Quillary::DraftLines {

namespace {

void requireDraft(const Document& draft)
{
    if (status(draft) != DocumentStatus::draft) {
        throw DocumentError(DocumentError::Reason::wrongStatus,
                            fmt::format("{} isn't a draft any more; its lines stay as they are.", documentName(draft)));
    }
}

[[noreturn]] void refuseLine()
{
    throw DocumentError(DocumentError::Reason::badAmount, "There is no such line.");
}

/// Puts lines under a parent (an empty one: at top level), in this order.
void arrange(Context& context, const std::vector<const LineItem*>& level, Ref<LineItem> parent)
{
    std::int32_t sortIndex = 0;
    for (const LineItem* line : level) {
        if (line->sortIndex != sortIndex || line->parent != parent) {
            LineItem& edited = context.edit(*line);
            edited.sortIndex = sortIndex;
            edited.parent = parent;
        }
        sortIndex += 1;
    }
}

} // namespace

void move(Context& context, const Document& draft, std::size_t from, std::size_t before)
{
    requireDraft(draft);
    const std::vector<const LineItem*> lines = linesInOrder(context, draft);
    if (from >= lines.size() || before > lines.size()) {
        refuseLine();
    }
    const LineItem* moved = lines[from];
    // The level's lines, and the place among them: before the first that stands at `before` or below.
    std::vector<const LineItem*> level;
    std::size_t place = 0;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        if (lines[index]->parent == moved->parent && lines[index] != moved) {
            place += index < before ? 1 : 0;
            level.push_back(lines[index]);
        }
    }
    level.insert(level.begin() + static_cast<std::ptrdiff_t>(place), moved);
    arrange(context, level, moved->parent);
}

void nest(Context& context, const Document& draft, std::size_t line)
{
    requireDraft(draft);
    const std::vector<const LineItem*> lines = linesInOrder(context, draft);
    if (line >= lines.size() || lines[line]->parent) {
        refuseLine();
    }
    std::vector<const LineItem*> top = sortedItems(context, draft);
    const auto place = std::ranges::find(top, lines[line]);
    if (place == top.begin()) {
        throw DocumentError(DocumentError::Reason::badAmount, "The first line has no line above it to belong to.");
    }
    const LineItem& above = **std::prev(place);
    std::vector<const LineItem*> level = sortedChildren(context, above);
    const std::vector<const LineItem*> own = sortedChildren(context, *lines[line]);
    level.push_back(lines[line]);
    level.insert(level.end(), own.begin(), own.end());
    arrange(context, level, above.ref);
}

void unnest(Context& context, const Document& draft, std::size_t line)
{
    requireDraft(draft);
    const std::vector<const LineItem*> lines = linesInOrder(context, draft);
    const LineItem* parent = line < lines.size() ? context.find(lines[line]->parent) : nullptr;
    if (parent == nullptr) {
        refuseLine();
    }
    const std::vector<const LineItem*> siblings = sortedChildren(context, *parent);
    const auto after = std::ranges::find(siblings, lines[line]) + 1;
    std::vector<const LineItem*> top = sortedItems(context, draft);
    top.insert(std::ranges::find(top, parent) + 1, lines[line]);
    arrange(context, {after, siblings.end()}, lines[line]->ref);
    arrange(context, top, {});
}

} // namespace Quillary::DraftLines
