#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

class Context;
struct Document;

/// Why a template's invoice couldn't be made. The sentence names the template.
class RecurringError : public UserError
{
public:
    enum class Reason {
        noClient,     ///< the template's client was deleted
        noSchedule,   ///< a unit or end rule that this version can't read
        noIdentifier, ///< damaged data: its invoices could not be told apart
        notMade,      ///< numbering or the limits refuse the invoice; the sentence says why
    };

    RecurringError(Reason reason, std::optional<UUID> templateID, const std::string& message)
        : UserError(message)
        , m_reason(reason)
        , m_templateID(templateID)
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }
    [[nodiscard]] const std::optional<UUID>& templateID() const { return m_templateID; }

private:
    Reason m_reason;
    std::optional<UUID> m_templateID;
};

/// Makes the invoices of recurring templates when their dates have come.
///
/// Every occurrence is a scope of its own, on disk before the next begins: whatever ends a run leaves whole invoices,
/// and a template that stands behind the last of them. Its identifiers follow from the template's and the date, those
/// of its lines from theirs, so two devices that share a library make the same records.
namespace RecurringInvoices {

/// The most that one run makes; the rest follows in the next.
inline constexpr std::size_t mostPerRun = 60;

/// The recurring templates, in the order in which they are due; those without a next date come last.
[[nodiscard]] std::vector<const Document*> all(Context& context);

/// What a message calls a template: its title, else its client.
[[nodiscard]] std::string name(Context& context, const Document& recurring);

/// Makes the invoices that are due by the day of `today`, at most `limit`: template by template, each one's missed
/// dates in their order and each with its own date. Returns those that are new.
/// Throws at the first that can't be made: `RecurringError`, `StoreError`. What was made before stays.
std::vector<const Document*> makeDue(Context& context, Instant today, std::size_t limit, const Calendar& calendar);

/// What came of a run.
struct Run
{
    std::vector<const Document*> made;
    std::vector<RecurringError> failures; ///< one for each template that stood still
    bool isComplete = true;               ///< false: more is due than one run makes
};

/// The same, but a template that can't go on holds up none of the others. Throws: `StoreError`.
[[nodiscard]] Run catchUp(Context& context, Instant today, std::size_t limit, const Calendar& calendar);

/// An invoice that a run would make.
struct Expected
{
    const Document* recurring;
    CalendarDate day;
    std::string number; ///< the one that it would get
};

/// What would come of a run.
struct Preview
{
    std::vector<Expected> due;
    std::vector<RecurringError> failures;
    bool isComplete = true; ///< see `Run`
};

/// What `catchUp` would do. It is made and taken back, so that whatever would fail fails here, and nothing is saved.
/// Throws: `StoreError`.
[[nodiscard]] Preview preview(Context& context, Instant today, std::size_t limit, const Calendar& calendar);

/// Why the invoice that a template owes by the day of `today` can't be made. It is tried and taken back. No value: it can
/// be, or none is due. Throws: `StoreError`.
[[nodiscard]] std::optional<RecurringError>
obstacle(Context& context, const Document& recurring, Instant today, const Calendar& calendar);

/// The identifier of the invoice of a scheduled day: the name "invoice YYYY-MM-DD" in the space of the template's own
/// identifier (RFC 9562, version 5). No value: the template has none.
[[nodiscard]] std::optional<UUID> occurrenceID(const Document& recurring, Instant scheduled, const Calendar& calendar);

/// Makes the invoice of one date, moves the template on and saves both. An invoice that is there already is returned
/// as it stands. Throws: `RecurringError`, `StoreError`; nothing has changed then.
const Document& makeInvoice(Context& context, const Document& recurring, Instant issueDate, const Calendar& calendar);

} // namespace RecurringInvoices

} // namespace Quillary
