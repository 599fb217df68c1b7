#include "QuillaryCore/Schedules/RecurringText.h"

#include "QuillaryCore/Foundation/Placeholders.h"
#include "QuillaryCore/Foundation/Text.h"

#include <fmt/format.h>
#include <unicode/datefmt.h>
#include <unicode/gregocal.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <array>
#include <chrono>
#include <optional>
#include <utility>

namespace Quillary {

namespace {

using std::chrono::months;
using std::chrono::sys_days;

/// How ICU writes the first day of a month, a quarter or a year.
struct Form
{
    std::string_view word;
    const char* skeleton; ///< of ICU's date patterns: month, quarter and year standing alone
    int monthsPerStep;    ///< to what "next_" and "previous_" lead
};

constexpr std::array forms = {Form{"month", "LLLL", 1},
                              Form{"month_year", "yLLLL", 1},
                              Form{"quarter", "qqq", 3},
                              Form{"quarter_year", "yqqq", 3},
                              Form{"year", "y", 12}};

/// Takes a prefix off a word, if it bears it.
bool takeOff(std::string_view prefix, std::string_view& word)
{
    if (!word.starts_with(prefix)) {
        return false;
    }
    word.remove_prefix(prefix.size());
    return true;
}

} // namespace

/// ICU's formats, each made when it is first asked for.
struct RecurringText::Filler::Names
{
    icu::Locale locale;
    mutable std::array<std::unique_ptr<icu::DateFormat>, forms.size()> formats;

    [[nodiscard]] std::string text(std::size_t form, std::chrono::year_month month) const
    {
        std::unique_ptr<icu::DateFormat>& format = formats[form];
        if (format == nullptr) {
            UErrorCode status = U_ZERO_ERROR;
            format.reset(icu::DateFormat::createInstanceForSkeleton(forms[form].skeleton, locale, status));
            if (U_FAILURE(status) || format == nullptr) {
                return isoText(month / 1).substr(0, 7);
            }
            format->adoptTimeZone(icu::TimeZone::createTimeZone("UTC"));
        }
        const auto sinceEpoch = std::chrono::milliseconds(sys_days(month / 1).time_since_epoch());
        icu::UnicodeString written;
        std::string text;
        return format->format(static_cast<double>(sinceEpoch.count()), written).toUTF8String(text);
    }
};

RecurringText::Filler::Filler(DocumentLanguage language, Locale locale)
    : m_locale(std::move(locale))
    , m_names(std::make_unique<Names>(Names{.locale = icu::Locale(std::string(code(language)).c_str()), .formats = {}}))
{
}

RecurringText::Filler::~Filler() = default;

std::string
RecurringText::Filler::fill(std::string_view text, CalendarDate issueDate, const ServicePeriod& period) const
{
    return fillPlaceholders(text, [&](const std::string& written) -> std::optional<std::string> {
        const std::string lowerCased = lowerCasedASCII(written);
        std::string_view word = lowerCased;
        if (word == "invoice_date") {
            return m_locale.formatDate(issueDate);
        }
        if (word == "period_start") {
            return m_locale.formatDate(period.start);
        }
        if (word == "period_end") {
            return m_locale.formatDate(period.end);
        }
        if (word == "period") {
            return fmt::format("{} – {}", m_locale.formatDate(period.start), m_locale.formatDate(period.end));
        }
        const int direction = takeOff("next_", word) ? 1 : (takeOff("previous_", word) ? -1 : 0);
        for (std::size_t form = 0; form < forms.size(); ++form) {
            if (forms[form].word == word) {
                const std::chrono::year_month begun = period.start.year() / period.start.month();
                return m_names->text(form, begun + months(direction * forms[form].monthsPerStep));
            }
        }
        return std::nullopt;
    });
}

std::string RecurringText::fill(std::string_view text,
                                CalendarDate issueDate,
                                const ServicePeriod& period,
                                DocumentLanguage language,
                                const Locale& locale)
{
    return Filler(language, locale).fill(text, issueDate, period);
}

} // namespace Quillary
