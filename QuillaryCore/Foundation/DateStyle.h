#pragma once

#include "QuillaryCore/Foundation/Instant.h"

#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace Quillary {

/// How a locale writes a day: ICU's medium date format in the Gregorian calendar, taken apart once.
///
/// For private use by `Locale`: needs ICU's headers.
class DateStyle
{
public:
    explicit DateStyle(const icu::Locale& locale);

    [[nodiscard]] std::string text(CalendarDate date) const;

private:
    /// A number, the month's name, or a text between them.
    struct Part
    {
        enum class Kind { text, day, month, monthName, year };

        Kind kind = Kind::text;
        std::string text;
        unsigned leastDigits = 1;
    };

    bool learnParts();
    bool learnSymbols(const icu::Locale& locale);
    void appendNumber(std::string& out, unsigned number, unsigned leastDigits) const;
    [[nodiscard]] std::string written(CalendarDate date) const;
    [[nodiscard]] std::string asked(CalendarDate date) const;

    std::unique_ptr<icu::SimpleDateFormat> m_format;
    bool m_isPlain = false; ///< false: ICU does something that this class does not know and has to be asked
    std::vector<Part> m_parts;
    std::array<std::string, 12> m_monthNames;
    std::array<std::string, 10> m_digits;
};

} // namespace Quillary
