#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Money/Money.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <unicode/basictz.h>
#include <unicode/decimfmt.h>

#include <array>
#include <memory>
#include <random>
#include <string>
#include <vector>

// What a formatted amount, a day count and a JSON text cost beside the bare loop, the bare zone offset and the bare
// reader.

namespace Quillary {

namespace {

/// Amounts as invoices show them: a few cents to some ten thousands.
std::vector<std::int64_t> amounts()
{
    std::mt19937 random(1);
    std::vector<std::int64_t> result(1024);
    for (std::int64_t& amount : result) {
        amount = std::int64_t{1} << std::uniform_int_distribution(4, 22)(random);
        amount += std::uniform_int_distribution(0, 10'000)(random);
    }
    return result;
}

/// The floor: German euros and nothing else.
std::string germanEuros(std::int64_t amount)
{
    constexpr std::string_view sign = "\u00A0€";
    std::array<char, 48> buffer; // only what was written is read
    char* begin = buffer.data() + buffer.size() - sign.size();
    sign.copy(begin, sign.size());
    const auto prepend = [&](char byte) {
        *--begin = byte;
    };
    auto rest = static_cast<std::uint64_t>(amount < 0 ? -amount : amount);
    for (int place = 0; place < 3 || rest > 0; ++place) {
        if (place == 2) {
            prepend(',');
        } else if (place > 2 && (place - 2) % 3 == 0) {
            prepend('.');
        }
        prepend(static_cast<char>('0' + rest % 10));
        rest /= 10;
    }
    if (amount < 0) {
        prepend('-');
    }
    return {begin, buffer.data() + buffer.size()};
}

void moneyFloor(benchmark::State& state)
{
    const auto values = amounts();
    std::size_t index = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(germanEuros(values[index++ % values.size()]));
    }
}

void moneyFormatted(benchmark::State& state)
{
    const auto values = amounts();
    const Locale locale("de_DE");
    std::vector<Money> money;
    for (const std::int64_t value : values) {
        money.emplace_back(value, "EUR");
    }
    std::size_t index = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(money[index++ % money.size()].formatted(locale));
    }
}

void moneyFormattedByICU(benchmark::State& state)
{
    const auto values = amounts();
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createCurrencyInstance(icu::Locale("de_DE"), status));
    std::size_t index = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        icu::UnicodeString text;
        std::string result;
        format->format(static_cast<double>(values[index++ % values.size()]) / 100, text);
        benchmark::DoNotOptimize(text.toUTF8String(result));
    }
}

void firstFormatOfALocale(benchmark::State& state)
{
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(Money(123456, "EUR").formatted(Locale("de_DE")));
    }
}

void dateFormatted(benchmark::State& state)
{
    const Locale locale("de_DE");
    const CalendarDate date = std::chrono::year(2025) / 3 / 7;
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(locale.formatDate(date));
    }
}

void daysFloor(benchmark::State& state)
{
    const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone("Europe/Berlin"));
    double now = 1'741'340'000'000;
    for ([[maybe_unused]] const auto iteration : state) {
        std::int32_t standard = 0;
        std::int32_t saving = 0;
        UErrorCode status = U_ZERO_ERROR;
        zone->getOffset(now, 0, standard, saving, status);
        benchmark::DoNotOptimize((static_cast<std::int64_t>(now) + standard + saving) / 86'400'000);
        now += 1000;
    }
}

void daysOfAnInstant(benchmark::State& state)
{
    const Calendar calendar("Europe/Berlin");
    Instant now{std::chrono::milliseconds(1'741'340'000'000)};
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(calendar.date(now));
        now += std::chrono::seconds(1);
    }
}

std::string jsonText()
{
    JSON::Array lines;
    for (int line = 0; line < 20; ++line) {
        lines.push_back(JSON::object({{"title", "Beratung und Größe"},
                                      {"quantity", JSON::Number{"2.50"}},
                                      {"price", line * 1000},
                                      {"note", nullptr}}));
    }
    return JSON::object({{"id", 7}, {"lines", lines}}).dump();
}

/// Counts what it is told, builds nothing.
class Counter
{
public:
    // The names are the reader's.
    bool null() { return count(); }
    bool boolean(bool) { return count(); }
    bool number_integer(std::int64_t) { return count(); }   // NOLINT(readability-identifier-naming)
    bool number_unsigned(std::uint64_t) { return count(); } // NOLINT(readability-identifier-naming)
    bool number_float(double, const std::string&)           // NOLINT(readability-identifier-naming)
    {
        return count();
    }
    bool string(std::string&) { return count(); }
    bool binary(nlohmann::json::binary_t&) { return count(); }
    bool start_object(std::size_t) { return count(); } // NOLINT(readability-identifier-naming)
    bool key(std::string&) { return count(); }
    bool end_object() { return count(); }             // NOLINT(readability-identifier-naming)
    bool start_array(std::size_t) { return count(); } // NOLINT(readability-identifier-naming)
    bool end_array() { return count(); }              // NOLINT(readability-identifier-naming)
    // NOLINTNEXTLINE(readability-identifier-naming)
    static bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&) { return false; }

private:
    bool count()
    {
        ++m_count;
        return true;
    }
    std::size_t m_count = 0;
};

void jsonParseFloor(benchmark::State& state)
{
    const std::string text = jsonText();
    for ([[maybe_unused]] const auto iteration : state) {
        Counter counter;
        benchmark::DoNotOptimize(nlohmann::json::sax_parse(text, &counter));
    }
}

void jsonParse(benchmark::State& state)
{
    const std::string text = jsonText();
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(JSON::parse(text));
    }
}

void jsonDump(benchmark::State& state)
{
    const JSON value = JSON::parse(jsonText()).value();
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(value.dump());
    }
}

void foldedASCII(benchmark::State& state)
{
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(folded("Invoice 2025-0042 for Acme Ltd"));
    }
}

void foldedAccents(benchmark::State& state)
{
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(folded("Rechnung 2025-0042 für Schröder"));
    }
}

BENCHMARK(moneyFloor);
BENCHMARK(moneyFormatted);
BENCHMARK(moneyFormattedByICU);
BENCHMARK(firstFormatOfALocale);
BENCHMARK(dateFormatted);
BENCHMARK(daysFloor);
BENCHMARK(daysOfAnInstant);
BENCHMARK(jsonParseFloor);
BENCHMARK(jsonParse);
BENCHMARK(jsonDump);
BENCHMARK(foldedASCII);
BENCHMARK(foldedAccents);

} // namespace

} // namespace Quillary
