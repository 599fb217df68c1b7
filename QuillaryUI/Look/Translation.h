#pragma once

#include "QuillaryCore/Foundation/Locale.h"

#include <QString>

class QCoreApplication;

/// The language of the windows. English is what the sources say; German lies in the program itself.
namespace Quillary::Translation {

/// Lets the application speak the language of `words`, Qt's own dialogs included where the system has them in it, and
/// write its dates and numbers as `formats` does. Texts of a language that there is no translation for stay English.
/// Before the first window is made; a second call replaces the language of the first.
void install(QCoreApplication& application, const Locale& words, const Locale& formats);

/// The language that was installed: "de". English before that.
[[nodiscard]] QString language();

} // namespace Quillary::Translation
