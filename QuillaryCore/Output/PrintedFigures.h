#pragma once

namespace Quillary {

class PrintSource;
struct PrintedDocument;

/// What it costs and how it is paid.
namespace PrintedFigures {

/// The lines, the totals below them, the reason for a missing tax, and the payment section.
void add(PrintedDocument& printed, const PrintSource& source);

} // namespace PrintedFigures

} // namespace Quillary
