#pragma once

namespace Quillary {

class PrintSource;
struct PrintedDocument;

/// Who writes to whom.
namespace PrintedParties {

/// Logo, name, address and contact, and the line above the buyer's address.
void addSeller(PrintedDocument& printed, const PrintSource& source);

/// Name, address, and the numbers that tax offices gave out.
void addBuyer(PrintedDocument& printed, const PrintSource& source);

/// The seller's tax numbers, which an invoice must show, and the business's note.
void addFooter(PrintedDocument& printed, const PrintSource& source);

} // namespace PrintedParties

} // namespace Quillary
