#pragma once

#include "QuillaryUI/Paper/PagePress.h"

#include <QString>

class QPrinter;
class QWidget;

namespace Quillary {

/// Paper from the user's own printer.
namespace PaperPrinting {

/// Sets a printer up for such pages: their size, and no margins but those that the page has itself.
void prepare(QPrinter& printer, const PageGeometry& geometry, const QString& name);

/// Draws the chosen pages, as often as was asked for, at the printer's own resolution. Above a second a bar shows how
/// far it is and can be cancelled. Throws: `PrintError`.
void print(PagePress& press, const PrintedPDF& pdf, QPrinter& printer, QWidget* window);

} // namespace PaperPrinting

} // namespace Quillary
