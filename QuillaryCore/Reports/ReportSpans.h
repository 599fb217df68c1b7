#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Reports/DateRange.h"
#include "QuillaryCore/Reports/ReportPeriod.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace Quillary {

/// A period divided into months, quarters or years, whichever give a chart a handful of bars. The first and the last may
/// be a part of one.
class ReportSpans
{
public:
    enum class Length { month, quarter, year };

    /// At most this many bars can be told apart.
    static constexpr std::size_t most = 40;

    /// Up to 18 months are months, up to five years quarters. No value: there are fewer than two spans, or too many.
    [[nodiscard]] static std::optional<ReportSpans> of(const ReportPeriod& period, const Calendar& calendar);

    [[nodiscard]] Length length() const { return m_length; }
    [[nodiscard]] std::size_t count() const { return m_firstDays.size(); }
    [[nodiscard]] const std::vector<CalendarDate>& firstDays() const { return m_firstDays; } ///< of whole spans

    /// What of the period lies in a span.
    [[nodiscard]] DateRange range(std::size_t span) const;

    /// Where an instant of the period lies. No value: it is of none.
    [[nodiscard]] std::optional<std::size_t> find(Instant instant) const;

private:
    ReportSpans() = default;

    Length m_length = Length::month;
    std::vector<CalendarDate> m_firstDays;
    std::vector<Instant> m_borders; ///< one more than there are spans
};

} // namespace Quillary
