#include "QuillaryUI/Look/Sentences/Sentences.h"

#include <QCoreApplication>

namespace Quillary::CoreText {

namespace {

using enum Value;

/// What is done to documents.
constexpr SentencePattern patterns[] = {
    // names
    {QT_TRANSLATE_NOOP("Core", "Recurring Invoice %1"), {word}},
    {QT_TRANSLATE_NOOP("Core", "Invoice %1"), {word}},
    {QT_TRANSLATE_NOOP("Core", "Quote %1"), {word}},
    {QT_TRANSLATE_NOOP("Core", "Credit Note %1"), {word}},
    {QT_TRANSLATE_NOOP("Core", "Document %1"), {word}},
    {QT_TRANSLATE_NOOP("Core", "“%1”")},
    // status
    {QT_TRANSLATE_NOOP("Core", "%1 has no lines yet, so it can't be sent."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "%1 can't be sent; it gets its number with its client."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "An invoice was made from %1 already: %2. Duplicate that one to make another."),
     {sentence, list}},
    {QT_TRANSLATE_NOOP("Core", "A recurring template has no status: the invoices that are made from it have.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” can't be done to %2 now, only %3."), {word, sentence, list}},
    {QT_TRANSLATE_NOOP("Core", "%1 was credited (%2), so it can't become a draft again."), {sentence, list}},
    {QT_TRANSLATE_NOOP("Core", "%1 is no quote, so no invoice is made from it."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "%1 was declined. Reopen it first if the client has changed their mind."), {sentence}},
    {QT_TRANSLATE_NOOP("Core",
                       "%1 takes back an invoice and can't be made twice. To credit what is left, make a credit note "
                       "from the invoice."),
     {sentence}},
    {QT_TRANSLATE_NOOP("Core", "The project %1 is archived."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "%1 is no draft any more, so it stays. To take it back, make a credit note."),
     {sentence}},
    {QT_TRANSLATE_NOOP("Core", "%1 is no draft any more, so it stays."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "Money was recorded for %1, so it stays."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "%1 isn't a draft any more; its lines stay as they are."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "There is no such line.")},
    {QT_TRANSLATE_NOOP("Core", "The first line has no line above it to belong to.")},
    // payments and limits
    {QT_TRANSLATE_NOOP("Core", "%1 takes no payments: only invoices do."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "That day is in the future: record a payment when it has come in.")},
    {QT_TRANSLATE_NOOP("Core", "The note can have at most %1 characters.")},
    {QT_TRANSLATE_NOOP("Core", "The tags can have at most %1 characters together.")},
    {QT_TRANSLATE_NOOP("Core", "A document can have at most %1 lines."), {figure}},
    {QT_TRANSLATE_NOOP("Core", "A document can have at most %1 discounts."), {figure}},
    {QT_TRANSLATE_NOOP("Core", "A document can have at most %1 fees."), {figure}},
    {QT_TRANSLATE_NOOP("Core", "The quantity of line %1 is too large: at most %2."), {own, figure}},
    {QT_TRANSLATE_NOOP("Core", "The price of line %1 is too large: at most %2."), {own, figure}},
    {QT_TRANSLATE_NOOP("Core", "The tax rate of line %1 isn't between 0 and 100 %.")},
    {QT_TRANSLATE_NOOP("Core", "The amount of line %1 is too large: at most %2."), {own, figure}},
    {QT_TRANSLATE_NOOP("Core", "A discount isn't between 0 and 100 %.")},
    {QT_TRANSLATE_NOOP("Core", "A discount is too large: at most %1."), {figure}},
    {QT_TRANSLATE_NOOP("Core", "The tax rate of a fee isn't between 0 and 100 %.")},
    {QT_TRANSLATE_NOOP("Core", "A fee is too large: at most %1."), {figure}},
    {QT_TRANSLATE_NOOP("Core", "The document's figures are too large: at most %1 each."), {figure}},
    {QT_TRANSLATE_NOOP("Core", "Only invoices take payments.")},
    {QT_TRANSLATE_NOOP("Core", "A payment needs an amount.")},
    {QT_TRANSLATE_NOOP("Core", "The payment is too large: at most %1."), {figure}},
    {QT_TRANSLATE_NOOP("Core", "The payments of a document can be at most %1 together."), {figure}},
    {QT_TRANSLATE_NOOP("Core", "A late fee can't be negative.")},
    {QT_TRANSLATE_NOOP("Core", "The late fees of a document can be at most %1 together."), {figure}},
    // credit notes
    {QT_TRANSLATE_NOOP("Core", "%1 can't be credited: only invoices can."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "%1 is still a draft: change it or delete it instead."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "Nothing is left to credit on %1: %2 took all of it."), {sentence, list}},
    {QT_TRANSLATE_NOOP("Core", "Nothing is left to credit on %1."), {sentence}},
    {QT_TRANSLATE_NOOP(
        "Core", "These lines together change what is owed the wrong way, so they can't be credited by themselves.")},
    {QT_TRANSLATE_NOOP("Core", "%1 has no line %2; it has %3."), {sentence, own, own}},
    {QT_TRANSLATE_NOOP("Core", "Line %1 is named twice.")},
    {QT_TRANSLATE_NOOP("Core", "Nothing is left to credit of %1."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "The quantity to credit of %1 must be more than 0."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "Only %1 is left to credit of %2."), {figure, sentence}},
    {QT_TRANSLATE_NOOP("Core", "Only %1 are left to credit of %2."), {figure, sentence}},
    {QT_TRANSLATE_NOOP("Core", "line %1")},
    {QT_TRANSLATE_NOOP("Core", "line %1 (“%2”)")},
    // reminders
    {QT_TRANSLATE_NOOP("Core", "Only invoices are reminded of.")},
    {QT_TRANSLATE_NOOP("Core", "It is still a draft: nobody was asked to pay it yet.")},
    {QT_TRANSLATE_NOOP("Core", "It is paid.")},
    {QT_TRANSLATE_NOOP("Core", "It isn't marked as sent.")},
    {QT_TRANSLATE_NOOP("Core", "Nothing is owed on it.")},
    {QT_TRANSLATE_NOOP("Core", "The day to pay by has passed.")},
    {QT_TRANSLATE_NOOP("Core", "The day to pay by lies more than ten years ahead.")},
    // recurring invoices
    {QT_TRANSLATE_NOOP("Core", "%1: the invoice of %2 can't be made. %3"), {sentence, date, sentence}},
    {QT_TRANSLATE_NOOP("Core", "The recurring invoice for %1")},
    {QT_TRANSLATE_NOOP("Core", "A recurring invoice without title and client")},
    {QT_TRANSLATE_NOOP("Core", "The template is damaged. Make a new one and delete it.")},
    {QT_TRANSLATE_NOOP("Core", "Its schedule was made by a newer Quillary. Choose another, or update Quillary.")},
    {QT_TRANSLATE_NOOP("Core", "Its client was deleted. Choose a client for it, or delete it.")},
    {QT_TRANSLATE_NOOP("Core", "The recurring invoices were not made: %1"), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "That is a recurring invoice already. Duplicate it to make another.")},
    {QT_TRANSLATE_NOOP("Core", "%1 is no invoice, so no recurring one is made from it."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "%1 has no client, and a recurring invoice needs one."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "%1 has no lines yet, so there is nothing to repeat."), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "The interval must be 1 to %1 weeks.")},
    {QT_TRANSLATE_NOOP("Core", "The interval must be 1 to %1 months.")},
    {QT_TRANSLATE_NOOP("Core", "The interval must be 1 to %1 quarters.")},
    {QT_TRANSLATE_NOOP("Core", "The interval must be 1 to %1 years.")},
    {QT_TRANSLATE_NOOP("Core", "A schedule of weeks has no day of the month; its next date says the day of the week.")},
    {QT_TRANSLATE_NOOP("Core", "The day of the month must be 1 to 31; a shorter month uses its last day.")},
    {QT_TRANSLATE_NOOP("Core", "The number of invoices must be 1 to %1."), {figure}},
    {QT_TRANSLATE_NOOP("Core", "The last day is missing.")},
    {QT_TRANSLATE_NOOP("Core", "No such date comes any more.")},
    {QT_TRANSLATE_NOOP(
        "Core",
        "Its schedule was made by a newer Quillary: choose whether it goes by weeks, months, quarters or years.")},
    {QT_TRANSLATE_NOOP("Core", "It has no next date any more: choose one.")},
    {QT_TRANSLATE_NOOP("Core", "It would end before its first invoice, that of %1."), {date}},
    {QT_TRANSLATE_NOOP("Core", "%1 is no recurring invoice."), {sentence}},
    // saved views
    {QT_TRANSLATE_NOOP("Core", "Give the view a name.")},
    {QT_TRANSLATE_NOOP("Core", "There is a view called “%1” already.")},
    // numbers
    {QT_TRANSLATE_NOOP("Core", "Choose a client first: this number counts per client.")},
    {QT_TRANSLATE_NOOP("Core", "This client has no client number, which the format needs.")},
    {QT_TRANSLATE_NOOP("Core", "Couldn't find an unused number. Check the format in Settings › Numbering.")},
    {QT_TRANSLATE_NOOP("Core", "A new number couldn't be checked against the library. %1"), {sentence}},
    {QT_TRANSLATE_NOOP("Core", "Enter a format.")},
    {QT_TRANSLATE_NOOP("Core", "{%1} isn't a placeholder.")},
    {QT_TRANSLATE_NOOP("Core", "Keep the format under %1 characters.")},
    {QT_TRANSLATE_NOOP("Core", "The format can't contain tabs or line breaks.")},
    {QT_TRANSLATE_NOOP("Core", "Every { needs a matching }.")},
    {QT_TRANSLATE_NOOP("Core", "Add a counter such as {###} so every number is different.")},
    {QT_TRANSLATE_NOOP("Core", "Use only one counter.")},
    {QT_TRANSLATE_NOOP("Core", "A counter can have at most %1 #.")},
    {QT_TRANSLATE_NOOP("Core", "Client numbers can't include {client} or a per-client counter.")},
    {QT_TRANSLATE_NOOP("Core", "Enter a file name format.")},
    {QT_TRANSLATE_NOOP("Core", "Include {number} so two documents never get the same file name.")},
    // undo
    {QT_TRANSLATE_NOOP("Core", "“%1” can’t be undone, because what it changed has been changed again since."), {word}},
    {QT_TRANSLATE_NOOP("Core", "“%1” can’t be redone, because what it changed has been changed again since."), {word}},
    {QT_TRANSLATE_NOOP("Core", "“%1” can’t be undone, because other entries depend on what would go or come back."),
     {word}},
    {QT_TRANSLATE_NOOP("Core", "“%1” can’t be redone, because other entries depend on what would go or come back."),
     {word}},
    // time
    {QT_TRANSLATE_NOOP("Core", "The end lies before the start.")},
    {QT_TRANSLATE_NOOP("Core", "A time entry can't be longer than a million hours.")},
    {QT_TRANSLATE_NOOP("Core", "A timer can't start or stop in the future.")},
    {QT_TRANSLATE_NOOP("Core",
                       "This time is on an invoice. Remove its line there first; an invoice that was sent keeps it.")},
    {QT_TRANSLATE_NOOP("Core",
                       "“%1” is no time. Write from when to when, like 9:00-10:30, or how long, like 1:30 or 90m.")},
};

} // namespace

std::span<const SentencePattern> documentSentences()
{
    return patterns;
}

} // namespace Quillary::CoreText
