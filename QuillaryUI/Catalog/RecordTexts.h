#pragma once

#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryUI/Look/FieldForm.h"

#include <QList>
#include <QString>

namespace Quillary {

/// What the kinds of records, and their fields, are called on the screen.
struct RecordTexts
{
    QString title;                  ///< "Items"
    QString search;                 ///< in the empty search field
    QString empty;                  ///< what will be here
    QString add;                    ///< "New Item": the button, the step, and the name that a new one starts with
    QString change;                 ///< the step
    QString remove;                 ///< the button and the step
    QList<FieldForm::Field> fields; ///< under the names of `RecordField`
    QList<int> shown;               ///< the fields that are columns of the list, by their places

    [[nodiscard]] static RecordTexts items(const Locale& locale);
    [[nodiscard]] static RecordTexts projects();
    [[nodiscard]] static RecordTexts units();
    [[nodiscard]] static RecordTexts taxRates();
    [[nodiscard]] static RecordTexts presets();
};

} // namespace Quillary
