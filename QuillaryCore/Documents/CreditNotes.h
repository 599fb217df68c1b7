#pragma once

#include "QuillaryCore/Documents/Desk.h"
#include "QuillaryCore/Foundation/Instant.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

struct Discount;
struct Document;
struct Fee;
struct LineItem;

/// Taking invoices back, wholly or in part; docs/credit-notes.md gives the rules and why they are so.
namespace CreditNotes {

/// A line of an invoice, and what of it earlier credit notes, drafts included, have left.
struct LineLeft
{
    const LineItem* line;
    std::int64_t quantityThousandths = 0; ///< left; of the sign of the line's own quantity
};

/// A discount as it counts in the invoice's figures: after the cap at the subtotal.
struct DiscountLeft
{
    const Discount* discount;
    bool isFixed = false;             ///< else a percentage, of which every credit note has its own share by itself
    std::int64_t wholeMinorUnits = 0; ///< of a fixed one
    std::int64_t leftMinorUnits = 0;
};

struct FeeLeft
{
    const Fee* fee;
    std::int64_t leftMinorUnits = 0;
};

struct Left
{
    std::vector<LineLeft> lines; ///< all lines in print order; the first is line 1
    std::vector<DiscountLeft> discounts;
    std::vector<FeeLeft> fees;
    std::vector<const Document*> creditNotes; ///< the earlier ones, oldest first

    /// True when nothing that costs anything is left.
    [[nodiscard]] bool isNothing() const;
};

/// Throws: `DocumentError` when the invoice goes beyond `Limits`.
[[nodiscard]] Left left(const Desk& desk, const Document& invoice);

/// A line to credit.
struct Chosen
{
    std::size_t line = 0; ///< in print order, from 1
    /// No value: all that is left, of its sub-lines too.
    std::optional<std::int64_t> quantityThousandths = {};
};

struct Request
{
    Instant issueDate = {};         ///< `Calendar::storedDay`
    std::vector<Chosen> lines = {}; ///< none: all that is left, fees included
    bool withFees = false;          ///< with chosen lines: what is left of the fees as well
    std::string madeBy = {};        ///< an assistant's name, or empty for the user
};

/// A draft that takes an invoice back. Throws: `DocumentError`, `NumberingError`.
const Document& make(const Desk& desk, const Document& invoice, const Request& request);

} // namespace CreditNotes

} // namespace Quillary
