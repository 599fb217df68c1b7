#pragma once

#include <cstddef>

namespace Quillary {

class Context;
struct Document;

/// The order of a draft's lines, and which belong to which.
namespace DraftLines {

/// Moves a line before another one of the same level; places are counted from 0 in print order, and the number of lines
/// stands for the end. Its sub-lines go with it. A sub-line stays with its line. Throws: `DocumentError` when the
/// document is no draft, or there is no such line.
void move(Context& context, const Document& draft, std::size_t from, std::size_t before);

/// Makes a top-level line a sub-line of the top-level line above it, or a sub-line a top-level line again. What stands
/// where on the page stays: the sub-lines of the one come along, and the sub-lines after the other become its own.
/// Throws: `DocumentError` as above, and for the first line, which has none above it.
void nest(Context& context, const Document& draft, std::size_t line);
void unnest(Context& context, const Document& draft, std::size_t line);

} // namespace DraftLines

} // namespace Quillary
