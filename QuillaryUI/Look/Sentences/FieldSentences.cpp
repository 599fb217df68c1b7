#include "QuillaryUI/Look/Sentences/Sentences.h"

#include <QCoreApplication>

namespace Quillary::CoreText {

namespace {

using enum Value;

/// What is typed into a field: `%1` in “quotes” is the field's name, which the forms exchange for its label.
constexpr SentencePattern patterns[] = {
    {QT_TRANSLATE_NOOP("Core", "“%1” is too long: at most %2 characters."), {own, figure}},
    {QT_TRANSLATE_NOOP("Core", "“%1” must be true or false.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” must be a plain number such as 12.5.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” must be a whole number from %2 to %3."), {own, figure, figure}},
    {QT_TRANSLATE_NOOP("Core", "“%1” is too large for a %2: at most %3."), {own, word, figure}},
    {QT_TRANSLATE_NOOP("Core", "“%1” can't be negative: a %2 is 0 or more."), {own, word}},
    {QT_TRANSLATE_NOOP("Core", "“%1” is too large: a quantity is at most %2."), {own, figure}},
    {QT_TRANSLATE_NOOP("Core",
                       "“%1” must be a percentage from 0 to 100 with at most two decimals, such as 19 or 5.5.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” must be a date such as 2026-03-31.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” has too many entries: at most %2.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is missing.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” “%2” is there already.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” must be an ISO currency code such as EUR.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” can't become %2: the price has more decimals than it.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” can't become %2: the hourly rate or the late fee has more decimals than it.")},
    {QT_TRANSLATE_NOOP("Core",
                       "“%1” isn't known. `quillary unit list` shows your own units; hour, day and piece are usual.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is none of your tax rates: %2."), {own, list}},
    {QT_TRANSLATE_NOOP("Core", "“%1” must be a code of UN/ECE Recommendation 20 such as HUR or C62.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” must be intro or outro.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” must be one of %2.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is read from a file.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” must be a colour written as #RRGGBB, such as #1F4E8C.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” isn't a UPI ID such as name@bank.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” names “%2”, which is no unit of ours.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” must be a two-letter ISO country code such as DE.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” must be an email address such as name@example.com.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” doesn't have the form of a VAT ID, such as ATU12345678 or DE123456789.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” isn't a valid IBAN: its check digits or its length are wrong.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” isn't a valid BIC: it has 8 or 11 characters, such as COBADEFFXXX.")},
    {QT_TRANSLATE_NOOP("Core", "Give the client a name: “name”, or “first_name” and “last_name”.")},
    {QT_TRANSLATE_NOOP("Core", "Give the contact person a name or an email address.")},
    // drafts
    {QT_TRANSLATE_NOOP("Core", "“%1” belongs to invoices: a %2 asks for no payment."), {own, word}},
    {QT_TRANSLATE_NOOP("Core", "“%1” belongs to quotes.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is before the quote's own date.")},
    {QT_TRANSLATE_NOOP("Core",
                       "“%1” must be a date such as 2026-03-31, a period such as 2026-03-01..2026-03-31, or today, "
                       "yesterday, invoice_date, this_week, last_week, this_month or last_month.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” holds too many.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” names line %2; there are %3 lines."), {figure}},
    {QT_TRANSLATE_NOOP("Core", "“%1” is needed: “%2” is priced in %3, the document is in %4.")},
    {QT_TRANSLATE_NOOP("Core",
                       "“%1” isn't known. Use hour, day, week, month, year, minute, piece, flat rate, page or word, "
                       "another usual unit such as kilogram or metre, or one of the user's own units.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” needs a document without tax: set tax_exempt as well.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” needs a client.")},
    {QT_TRANSLATE_NOOP("Core", "The last invoice, %1, is in %2; this document is in %3.")},
    {QT_TRANSLATE_NOOP("Core", "%1 has no earlier invoice to copy.")},
    {QT_TRANSLATE_NOOP("Core", "Give “discount_percent” or “discount_amount”, not both.")},
    {QT_TRANSLATE_NOOP("Core", "The currency can't become %1: the price %2 has more decimals than it."), {own, figure}},
    {QT_TRANSLATE_NOOP("Core", "The currency can't become %1: the discount %2 has more decimals than it."),
     {own, figure}},
    {QT_TRANSLATE_NOOP("Core", "The currency can't become %1: the fee %2 has more decimals than it."), {own, figure}},
    {QT_TRANSLATE_NOOP(
        "Core",
        "The currency can't become %1: line %2 (“%3”) bills tracked time, which is priced in %4. Give its price in %5 "
        "in the same call (change_lines with unit_price), remove the line first, or set “currency” to %6.")},
    {QT_TRANSLATE_NOOP(
        "Core",
        "The currency can't become %1: line %2 (“%3”) comes from the catalog, where it is priced in %4. Give its price "
        "in %5 in the same call (change_lines with unit_price), remove the line first, or set “currency” to %6.")},
    {QT_TRANSLATE_NOOP("Core", "A line can bill a million hours at most.")},
    {QT_TRANSLATE_NOOP("Core", "Time goes on invoices: no other document bills it.")},
    {QT_TRANSLATE_NOOP("Core", "The invoice has no client, so it can't be said whose time it bills.")},
    {QT_TRANSLATE_NOOP("Core", "%1 has no unbilled time like that.")},
    {QT_TRANSLATE_NOOP("Core", "%1 has no unbilled time.")},
    {QT_TRANSLATE_NOOP("Core",
                       "The hourly rate is in %1, this document in %2. Set the document's currency to %3, or add the "
                       "hours with add_lines and their price.")},
    {QT_TRANSLATE_NOOP("Core",
                       "%1 is a template, which only the user changes, in Quillary. The invoices made from it can be "
                       "changed while they are drafts."),
     {sentence}},
    {QT_TRANSLATE_NOOP("Core",
                       "%1 is no draft any more, so it can't be changed. To correct an invoice that was sent, make a "
                       "credit note for it and a new invoice."),
     {word}},
    {QT_TRANSLATE_NOOP("Core", "%1 is no draft any more, so it can't be changed."), {word}},
    {QT_TRANSLATE_NOOP("Core",
                       "The client can't become %1: line %2 (“%3”) bills tracked time of %4. Remove such lines first, "
                       "in a call of its own (remove_lines), then change the client.")},
    {QT_TRANSLATE_NOOP("Core", "There's no client %1. find_clients lists them, create_client adds one."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "There's no project %1."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "There's no catalog item %1. find_catalog_items lists them."), {sentence}},
    // emails
    {QT_TRANSLATE_NOOP("Core", "%1 is no email address."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "There is no address in the list of recipients.")},
    {QT_TRANSLATE_NOOP("Core", "No email address is known: fill it in in the mail program.")},
    {QT_TRANSLATE_NOOP("Core", "The client's address %1 is none that mail can go to: correct it in the mail program."),
     {sentence}},
    {QT_TRANSLATE_NOOP("Core", "The email still says %1, for which there is no value.")},
    {QT_TRANSLATE_NOOP("Core", "The text isn't readable as UTF-8.")},
    {QT_TRANSLATE_NOOP("Core", "An email needs a subject.")},
    {QT_TRANSLATE_NOOP("Core", "A subject is one line of text.")},
    {QT_TRANSLATE_NOOP("Core", "A subject has at most %1 characters."), {figure}},
    {QT_TRANSLATE_NOOP("Core", "The text of an email has at most %1 characters."), {figure}},
    // the lock
    {QT_TRANSLATE_NOOP("Core", "Take at least %1 characters; a few words are easy to remember and hard to guess.")},
    {QT_TRANSLATE_NOOP("Core", "That is too long for a passphrase.")},
    {QT_TRANSLATE_NOOP("Core", "That isn't the passphrase.")},
    {QT_TRANSLATE_NOOP("Core", "That isn't the passphrase. %1"), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "Try again in a second.")},
    {QT_TRANSLATE_NOOP("Core", "Try again in %1 seconds.")},
    {QT_TRANSLATE_NOOP("Core",
                       "There isn't enough memory to keep a passphrase safely. Close other programs, then try again.")},
    {QT_TRANSLATE_NOOP("Core",
                       "The lock in %1 can't be understood. Delete the file to go on without a passphrase; the library "
                       "stays as it is.")},
    // assistants
    {QT_TRANSLATE_NOOP("Core",
                       "The settings in %1 can't be understood, so AI assistants are turned off. Turn them on again to "
                       "begin with new settings; the file is kept.")},
    {QT_TRANSLATE_NOOP("Core", "%1 AI assistants are turned off until it can be read."), {sentence}},
};

} // namespace

std::span<const SentencePattern> fieldSentences()
{
    return patterns;
}

} // namespace Quillary::CoreText
