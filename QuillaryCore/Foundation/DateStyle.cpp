#include "QuillaryCore/Foundation/DateStyle.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <unicode/dcfmtsym.h>
#include <unicode/dtfmtsym.h>
#include <unicode/gregocal.h>

#include <algorithm>
#include <limits>
#include <span>

namespace Quillary {

namespace {

std::string utf8(const icu::UnicodeString& text)
{
    std::string result;
    return text.toUTF8String(result);
}

std::unique_ptr<icu::SimpleDateFormat> mediumFormat(icu::Locale locale)
{
    UErrorCode status = U_ZERO_ERROR;
    locale.setKeywordValue("calendar", "gregorian", status);
    std::unique_ptr<icu::DateFormat> format(icu::DateFormat::createDateInstance(icu::DateFormat::kMedium, locale));
    auto* simple = dynamic_cast<icu::SimpleDateFormat*>(format.get());
    precondition(simple != nullptr, "ICU's data is installed");
    format.release(); // NOLINT(bugprone-unused-return-value): `simple` is the same object
    std::unique_ptr<icu::SimpleDateFormat> result(simple);
    icu::GregorianCalendar calendar(*icu::TimeZone::getGMT(), locale, status);
    calendar.setGregorianChange(std::numeric_limits<double>::lowest(), status); // one calendar for every year
    result->setCalendar(calendar);
    return result;
}

} // namespace

DateStyle::DateStyle(const icu::Locale& locale)
    : m_format(mediumFormat(locale))
{
    m_isPlain = learnParts() && learnSymbols(locale);
    // Believed only if it holds for every month, with one and two digits.
    for (unsigned month = 1; m_isPlain && month <= 12; ++month) {
        for (const unsigned day : {1U, 28U}) {
            const CalendarDate date{std::chrono::year(2025), std::chrono::month(month), std::chrono::day(day)};
            m_isPlain = m_isPlain && written(date) == asked(date);
        }
    }
}

bool DateStyle::learnParts()
{
    icu::UnicodeString pattern;
    m_format->toPattern(pattern);
    constexpr char16_t quote = u'\'';
    bool isQuoted = false;
    for (std::int32_t index = 0; index < pattern.length();) {
        const char16_t unit = pattern[index];
        const bool isLetter = (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
        std::int32_t end = index + 1;
        if (unit == quote && end < pattern.length() && pattern[end] == quote) {
            m_parts.push_back({Part::Kind::text, "'", 0});
            ++end;
        } else if (unit == quote) {
            isQuoted = !isQuoted;
        } else if (isQuoted || !isLetter) {
            end = pattern.moveIndex32(index, 1);
            m_parts.push_back({Part::Kind::text, utf8(pattern.tempSubStringBetween(index, end)), 0});
        } else {
            while (end < pattern.length() && pattern[end] == unit) {
                ++end;
            }
            const auto count = static_cast<unsigned>(end - index);
            if (unit == u'y' && count != 2) {
                m_parts.push_back({Part::Kind::year, {}, count});
            } else if (unit == u'M' && count <= 3) {
                m_parts.push_back({count == 3 ? Part::Kind::monthName : Part::Kind::month, {}, count});
            } else if (unit == u'd') {
                m_parts.push_back({Part::Kind::day, {}, count});
            } else {
                return false;
            }
        }
        index = end;
    }
    return true;
}

bool DateStyle::learnSymbols(const icu::Locale& locale)
{
    std::int32_t count = 0;
    const icu::UnicodeString* months = m_format->getDateFormatSymbols()->getMonths(
        count, icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::ABBREVIATED);
    if (count != static_cast<std::int32_t>(m_monthNames.size())) {
        return false;
    }
    std::ranges::transform(std::span(months, m_monthNames.size()), m_monthNames.begin(), utf8);
    UErrorCode status = U_ZERO_ERROR;
    const icu::DecimalFormatSymbols symbols(locale, status);
    for (std::size_t digit = 0; digit < m_digits.size(); ++digit) {
        m_digits[digit] = utf8(symbols.getConstDigitSymbol(static_cast<std::int32_t>(digit)));
    }
    return U_SUCCESS(status) != 0;
}

void DateStyle::appendNumber(std::string& out, unsigned number, unsigned leastDigits) const
{
    unsigned divisor = 1;
    for (unsigned count = 1; count < leastDigits || divisor <= number / 10; ++count) {
        divisor *= 10;
    }
    for (; divisor > 0; divisor /= 10) {
        out += m_digits[number / divisor % 10];
    }
}

std::string DateStyle::written(CalendarDate date) const
{
    const auto month = static_cast<unsigned>(date.month());
    std::string result;
    for (const Part& part : m_parts) {
        switch (part.kind) {
        case Part::Kind::text:
            result += part.text;
            break;
        case Part::Kind::day:
            appendNumber(result, static_cast<unsigned>(date.day()), part.leastDigits);
            break;
        case Part::Kind::month:
            appendNumber(result, month, part.leastDigits);
            break;
        case Part::Kind::monthName:
            result += m_monthNames[month - 1];
            break;
        case Part::Kind::year:
            appendNumber(result, static_cast<unsigned>(static_cast<int>(date.year())), part.leastDigits);
            break;
        }
    }
    return result;
}

std::string DateStyle::asked(CalendarDate date) const
{
    const auto noon = std::chrono::sys_days(date).time_since_epoch() + std::chrono::hours(12);
    icu::UnicodeString text;
    m_format->format(static_cast<double>(std::chrono::milliseconds(noon).count()), text);
    return utf8(text);
}

std::string DateStyle::text(CalendarDate date) const
{
    const bool isPlainDate = date.ok() && date.year() >= std::chrono::year(1);
    return m_isPlain && isPlainDate ? written(date) : asked(date);
}

} // namespace Quillary
