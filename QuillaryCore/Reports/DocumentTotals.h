#pragma once

#include "QuillaryCore/Billing/Totals.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace Quillary {

class Context;

/// A stored document whose figures are wanted.
struct DocumentToTotal
{
    std::int64_t key = 0;
    Totals::Taxation taxation = Totals::Taxation::taxed;
};

/// Works out the figures of many stored documents, whose lines, discounts and fees are read together: `visit` gets each
/// document's place in the list and its figures, in order. The figures are those of the document alone, except that its
/// lines and discounts are in no particular order.
///
/// `documents` ascend by key and name each key once. Throws: `StoreError`.
void calculateTotals(Context& context,
                     std::span<const DocumentToTotal> documents,
                     const std::function<void(std::size_t, const Totals::Result&)>& visit);

} // namespace Quillary
