#include "QuillaryUI/Look/Formats.h"

#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Quantity.h"

#include <QStringList>

#include <unicode/localpointer.h>
#include <unicode/unum.h>

#include <array>
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

namespace {

QString percentSign(const Locale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUNumberFormatPointer format(
        unum_open(UNUM_PERCENT, nullptr, 0, locale.identifier().c_str(), nullptr, &status));
    std::array<char16_t, 8> sign{};
    const std::int32_t length =
        U_SUCCESS(status)
            ? unum_getTextAttribute(
                  format.getAlias(), UNUM_POSITIVE_SUFFIX, sign.data(), std::int32_t(sign.size()), &status)
            : 0;
    // Where the sign stands in front, as in Turkish, it is typed behind all the same.
    return U_SUCCESS(status) && length > 0 ? QString::fromUtf16(sign.data(), length) : QStringLiteral("%");
}

} // namespace

Formats::Formats(Locale locale, Calendar calendar)
    : m_locale(std::move(locale))
    , m_calendar(std::move(calendar))
    , m_percentSign(percentSign(m_locale))
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

QString Formats::percent(std::int32_t basisPoints) const
{
    constexpr int digits = 2;
    return text(m_locale.formatDecimal(basisPoints, digits, 0)) + m_percentSign;
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
