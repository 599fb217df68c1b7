#pragma once

#include "QuillaryCore/Documents/Desk.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Schedules/BillingPeriod.h"
#include "QuillaryCore/Schedules/RecurrenceEnd.h"
#include "QuillaryCore/Schedules/RecurrenceUnit.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace Quillary {

struct Client;
struct Document;

/// When a template ends.
struct RecurringEnd
{
    RecurrenceEnd rule = RecurrenceEnd::never;
    int count = 0;                            ///< of all its invoices, for `afterCount`
    std::optional<CalendarDate> lastDay = {}; ///< for `onDate`
};

/// What somebody chooses for a template. What has no value stays as it is, and in a new template is what most want.
struct RecurringChoices
{
    std::optional<std::string> title = {};           ///< one line; may hold the placeholders of `RecurringText`
    const Client* client = nullptr;                  ///< null: no choice
    std::optional<RecurrenceUnit> unit = {};         ///< in a new one the month
    std::optional<int> interval = {};                ///< in a new one 1
    std::optional<int> anchorDay = {};               ///< 1 to 31, not for weeks; in a new one the first date's
    std::optional<CalendarDate> next = {};           ///< when the next invoice is made
    std::optional<RecurringEnd> end = {};            ///< in a new one never
    std::optional<bool> createsSent = {};            ///< in a new one drafts
    std::optional<BillingPeriod> billingPeriod = {}; ///< in a new one what the invoice says of its own period
};

/// Making, changing and deleting recurring templates, each in a scope of its own. What can't be done throws:
/// `DocumentError` with a sentence for the screen, and everything is as it was.
namespace RecurringSetup {

/// The greatest interval. Unit: weeks, months, quarters or years.
inline constexpr int mostUnits = 999;
/// The most invoices after which a schedule ends.
inline constexpr int mostInvoices = std::numeric_limits<std::int16_t>::max();

/// A template with the contents of an invoice, which stays as it is; docs/document-copies.md. Its first invoice comes
/// one interval after that one, or on the first of the later dates that isn't past. With `choices.next` it is the first
/// anchor day from there on, past or not: a run makes up for what has passed.
const Document& create(const Desk& desk, const Document& invoice, const RecurringChoices& choices, CalendarDate today);

/// Changes a template. Another unit, interval or day begins a new schedule: on the first anchor day from the next date
/// on, so that no period is billed twice. `choices.next` alone moves one date; those after it stay as they are.
void change(const Desk& desk, const Document& recurring, const RecurringChoices& choices);

/// Deletes a template. The invoices that were made from it stay.
void remove(const Desk& desk, const Document& recurring);

} // namespace RecurringSetup

} // namespace Quillary
