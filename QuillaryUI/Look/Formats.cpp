#include "QuillaryUI/Look/Formats.h"

#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Quantity.h"

#include <QStringList>

#include <chrono>
#include <utility>

namespace Quillary {

QString text(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

std::string utf8(const QString& text)
{
    return text.toStdString();
}

Formats::Formats(Locale locale, Calendar calendar)
    : m_locale(std::move(locale))
    , m_calendar(std::move(calendar))
{
}

QString Formats::money(std::int64_t minorUnits, std::string_view currencyCode) const
{
    return text(Money(minorUnits, currencyCode).formatted(m_locale));
}

QString Formats::sums(const std::map<std::string, std::int64_t, std::less<>>& byCurrency) const
{
    QStringList parts;
    for (const auto& [currency, minorUnits] : byCurrency) {
        parts.push_back(money(minorUnits, currency));
    }
    return parts.join(QStringLiteral(" · "));
}

QString Formats::amount(std::int64_t minorUnits, std::string_view currencyCode) const
{
    return text(Money(minorUnits, currencyCode).editingText(m_locale));
}

QString Formats::quantity(std::int64_t thousandths) const
{
    return text(Quantity::format(thousandths, m_locale));
}

QString Formats::date(const std::optional<Instant>& day) const
{
    return day ? text(m_locale.formatDate(m_calendar.date(*day))) : QString();
}

QDate Formats::qDate(Instant day) const
{
    const CalendarDate date = m_calendar.date(day);
    return {int(date.year()), int(unsigned(date.month())), int(unsigned(date.day()))};
}

Instant Formats::stored(QDate day) const
{
    return m_calendar.storedDay(std::chrono::year(day.year()) / day.month() / day.day());
}

} // namespace Quillary
