#include "QuillaryCore/Documents/CreditSelection.h"

#include "QuillaryCore/Documents/DocumentError.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/PlainText.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Money/Quantity.h"

#include <fmt/format.h>

#include <algorithm>

namespace Quillary {

namespace {

using Reason = DocumentError::Reason;

} // namespace

CreditSelection::CreditSelection(const CreditNotes::Left& left, const Document& invoice)
    : m_left(left)
    , m_invoice(invoice)
    , m_quantities(left.lines.size())
{
}

void CreditSelection::takeAll()
{
    for (std::size_t index = 0; index < m_left.lines.size(); ++index) {
        if (left(index) != 0) {
            m_quantities[index] = left(index);
        }
    }
}

void CreditSelection::take(const CreditNotes::Chosen& chosen)
{
    if (chosen.line < 1 || chosen.line > m_left.lines.size()) {
        throw DocumentError(
            Reason::badAmount,
            fmt::format("{} has no line {}; it has {}.", documentName(m_invoice), chosen.line, m_left.lines.size()));
    }
    const std::size_t index = chosen.line - 1;
    if (m_quantities[index]) {
        throw DocumentError(Reason::badAmount, fmt::format("Line {} is named twice.", chosen.line));
    }
    if (chosen.quantityThousandths) {
        m_quantities[index] = checkedQuantity(index, *chosen.quantityThousandths);
    } else {
        takeWithSubLines(index);
    }
}

void CreditSelection::addHeadings()
{
    std::optional<std::size_t> heading;
    for (std::size_t index = 0; index < m_left.lines.size(); ++index) {
        const LineItem& line = *m_left.lines[index].line;
        if (!line.parent) {
            heading = line.quantityThousandths == 0 ? std::optional(index) : std::nullopt;
        } else if (heading && m_quantities[index] && !m_quantities[*heading]) {
            m_quantities[*heading] = 0;
        }
    }
}

std::string CreditSelection::lineName(std::size_t index) const
{
    const std::string& title = m_left.lines[index].line->title;
    return fmt::format("line {}{}", index + 1, title.empty() ? "" : " (" + inQuotes(title) + ")");
}

void CreditSelection::refuseEmpty(std::size_t index) const
{
    throw DocumentError(Reason::alreadyDone, fmt::format("Nothing is left to credit of {}.", lineName(index)));
}

void CreditSelection::takeWithSubLines(std::size_t index)
{
    std::size_t end = index + 1;
    if (!m_left.lines[index].line->parent) {
        while (end < m_left.lines.size() && m_left.lines[end].line->parent) {
            ++end;
        }
    }
    bool isAny = false;
    for (std::size_t i = index; i < end; ++i) {
        if (left(i) != 0 && !m_quantities[i]) {
            m_quantities[i] = left(i);
            isAny = true;
        }
    }
    if (!isAny) {
        refuseEmpty(index);
    }
}

/// A quantity as a person gives it, with the sign of the line's or without one.
std::int64_t CreditSelection::checkedQuantity(std::size_t index, std::int64_t quantity) const
{
    const bool isNegativeLine = m_left.lines[index].line->quantityThousandths < 0;
    const Int128 wanted = isNegativeLine && quantity > 0 ? -Int128{quantity} : Int128{quantity};
    if (left(index) == 0) {
        refuseEmpty(index);
    }
    if (wanted == 0 || (wanted < 0) != isNegativeLine) {
        throw DocumentError(Reason::badAmount,
                            fmt::format("The quantity to credit of {} must be more than 0.", lineName(index)));
    }
    if (wanted < std::min<Int128>(left(index), 0) || wanted > std::max<Int128>(left(index), 0)) {
        throw DocumentError(Reason::badAmount,
                            fmt::format("Only {} {} left to credit of {}.",
                                        Quantity::plainText(left(index)),
                                        left(index) == 1000 ? "is" : "are",
                                        lineName(index)));
    }
    return static_cast<std::int64_t>(wanted);
}

} // namespace Quillary
