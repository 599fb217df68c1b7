#pragma once

#include "QuillaryCore/Documents/DocumentView.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/SavedView.h"

#include <string_view>
#include <vector>

namespace Quillary {

class Context;

/// The filters and orders of document lists that the user keeps under a name. What they are kept by stays true: a client
/// or project that is deleted is no longer asked for.
namespace SavedViews {

/// Those of a kind's list in the user's order.
[[nodiscard]] std::vector<const SavedView*> of(Context& context, DocumentKind kind);

/// What a view shows. Words that can't be read ask for nothing.
[[nodiscard]] DocumentView contents(Context& context, const SavedView& saved);

/// Keeps a view behind the others of its list. Throws: `UserError` for an empty name, and one that another view of
/// the list has, without regard to case and accents.
const SavedView& keep(Context& context, DocumentKind kind, std::string_view name, const DocumentView& view);

/// Another content under the same name.
void replace(Context& context, const SavedView& saved, const DocumentView& view);

/// Throws: `UserError` as above.
void rename(Context& context, const SavedView& saved, std::string_view name);

/// Puts a view before or behind its neighbour in its list; the first doesn't move up, nor the last one down.
enum class Step { up, down };
void move(Context& context, const SavedView& saved, Step step);

void remove(Context& context, const SavedView& saved);

} // namespace SavedViews

} // namespace Quillary
