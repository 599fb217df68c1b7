#pragma once

#include "QuillaryCore/Foundation/Calendar.h"

namespace Quillary {

class Context;
struct Business;

/// What every operation on documents works with: the library, the business whose documents they are, and the calendar
/// of the place. Borrows all of it.
struct Desk
{
    Context& context;
    const Business& business;
    const Calendar& calendar;
};

} // namespace Quillary
