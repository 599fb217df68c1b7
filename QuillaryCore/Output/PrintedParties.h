#pragma once

#include "QuillaryCore/Store/Field.h"

namespace Quillary {

class PrintSource;
struct Business;
struct PrintedDocument;

/// Who writes to whom.
namespace PrintedParties {

/// As PNG. Empty: there is none, or what is there is no picture and would leave a hole in the page.
[[nodiscard]] Bytes logo(const Business& business);

/// Logo, name, address and contact, and the line above the buyer's address.
void addSeller(PrintedDocument& printed, const PrintSource& source);

/// Name, address, and the numbers that tax offices gave out.
void addBuyer(PrintedDocument& printed, const PrintSource& source);

/// The seller's tax numbers, which an invoice must show, and the business's note.
void addFooter(PrintedDocument& printed, const PrintSource& source);

} // namespace PrintedParties

} // namespace Quillary
