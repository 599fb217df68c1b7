#pragma once

#include "QuillaryCore/Foundation/Calendar.h"

namespace Quillary {

class Context;

/// The recurring invoices, made by a program that runs by itself.
namespace RecurringCatchUp {

/// Makes what is due and tells about it on standard error, failures too: they end nothing, and are tried again on the
/// next day. False: more is due than one run makes.
bool run(Context& context, Instant now, const Calendar& calendar);

} // namespace RecurringCatchUp

} // namespace Quillary
