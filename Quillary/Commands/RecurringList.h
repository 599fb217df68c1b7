#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
struct Document;

/// The template that somebody means by its title, its client or its id. Throws: `UserError` when none or several fit.
[[nodiscard]] const Document& findRecurring(Context& context, std::string_view asked);

/// An invoice that a run would make.
struct DueInvoice
{
    const Document* recurring;
    CalendarDate day;
};

/// Recurring invoices as the terminal and programs read them.
class RecurringList
{
public:
    RecurringList(Context& context, const Calendar& calendar)
        : m_context(context)
        , m_calendar(calendar)
    {
    }

    [[nodiscard]] std::string text(const std::vector<const Document*>& templates) const;
    [[nodiscard]] JSON data(const std::vector<const Document*>& templates) const;

    /// What a run made.
    [[nodiscard]] std::string text(const RecurringInvoices::Run& run, const Locale& locale) const;
    [[nodiscard]] JSON data(const RecurringInvoices::Run& run) const;

    /// What a run would make, at most `limit`.
    [[nodiscard]] std::vector<DueInvoice> due(Instant today, std::size_t limit) const;
    [[nodiscard]] std::string text(std::span<const DueInvoice> due) const;
    [[nodiscard]] JSON data(std::span<const DueInvoice> due, bool isComplete) const;

private:
    [[nodiscard]] std::string clientName(const Document& document) const;
    [[nodiscard]] JSON described(const Document& recurring) const;

    Context& m_context;
    const Calendar& m_calendar;
};

} // namespace Quillary
