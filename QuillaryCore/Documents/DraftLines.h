#pragma once

#include <cstddef>

namespace Quillary {

class Context;
struct Document;

/// The order of a draft's lines.
namespace DraftLines {

/// Moves a line before another one of the same level; places are counted from 0 in print order, and the number of lines
/// stands for the end. Its sub-lines go with it. A sub-line stays with its line. Throws: `DocumentError` when the
/// document is no draft, or there is no such line.
void move(Context& context, const Document& draft, std::size_t from, std::size_t before);

} // namespace DraftLines

} // namespace Quillary
