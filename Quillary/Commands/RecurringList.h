#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Schedules/BillingPeriod.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
struct Document;

/// The template that somebody means by its title, its client or its id. Throws: `UserError` when none or several fit.
[[nodiscard]] const Document& findRecurring(Context& context, std::string_view asked);

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

    /// What a run would make.
    [[nodiscard]] std::string text(const RecurringInvoices::Preview& preview) const;
    [[nodiscard]] JSON data(const RecurringInvoices::Preview& preview) const;

    /// One template with its next dates.
    [[nodiscard]] std::string text(const Document& recurring, Instant now) const;
    [[nodiscard]] JSON data(const Document& recurring, Instant now) const;

    /// "none", "current", "previous"
    [[nodiscard]] static std::string_view word(BillingPeriod period);

private:
    [[nodiscard]] std::string clientName(const Document& document) const;
    [[nodiscard]] JSON described(const Document& recurring) const;
    [[nodiscard]] JSON entry(const Document& recurring) const;
    [[nodiscard]] std::vector<std::string> nextDates(const Document& recurring) const;
    [[nodiscard]] std::size_t passedDates(const Document& recurring, Instant now) const;

    Context& m_context;
    const Calendar& m_calendar;
};

} // namespace Quillary
