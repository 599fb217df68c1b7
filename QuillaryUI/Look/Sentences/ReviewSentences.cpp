#include "QuillaryUI/Look/Sentences/Sentences.h"

#include <QCoreApplication>

namespace Quillary::CoreText {

namespace {

using enum Value;

/// What a draft still needs, and the answers beside it.
constexpr SentencePattern patterns[] = {
    {QT_TRANSLATE_NOOP("Core", "No %1"), {word}},
    {QT_TRANSLATE_NOOP("Core", "Your business name is missing.")},
    {QT_TRANSLATE_NOOP("Core", "Your address is missing; invoices must show it.")},
    {QT_TRANSLATE_NOOP("Core", "Invoices in %1 must show your tax number or VAT ID."), {country}},
    {QT_TRANSLATE_NOOP("Core", "Your VAT ID is missing; VAT invoices must show it.")},
    {QT_TRANSLATE_NOOP("Core", "The %1 has no date."), {word}},
    {QT_TRANSLATE_NOOP("Core", "The %1 has no number."), {word}},
    {QT_TRANSLATE_NOOP("Core", "The quote's last day of validity has passed.")},
    {QT_TRANSLATE_NOOP("Core", "The %1's total is negative."), {word}},
    {QT_TRANSLATE_NOOP("Core", "Which invoice does the credit note correct?")},
    {QT_TRANSLATE_NOOP("Core", "The client has no name.")},
    {QT_TRANSLATE_NOOP("Core", "%1's address is missing; invoices must show it."), {word}},
    {QT_TRANSLATE_NOOP("Core", "Who is it for? The %1 needs a client."), {word}},
    {QT_TRANSLATE_NOOP("Core", "When was the work done (or delivered)?")},
    {QT_TRANSLATE_NOOP("Core", "%1 is usually billed in %2, and this %3 is in %4. Which should it be?"),
     {own, own, word, own}},
    {QT_TRANSLATE_NOOP("Core", "What should the %1 list, and at what price?"), {word}},
    {QT_TRANSLATE_NOOP("Core", "Line %1 (“%2”) has the quantity 0, so it bills nothing.")},
    {QT_TRANSLATE_NOOP("Core", "What should line %1 be called, and what does it cost?")},
    {QT_TRANSLATE_NOOP("Core", "What should line %1 be called?")},
    {QT_TRANSLATE_NOOP("Core", "What's the price for “%1” (line %2)?")},
    {QT_TRANSLATE_NOOP("Core", "The %1 is taxed, but line %2 (“%3”) bears no %4."), {word, own, own, word}},
    {QT_TRANSLATE_NOOP("Core", "The %1 is taxed, but lines %2 bear no %3."), {word, list, word}},
    {QT_TRANSLATE_NOOP("Core", "Line %1 (“%2”) bears no %3. Which rate applies?"), {own, own, word}},
    {QT_TRANSLATE_NOOP("Core", "Lines %1 bear no %2. Which rate applies?"), {list, word}},
    {QT_TRANSLATE_NOOP("Core", "The %1 is tax-exempt but doesn't say why."), {word}},
    {QT_TRANSLATE_NOOP("Core", "Reverse charge needs a client in another EU country; %1 is in %2."), {word, country}},
    {QT_TRANSLATE_NOOP("Core", "Reverse charge needs %1's VAT ID of another EU country."), {word}},
    {QT_TRANSLATE_NOOP("Core", "Reverse charge needs %1's VAT ID."), {word}},
    {QT_TRANSLATE_NOOP("Core", "Reverse charge needs your VAT ID.")},
    {QT_TRANSLATE_NOOP("Core", "The note says that the client is outside the EU; %1 is in %2."), {word, country}},
    {QT_TRANSLATE_NOOP("Core", "%1 is a business in %2 with a VAT ID. Use reverse charge (no VAT, with the note)?"),
     {word, country}},
    {QT_TRANSLATE_NOOP("Core",
                       "%1 is in %2. If they're a VAT-registered business, what's their VAT ID? (Then reverse charge "
                       "usually applies.)"),
     {word, country}},
    {QT_TRANSLATE_NOOP("Core", "%1 is a business outside the EU (%2). Invoice without %3, with the note?"),
     {word, country, word}},
    {QT_TRANSLATE_NOOP("Core", "%1% (%2)"), {figure, own}}, // a tax rate and its name
    {QT_TRANSLATE_NOOP("Core", "%1, as usual")},
    {QT_TRANSLATE_NOOP("Core", "%1, as it is")},
    {QT_TRANSLATE_NOOP("Core", "No, charge %1 as usual"), {word}},
    {QT_TRANSLATE_NOOP("Core", "Yes, without %1"), {word}},
};

} // namespace

std::span<const SentencePattern> reviewSentences()
{
    return patterns;
}

} // namespace Quillary::CoreText
