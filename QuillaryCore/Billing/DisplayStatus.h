#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Model/DocumentKind.h"

#include <array>
#include <optional>
#include <string_view>

namespace Quillary {

/// What the user sees of a document's progress: derived from the stored status, the kind, the dates and the stored
/// amounts, relative to today.
enum class DisplayStatus {
    draft,
    sent,
    partlyPaid,
    overdue,
    paid,
    accepted,
    declined,
    expired,
};

inline constexpr std::array allDisplayStatuses = {DisplayStatus::draft,
                                                  DisplayStatus::sent,
                                                  DisplayStatus::partlyPaid,
                                                  DisplayStatus::overdue,
                                                  DisplayStatus::paid,
                                                  DisplayStatus::accepted,
                                                  DisplayStatus::declined,
                                                  DisplayStatus::expired};

/// "draft", "partlyPaid": the name in saved views and structured answers.
[[nodiscard]] std::string_view rawText(DisplayStatus status);
[[nodiscard]] std::optional<DisplayStatus> displayStatusFromRaw(std::string_view text);

/// The English wording for a kind: a paid credit note is "Refunded". Without a kind, that of an invoice.
[[nodiscard]] std::string_view title(DisplayStatus status, std::optional<DocumentKind> kind);

/// An overdue invoice is overdue even when part of it is paid. A due date, and a quote's last valid day, end with the
/// day. `today` is any instant of today.
[[nodiscard]] DisplayStatus displayStatus(const Document& document, Instant today, const Calendar& calendar);

/// Whole calendar days since the due date; 0 until the day after it, and without a due date.
[[nodiscard]] int daysOverdue(const Document& document, Instant today, const Calendar& calendar);

} // namespace Quillary
