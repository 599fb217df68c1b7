#pragma once

#include "QuillaryCore/Output/PrintedDocument.h"

#include <cstdint>
#include <optional>

namespace Quillary {

class PrintSource;

/// How a page asks to be paid.
namespace PrintedPayment {

/// The payment section of a document, where it asks for money that is still due: by the due date, or by the later day
/// that a reminder has set. Unit: minor units of the document's currency.
void add(PrintedDocument& printed, const PrintSource& source, std::int64_t due);

/// The sentence, where to pay, and the code for it. Without a day it asks for payment upon receipt.
[[nodiscard]] PrintedDocument::Payment
asking(const PrintSource& source, std::int64_t due, std::optional<Instant> payBy);

} // namespace PrintedPayment

} // namespace Quillary
