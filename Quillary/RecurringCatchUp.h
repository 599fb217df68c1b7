#pragma once

#include "QuillaryCore/Foundation/Calendar.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Quillary {

class Context;

/// The recurring invoices, made by a program that runs by itself.
namespace RecurringCatchUp {

/// What stood still.
struct Failure
{
    std::int64_t recurring = 0; ///< the template's key; 0: none can be named
    std::string message;        ///< names the template and the reason
};

struct Outcome
{
    std::vector<std::int64_t> made; ///< the keys of the invoices
    std::vector<Failure> failures;
    bool isComplete = true; ///< false: more is due than one run makes
};

/// Makes what is due and tells about it on standard error, failures too: they end nothing, and are tried again on the
/// next day.
Outcome run(Context& context, Instant now, const Calendar& calendar);

} // namespace RecurringCatchUp

} // namespace Quillary
