#pragma once

#include "QuillaryCore/Foundation/Calendar.h"

class QDateEdit;

namespace Quillary {

/// Fields that a day is chosen in.
namespace DateField {

/// With a calendar, and the day as the desktop writes it, though with its whole year: "26" leaves one guessing.
void dress(QDateEdit& field);

/// The day that stands in it.
[[nodiscard]] CalendarDate day(const QDateEdit& field);

} // namespace DateField

} // namespace Quillary
