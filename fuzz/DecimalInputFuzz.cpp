// Whatever is typed as a number is refused or read exactly, and an amount that was read comes back from its edit field.

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Money/DecimalInput.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryCore/Money/Quantity.h"

#include <array>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>

using namespace Quillary;

namespace {

const std::array<Locale, 6>& locales()
{
    static const std::array made = {
        Locale("en_US"), Locale("de_DE"), Locale("fr_CH"), Locale("sv_SE"), Locale("ar_EG"), Locale("en_IN")};
    return made;
}

/// What surrounds a number and what groups its digits says nothing about its value.
void requireSameWithout(const std::string& text, const std::optional<Decimal>& decimal, const Locale& locale)
{
    std::string spaced;
    for (const char byte : text) {
        spaced += byte;
        const bool isASCII = static_cast<unsigned char>(byte) < 0x80;
        spaced += isASCII ? " '\u00A0" : "";
    }
    precondition(DecimalInput::parse(spaced, locale) == decimal, "blanks and apostrophes only group");
    precondition(DecimalInput::parse("EUR " + text + " €", locale) == decimal, "a currency sign only surrounds");
}

void requireReadable(const Money& money, const Locale& locale)
{
    precondition(Money::typed(money.editingText(locale), money.currencyCode(), locale) == money,
                 "what an edit field shows is read back");
    precondition(Money::fromDecimalString(money.plainText(), money.currencyCode()) == money,
                 "what a machine is told is read back");
    precondition(!money.formatted(locale).empty(), "an amount is shown");
    precondition(Money::fromJSON(JSON::parse(money.json().dump()).value()) == money, "what is stored is read back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    const Locale& locale = locales().at(input.ConsumeIntegralInRange<std::size_t>(0, locales().size() - 1));
    const std::string code = input.PickValueInArray({"EUR", "JPY", "KWD", "CLF", "QQQ"});
    const std::string text = input.ConsumeRemainingBytesAsString();

    const auto decimal = DecimalInput::parse(text, locale);
    if (decimal) {
        precondition(Decimal::parse(decimal->text()) == decimal, "a decimal is plain text");
        precondition(decimal->negated().negated() == *decimal, "a sign is turned back");
        requireSameWithout(text, decimal, locale);
    }
    if (const auto money = Money::typed(text, code, locale)) {
        precondition(decimal.has_value(), "an amount is a number");
        requireReadable(*money, locale);
    }
    if (const auto quantity = Quantity::parse(text, locale)) {
        precondition(Quantity::parse(Quantity::format(*quantity, locale), locale) == quantity, "a quantity comes back");
    }
    if (const auto money = Money::fromDecimalString(text, code)) {
        requireReadable(*money, locale);
    }
    if (const auto rate = Percent::basisPoints(text)) {
        precondition(Percent::basisPoints(Percent::format(*rate)) == rate, "a rate comes back");
    }
    return 0;
}
