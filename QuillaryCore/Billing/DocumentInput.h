#pragma once

#include "QuillaryCore/Billing/Totals.h"

#include <vector>

namespace Quillary {

class Context;
struct Discount;
struct Document;
struct Fee;
struct LineItem;

/// What `Totals` reads of a stored document: its lines in print order, parents and sub-lines alike, its discounts and
/// its fees.
struct DocumentInput
{
    DocumentInput(Context& context, const Document& document);

    /// The records that the figures below were read from, in the same order.
    std::vector<const LineItem*> lineItems;
    std::vector<const Discount*> discountRecords;
    std::vector<const Fee*> feeRecords;

    std::vector<Totals::Line> lines;
    std::vector<Totals::Discount> discounts;
    std::vector<Totals::Fee> fees;
    Totals::Taxation taxation;
};

} // namespace Quillary
