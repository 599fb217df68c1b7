#pragma once

#include <QString>

namespace Quillary {

struct Business;

/// What is said beside the bank details about the code that banking apps read.
namespace PaymentCodeHint {

/// When invoices carry it, and what is in the way where it is wanted and would not be printed.
[[nodiscard]] QString about(const Business& business);

/// What a UPI ID is for.
[[nodiscard]] QString aboutUPI();

} // namespace PaymentCodeHint

} // namespace Quillary
