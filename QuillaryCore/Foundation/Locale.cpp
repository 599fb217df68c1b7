#include "QuillaryCore/Foundation/Locale.h"

#include "QuillaryCore/Foundation/DateStyle.h"
#include "QuillaryCore/Foundation/NumberStyle.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"

#include <fmt/format.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/locid.h>
#include <unicode/numfmt.h>
#include <unicode/ucurr.h>
#include <unicode/ures.h>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

std::string utf8(const icu::UnicodeString& text)
{
    std::string result;
    return text.toUTF8String(result);
}

bool isLetters(std::string_view text)
{
    return std::ranges::all_of(text,
                               [](char byte) { return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z'); });
}

/// Whether ICU has data of a language. Opening them costs a fiftieth of listing all locales.
bool isKnownLanguage(const char* language)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UResourceBundle, decltype(&ures_close)> data(ures_open(nullptr, language, &status),
                                                                       &ures_close);
    return *language != '\0' && status == U_ZERO_ERROR; // other successes: ICU fell back to another language
}

/// The script that the C library's locale names give after "@", as in "sr_RS@latin"; empty for any other addition.
std::string_view scriptOfModifier(std::string_view identifier)
{
    const std::string_view modifier = identifier.substr(std::min(identifier.find('@'), identifier.size()));
    if (modifier == "@latin") {
        return "Latn";
    }
    return modifier == "@cyrillic" ? "Cyrl" : "";
}

/// Language, script and region as ICU knows them; encodings, calendars and other additions are left behind.
icu::Locale resolved(std::string_view identifier)
{
    constexpr std::size_t longestName = 60;
    const std::string_view name = identifier.substr(0, identifier.find_first_of(".@"));
    // ICU makes "en_US_POSIX" of "C" and "POSIX", which say no more than that nothing was chosen.
    if (name.size() > longestName || name == "C" || name == "POSIX" || name.find('\0') != std::string_view::npos) {
        return {"en"};
    }
    const icu::Locale asked = icu::Locale::createCanonical(std::string(name).c_str());
    if (asked.isBogus() != 0 || !isKnownLanguage(asked.getLanguage())) {
        return {"en"};
    }
    std::string result = asked.getLanguage();
    const std::string_view modifier = scriptOfModifier(identifier);
    for (const std::string_view part :
         {modifier.empty() ? std::string_view(asked.getScript()) : modifier, std::string_view(asked.getCountry())}) {
        if (!part.empty()) {
            result += '_';
            result += part;
        }
    }
    if (std::string_view(asked.getName()) == "en_US_POSIX") {
        result += "_POSIX";
    }
    return {result.c_str()};
}

using NumberFormatMaker = icu::NumberFormat* (*)(const icu::Locale&, UErrorCode&);

/// ICU's number format of a locale. This older of its two interfaces is taken because the newer one (ICU 72) misses the
/// currency pattern of a few locales, such as en_CH.
std::unique_ptr<icu::DecimalFormat>
madeFormat(NumberFormatMaker make, const icu::Locale& locale, int minimumFraction, int maximumFraction)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> format(make(locale, status));
    auto* decimals = dynamic_cast<icu::DecimalFormat*>(format.get());
    precondition(U_SUCCESS(status) != 0 && decimals != nullptr, "ICU's data is installed");
    format.release(); // NOLINT(bugprone-unused-return-value): `decimals` is the same object
    std::unique_ptr<icu::DecimalFormat> result(decimals);
    result->setMinimumFractionDigits(minimumFraction);
    result->setMaximumFractionDigits(maximumFraction);
    // Some locales group only from five digits on ("1234,50" in Spanish); this interface has to be told to look.
    result->setMinimumGroupingDigits(UNUM_MINIMUM_GROUPING_DIGITS_AUTO);
    return result;
}

/// Three letters and a count below 256 in one word; letters in either case are one currency.
std::uint32_t currencyKey(std::string_view letters, int fractionDigits)
{
    constexpr std::uint32_t upperCase = 0xDF;
    std::uint32_t key = 0;
    for (const char letter : letters) {
        key = (key << 8U) | (static_cast<unsigned char>(letter) & upperCase);
    }
    return (key << 8U) | static_cast<std::uint32_t>(fractionDigits);
}

/// One number format of the locale: by hand where its style is known, else ICU's.
struct NumberFormat
{
    std::uint32_t key = 0;
    std::unique_ptr<icu::DecimalFormat> format;
    std::optional<NumberStyle> style;

    [[nodiscard]] std::string text(std::int64_t unscaled, int scale, int minimumFraction) const
    {
        if (style) {
            return style->text(unscaled, scale, minimumFraction);
        }
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeString text;
        format->format(icu::StringPiece(fmt::format("{}E-{}", unscaled, scale)), text, nullptr, status);
        precondition(U_SUCCESS(status) != 0, "ICU formats every number");
        return utf8(text);
    }
};

/// The few formats that a program uses, found by a short walk.
class NumberFormats
{
public:
    [[nodiscard]] const NumberFormat* find(std::uint32_t key) const
    {
        const auto found = std::ranges::find(m_formats, key, &NumberFormat::key);
        return found == m_formats.end() ? nullptr : &*found;
    }

    const NumberFormat& add(NumberFormat format)
    {
        // Currency codes may come from outside: however many there are, memory stays bounded.
        constexpr std::size_t mostFormats = 64;
        if (m_formats.size() >= mostFormats) {
            m_formats.clear();
        }
        return m_formats.emplace_back(std::move(format));
    }

private:
    std::vector<NumberFormat> m_formats;
};

} // namespace

struct Locale::Formats
{
    explicit Formats(const icu::Locale& resolvedLocale)
        : locale(resolvedLocale)
        , identifier(resolvedLocale.getName())
    {
        UErrorCode status = U_ZERO_ERROR;
        const icu::DecimalFormatSymbols symbols(locale, status);
        precondition(U_SUCCESS(status) != 0, "ICU's data is installed");
        decimalSeparator = utf8(symbols.getConstSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol));
        groupingSeparator = utf8(symbols.getConstSymbol(icu::DecimalFormatSymbols::kGroupingSeparatorSymbol));
    }

    icu::Locale locale;
    std::string identifier;
    std::string decimalSeparator;
    std::string groupingSeparator;
    std::unique_ptr<DateStyle> dates;
    NumberFormats decimals;
    NumberFormats currencies;
};

Locale::Locale(std::string_view identifier)
    : m_formats(std::make_unique<Formats>(resolved(identifier)))
{
}

Locale::Locale(const Locale& other)
    : m_formats(std::make_unique<Formats>(other.m_formats->locale))
{
}

Locale& Locale::operator=(const Locale& other)
{
    if (this != &other) {
        *this = Locale(other);
    }
    return *this;
}

Locale::Locale(Locale&&) noexcept = default;
Locale& Locale::operator=(Locale&&) noexcept = default;
Locale::~Locale() = default;

const std::string& Locale::identifier() const
{
    return m_formats->identifier;
}

std::string Locale::languageCode() const
{
    return m_formats->locale.getLanguage();
}

std::string Locale::regionCode() const
{
    return m_formats->locale.getCountry();
}

const std::string& Locale::decimalSeparator() const
{
    return m_formats->decimalSeparator;
}

const std::string& Locale::groupingSeparator() const
{
    return m_formats->groupingSeparator;
}

std::string Locale::formatDecimal(std::int64_t unscaled, int scale, int minimumFraction) const
{
    precondition(0 <= minimumFraction && minimumFraction <= scale && scale <= NumberStyle::largestScale,
                 "a number has up to 18 fraction digits");
    const auto key = static_cast<std::uint32_t>(scale * 100 + minimumFraction);
    const NumberFormat* known = m_formats->decimals.find(key);
    if (known == nullptr) {
        const NumberFormatMaker make = &icu::NumberFormat::createInstance;
        const auto allDigits = madeFormat(make, m_formats->locale, scale, scale);
        known = &m_formats->decimals.add({key,
                                          madeFormat(make, m_formats->locale, minimumFraction, scale),
                                          NumberStyle::learned(*allDigits, scale)});
    }
    return known->text(unscaled, scale, minimumFraction);
}

std::string Locale::formatCurrency(std::int64_t minorUnits, int fractionDigits, std::string_view currencyCode) const
{
    precondition(0 <= fractionDigits && fractionDigits <= NumberStyle::largestScale,
                 "a number has up to 18 fraction digits");
    if (currencyCode.size() != 3 || !isLetters(currencyCode)) {
        return fmt::format("{}\u00A0{}", currencyCode, formatDecimal(minorUnits, fractionDigits, fractionDigits));
    }
    const auto key = currencyKey(currencyCode, fractionDigits);
    const NumberFormat* known = m_formats->currencies.find(key);
    if (known == nullptr) {
        const NumberFormatMaker make = &icu::NumberFormat::createCurrencyInstance;
        auto format = madeFormat(make, m_formats->locale, fractionDigits, fractionDigits);
        icu::UnicodeString code = icu::UnicodeString::fromUTF8(upperCasedASCII(currencyCode));
        UErrorCode status = U_ZERO_ERROR;
        format->setCurrency(code.getTerminatedBuffer(), status);
        precondition(U_SUCCESS(status) != 0, "three letters make a currency");
        // The currency brings its own digits; what the caller says counts.
        format->setMinimumFractionDigits(fractionDigits);
        format->setMaximumFractionDigits(fractionDigits);
        auto style = NumberStyle::learned(*format, fractionDigits);
        known = &m_formats->currencies.add({key, std::move(format), std::move(style)});
    }
    return known->text(minorUnits, fractionDigits, fractionDigits);
}

std::string Locale::formatDate(CalendarDate date) const
{
    auto& dates = m_formats->dates;
    if (dates == nullptr) {
        dates = std::make_unique<DateStyle>(m_formats->locale);
    }
    return dates->text(date);
}

std::string Locale::countryName(std::string_view countryCode) const
{
    if (countryCode.size() != 2 || !isLetters(countryCode)) {
        return std::string(countryCode);
    }
    const icu::Locale country("", upperCasedASCII(countryCode).c_str());
    icu::UnicodeString name;
    return utf8(country.getDisplayCountry(m_formats->locale, name));
}

std::string Locale::currencyName(std::string_view currencyCode) const
{
    if (currencyCode.size() != 3 || !isLetters(currencyCode)) {
        return std::string(currencyCode);
    }
    const std::string upperCased = upperCasedASCII(currencyCode);
    icu::UnicodeString code = icu::UnicodeString::fromUTF8(upperCased);
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    const UChar* name = ucurr_getName(
        code.getTerminatedBuffer(), m_formats->identifier.c_str(), UCURR_LONG_NAME, nullptr, &length, &status);
    return U_SUCCESS(status) != 0 ? utf8(icu::UnicodeString(name, length)) : upperCased;
}

} // namespace Quillary
