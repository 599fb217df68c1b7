#pragma once

#include "QuillaryCore/Documents/CreditNotes.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

/// The lines that one credit note takes, with their quantities. Borrows what is left of the invoice.
class CreditSelection
{
public:
    /// By the places of the invoice's lines; no value: the line isn't credited.
    using Quantities = std::vector<std::optional<std::int64_t>>;

    CreditSelection(const CreditNotes::Left& left, const Document& invoice);

    void takeAll();

    /// Throws: `DocumentError` for what isn't there.
    void take(const CreditNotes::Chosen& chosen);

    /// Adds the lines without a quantity of their own that stand above a chosen sub-line: they say what it belongs to.
    void addHeadings();

    [[nodiscard]] const Quantities& quantities() const { return m_quantities; }

private:
    [[nodiscard]] std::int64_t left(std::size_t index) const { return m_left.lines[index].quantityThousandths; }
    [[nodiscard]] std::string lineName(std::size_t index) const;
    [[noreturn]] void refuseEmpty(std::size_t index) const;
    void takeWithSubLines(std::size_t index);
    [[nodiscard]] std::int64_t checkedQuantity(std::size_t index, std::int64_t quantity) const;

    const CreditNotes::Left& m_left;
    const Document& m_invoice;
    Quantities m_quantities;
};

} // namespace Quillary
