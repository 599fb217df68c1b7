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
#include <vector>

namespace Quillary::DraftLines {

void move(Context& context, const Document& draft, std::size_t from, std::size_t before)
{
    if (status(draft) != DocumentStatus::draft) {
        throw DocumentError(DocumentError::Reason::wrongStatus,
                            fmt::format("{} isn't a draft any more; its lines stay as they are.", documentName(draft)));
    }
    const std::vector<const LineItem*> lines = linesInOrder(context, draft);
    if (from >= lines.size() || before > lines.size()) {
        throw DocumentError(DocumentError::Reason::badAmount, "There is no such line.");
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
    std::int32_t sortIndex = 0;
    for (const LineItem* line : level) {
        if (line->sortIndex != sortIndex) {
            context.edit(*line).sortIndex = sortIndex;
        }
        sortIndex += 1;
    }
}

} // namespace Quillary::DraftLines
