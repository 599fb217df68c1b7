#pragma once

#include <QFont>

class QLabel;
class QWidget;

namespace Quillary {

/// Letters of headings and figures, in the measure of the desktop's own font.
namespace Lettering {

/// Letters so many times as large as they were.
void set(QWidget& widget, double size, QFont::Weight weight = QFont::Bold);

/// An empty label of this name with such letters.
[[nodiscard]] QLabel* label(QWidget* parent, const char* name, double size = 1.0, QFont::Weight weight = QFont::Normal);

} // namespace Lettering

} // namespace Quillary
