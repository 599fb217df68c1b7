#include "QuillaryCore/Assistant/Operations/SettingWriter.h"

#include "QuillaryCore/Assistant/Operations/PartyFields.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Foundation/PlainText.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Model/Validation.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Money/SameFigure.h"
#include "QuillaryCore/Numbering/FileNameFormat.h"
#include "QuillaryCore/Numbering/NumberPatterns.h"
#include "QuillaryCore/Output/Color.h"
#include "QuillaryCore/Output/TemplateSettings.h"
#include "QuillaryCore/Schedules/TimeMath.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

using Words = std::span<const std::string_view>;

// By their stored numbers.
constexpr std::array<std::string_view, 5> taxLabels = {"vat", "gst", "sales_tax", "tax", "custom"};
constexpr std::array<std::string_view, 3> lateFeeKinds = {"none", "fixed", "percentage"};

/// The stored words of an enumeration whose first and last enumerators are known.
template <class Choice>
std::vector<std::string_view> storedWords(Choice last)
{
    std::vector<std::string_view> words;
    for (int value = 0; value <= static_cast<int>(last); ++value) {
        words.push_back(storedText(static_cast<Choice>(value)));
    }
    return words;
}

/// The words that a text setting is chosen from; none: it is free text.
std::vector<std::string_view> wordsOf(std::string_view name)
{
    if (name == "template") {
        return storedWords(TemplateDesign::compact);
    }
    if (name == "template_font") {
        return storedWords(TemplateFont::mono);
    }
    if (name == "logo_position") {
        return storedWords(LogoPosition::right);
    }
    if (name == "logo_size") {
        return storedWords(LogoSize::large);
    }
    if (name == "paper_size") {
        return storedWords(PaperSize::usLetter);
    }
    if (name == "language") {
        std::vector<std::string_view> codes;
        codes.reserve(allDocumentLanguages.size());
        for (const DocumentLanguage language : allDocumentLanguages) {
            codes.push_back(code(language));
        }
        return codes;
    }
    return {};
}

/// The words of a choice that is stored as a number; none: it is a number.
Words numberedWords(std::string_view name)
{
    if (name == "tax_label") {
        return taxLabels;
    }
    if (name == "late_fee_kind") {
        return lateFeeKinds;
    }
    return {};
}

bool isLongText(std::string_view name)
{
    return name.ends_with("_text") || name.ends_with("_note");
}

bool isFlag(std::string_view name)
{
    return name == "tax_exempt" || name.starts_with("show_");
}

} // namespace

JSON SettingWriter::typedValue(std::string_view name, std::string_view typed)
{
    const std::string word = lowerCasedASCII(trimmed(typed));
    if (isFlag(name) && (word == "yes" || word == "on" || word == "true")) {
        return true;
    }
    if (isFlag(name) && (word == "no" || word == "off" || word == "false")) {
        return false;
    }
    return typed;
}

std::optional<std::string_view> SettingWriter::choiceWord(std::string_view name, std::int16_t raw)
{
    const Words words = numberedWords(name);
    if (words.empty()) {
        return std::nullopt;
    }
    const auto index = static_cast<std::size_t>(std::max<std::int16_t>(raw, 0));
    return index < words.size() ? words[index] : words.front();
}

std::vector<std::string> SettingWriter::choices(std::string_view name)
{
    std::vector<std::string> words;
    for (const std::string_view word : wordsOf(name)) {
        words.emplace_back(word);
    }
    for (const std::string_view word : numberedWords(name)) {
        words.emplace_back(word);
    }
    if (name == "time_rounding_minutes") {
        for (const std::int64_t minutes : TimeMath::roundingChoices) {
            words.push_back(std::to_string(minutes));
        }
    }
    return name == "late_fee_from_level" ? std::vector<std::string>{"1", "2", "3"} : words;
}

bool SettingWriter::hasParagraphs(std::string_view name)
{
    return isLongText(name);
}

std::optional<NumberedKind> SettingWriter::numberedKind(std::string_view name)
{
    constexpr std::array<std::pair<std::string_view, NumberedKind>, 4> patterns = {
        {{"invoice_number_format", NumberedKind::invoice},
         {"quote_number_format", NumberedKind::quote},
         {"credit_note_number_format", NumberedKind::creditNote},
         {"client_number_format", NumberedKind::client}}};
    const auto* const found = std::ranges::find(patterns, name, &std::pair<std::string_view, NumberedKind>::first);
    return found == patterns.end() ? std::nullopt : std::optional(found->second);
}

void SettingWriter::write(std::string& value) const
{
    if (const std::optional<NumberedKind> kind = numberedKind(m_name)) {
        writePattern(*kind);
    } else if (m_name == "file_name_format") {
        writeFileName();
    } else if (m_name == "hidden_units") {
        writeHiddenUnits();
    } else if (m_name == "currency") {
        writeCurrency();
    } else if (m_name == "country") {
        setCountry(m_environment.context, m_business, countryArgument(m_arguments).value_or(""));
    } else {
        value = checked();
    }
}

void SettingWriter::write(bool& value) const
{
    const std::optional<bool> flag = m_arguments.flag(m_name);
    value = flag.value_or(value);
}

void SettingWriter::write(std::int16_t& value) const
{
    if (const Words words = numberedWords(m_name); !words.empty()) {
        const std::string word = oneOf(words);
        value = static_cast<std::int16_t>(std::ranges::find(words, std::string_view(word)) - words.begin());
        return;
    }
    const bool isLevel = m_name == "late_fee_from_level";
    const std::int64_t number =
        m_arguments.wholeNumber(m_name, isLevel ? 1 : 0, isLevel ? 3 : std::int64_t{Limits::paymentTermsDays})
            .value_or(0);
    if (m_name == "time_rounding_minutes" &&
        std::ranges::find(TimeMath::roundingChoices, number) == TimeMath::roundingChoices.end()) {
        m_arguments.refuse(m_name, fmt::format("must be one of {}.", fmt::join(TimeMath::roundingChoices, ", ")));
    }
    value = static_cast<std::int16_t>(number);
}

void SettingWriter::write(std::int32_t& value) const
{
    value = m_arguments.rate(m_name).value_or(0);
}

void SettingWriter::write(std::int64_t& value) const
{
    const bool isRate = m_name == "hourly_rate";
    value = m_arguments
                .amount(m_name,
                        isRate ? "rate" : "fee",
                        m_business.currencyCode,
                        Sign::notNegative,
                        isRate ? Limits::hourlyRateMinorUnits : Limits::lateFeeMinorUnits)
                .value_or(0);
}

void SettingWriter::write(Bytes& /*value*/) const
{
    m_arguments.refuse(m_name, "is read from a file.");
}

std::string SettingWriter::line() const
{
    return m_arguments.line(m_name, Limits::lineLength).value_or("");
}

std::string SettingWriter::oneOf(Words words) const
{
    const auto bare = [](std::string_view word) {
        return replacing(replacing(lowerCasedASCII(word), "-", ""), "_", "");
    };
    const std::string typed = line();
    for (const std::string_view word : words) {
        if (bare(word) == bare(typed)) {
            return std::string(word);
        }
    }
    m_arguments.refuse(m_name, fmt::format("must be one of {}.", fmt::join(words, ", ")));
}

std::optional<std::string> SettingWriter::choice() const
{
    const std::vector<std::string_view> words = wordsOf(m_name);
    return words.empty() ? std::nullopt : std::optional(oneOf(words));
}

/// What a business and a client have in common is checked where both are.
std::optional<std::string> SettingWriter::party() const
{
    if (m_name == "email") {
        return emailArgument(m_arguments);
    }
    if (m_name == "vat_id") {
        return vatIDArgument(m_arguments);
    }
    if (m_name == "iban") {
        return ibanArgument(m_arguments);
    }
    if (m_name == "bic") {
        return bicArgument(m_arguments);
    }
    return std::nullopt;
}

std::string SettingWriter::checked() const
{
    if (std::optional<std::string> chosen = choice()) {
        return std::move(*chosen);
    }
    if (std::optional<std::string> details = party()) {
        return std::move(*details);
    }
    if (m_name == "accent_color") {
        return color();
    }
    if (m_name == "upi_id") {
        return upi();
    }
    return isLongText(m_name) ? m_arguments.paragraphs(m_name, Limits::textLength).value_or("") : line();
}

std::string SettingWriter::color() const
{
    const std::string typed = line();
    const std::optional<Color> color = Color::parse(typed);
    if (!color && !typed.empty()) {
        m_arguments.refuse(m_name, "must be a colour written as #RRGGBB, such as #1F4E8C.");
    }
    return color ? color->hex() : "";
}

std::string SettingWriter::upi() const
{
    std::string typed = line();
    if (!typed.empty() && !Validation::isValidUPI(typed)) {
        m_arguments.refuse(m_name, "isn't a UPI ID such as name@bank.");
    }
    return typed;
}

void SettingWriter::writePattern(NumberedKind kind) const
{
    if (const auto problem = setFormat(kind, m_typed, m_business)) {
        throw AssistantError(problem->message());
    }
}

void SettingWriter::writeFileName() const
{
    if (const auto problem = FileNameFormat::validate(m_typed)) {
        throw AssistantError(problem->message());
    }
    m_business.fileNameFormat = m_typed;
}

void SettingWriter::writeHiddenUnits() const
{
    std::vector<std::string> codes;
    const std::string typed = line();
    for (const std::string_view piece : split(typed, ',')) {
        const std::string_view word = trimmed(piece);
        if (word.empty()) {
            continue;
        }
        const std::optional<std::string> code =
            Units::builtIn(word) != nullptr ? std::optional(std::string(word)) : Units::named(word);
        if (!code) {
            m_arguments.refuse(m_name, fmt::format("names {}, which is no unit of ours.", inQuotes(word)));
        }
        codes.push_back(*code);
    }
    Units::setHiddenUnits(m_business, codes);
}

/// The business's own amounts keep their figures: no rate of exchange is known here.
void SettingWriter::writeCurrency() const
{
    const std::string wanted = upperCasedASCII(line());
    if (!Currencies::isKnown(wanted)) {
        m_arguments.refuse(m_name, "must be an ISO currency code such as EUR.");
    }
    const auto rate = sameFigure(m_business.hourlyRateMinorUnits, m_business.currencyCode, wanted);
    const auto fee = sameFigure(m_business.lateFeeMinorUnits, m_business.currencyCode, wanted);
    if (!rate || !fee) {
        m_arguments.refuse(
            m_name, fmt::format("can't become {}: the hourly rate or the late fee has more decimals than it.", wanted));
    }
    m_business.hourlyRateMinorUnits = *rate;
    m_business.lateFeeMinorUnits = *fee;
    m_business.currencyCode = wanted;
}

} // namespace Quillary
