#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/Locale.h"

#include <QDate>
#include <QString>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

[[nodiscard]] QString text(std::string_view utf8);
[[nodiscard]] std::string utf8(const QString& text);

/// Numbers and dates as the desktop's locale writes them.
class Formats
{
public:
    Formats(Locale locale, Calendar calendar);

    /// An amount with its currency. Unit: minor units.
    [[nodiscard]] QString money(std::int64_t minorUnits, std::string_view currencyCode) const;
    /// Amounts of several currencies beside one another: "€1,190.00 · US$20.00". Empty: none.
    [[nodiscard]] QString sums(const std::map<std::string, std::int64_t, std::less<>>& byCurrency) const;
    /// The amount alone, for an edit field.
    [[nodiscard]] QString amount(std::int64_t minorUnits, std::string_view currencyCode) const;
    [[nodiscard]] QString quantity(std::int64_t thousandths) const;
    /// "7.5%", or with the space that the locale puts before the sign: it never breaks there. Unit: basis points.
    [[nodiscard]] QString percent(std::int32_t basisPoints) const;
    /// Empty without a date.
    [[nodiscard]] QString date(const std::optional<Instant>& day) const;

    [[nodiscard]] QDate qDate(Instant day) const;
    [[nodiscard]] Instant stored(QDate day) const;

    [[nodiscard]] const Locale& locale() const { return m_locale; }
    [[nodiscard]] const Calendar& calendar() const { return m_calendar; }

private:
    Locale m_locale;
    Calendar m_calendar;
    QString m_percentSign; ///< with the space before it
};

} // namespace Quillary
