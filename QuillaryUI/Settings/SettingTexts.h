#pragma once

#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryUI/Look/FieldForm.h"

#include <QList>
#include <QString>

namespace Quillary {

/// How the settings of the business are grouped and what they are called on the screen.
namespace SettingTexts {

/// One entry of the settings' list.
struct Group
{
    QString name; ///< "numbering"
    QString title;
    QString explanation;
    QList<FieldForm::Field> fields; ///< under the names of `BusinessSettings`; the logo is in none, it isn't typed
};

[[nodiscard]] QList<Group> groups(const Locale& locale);

/// A note of `BusinessSettings` in the words of the screen.
[[nodiscard]] QString note(const QString& note);

} // namespace SettingTexts

} // namespace Quillary
