#include "QuillaryUI/Look/Lettering.h"

#include <QLabel>

namespace Quillary::Lettering {

void set(QWidget& widget, double size, QFont::Weight weight)
{
    QFont font = widget.font();
    font.setPointSizeF(font.pointSizeF() * size);
    font.setWeight(weight);
    widget.setFont(font);
}

QLabel* label(QWidget* parent, const char* name, double size, QFont::Weight weight)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    set(*label, size, weight);
    return label;
}

} // namespace Quillary::Lettering
