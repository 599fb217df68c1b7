#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Model/DocumentLanguage.h"

#include <memory>
#include <string>
#include <string_view>

namespace Quillary {

/// The days that an invoice bills, both included.
struct ServicePeriod
{
    CalendarDate start;
    CalendarDate end;

    friend bool operator==(const ServicePeriod&, const ServicePeriod&) = default;
};

/// Fills the placeholders for the billed period into a template's texts:
///
/// {month} "March", {month_year} "March 2026", {quarter} "Q1", {quarter_year} "Q1 2026" and {year} "2026" name what the
/// period begins in; with "next_" or "previous_" before them, what comes after or before it. {period}, {period_start}
/// and {period_end} are its days, {invoice_date} is the day of the invoice. Names are those of the document's language
/// (CLDR), dates are written as on its page. Any other brace stays as it stands.
namespace RecurringText {

[[nodiscard]] std::string fill(std::string_view text,
                               CalendarDate issueDate,
                               const ServicePeriod& period,
                               DocumentLanguage language,
                               const Locale& locale);

/// The same for many texts of one language, without making ICU's formats again for each.
class Filler
{
public:
    Filler(DocumentLanguage language, Locale locale);
    Filler(const Filler&) = delete;
    Filler& operator=(const Filler&) = delete;
    ~Filler();

    [[nodiscard]] std::string fill(std::string_view text, CalendarDate issueDate, const ServicePeriod& period) const;

private:
    struct Names;
    Locale m_locale;
    std::unique_ptr<Names> m_names;
};

} // namespace RecurringText

} // namespace Quillary
