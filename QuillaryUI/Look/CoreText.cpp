#include "QuillaryUI/Look/CoreText.h"

#include "QuillaryUI/Look/Formats.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <array>
#include <string>

namespace Quillary::CoreText {

namespace {

/// For the translators' file alone: they are looked up by what the core says. The test of the translation asks each of
/// the core's enumerations for its words.
[[maybe_unused]] constexpr std::array words = {
    // statuses
    QT_TRANSLATE_NOOP("Core", "Draft"),
    QT_TRANSLATE_NOOP("Core", "Sent"),
    QT_TRANSLATE_NOOP("Core", "Partly Paid"),
    QT_TRANSLATE_NOOP("Core", "Overdue"),
    QT_TRANSLATE_NOOP("Core", "Paid"),
    QT_TRANSLATE_NOOP("Core", "Refunded"),
    QT_TRANSLATE_NOOP("Core", "Accepted"),
    QT_TRANSLATE_NOOP("Core", "Declined"),
    QT_TRANSLATE_NOOP("Core", "Expired"),
    // their changes, and the other steps that can be undone
    QT_TRANSLATE_NOOP("Core", "Mark as Sent"),
    QT_TRANSLATE_NOOP("Core", "Mark as Paid"),
    QT_TRANSLATE_NOOP("Core", "Mark as Refunded"),
    QT_TRANSLATE_NOOP("Core", "Mark as Unpaid"),
    QT_TRANSLATE_NOOP("Core", "Mark as Not Refunded"),
    QT_TRANSLATE_NOOP("Core", "Mark as Accepted"),
    QT_TRANSLATE_NOOP("Core", "Mark as Declined"),
    QT_TRANSLATE_NOOP("Core", "Back to Draft"),
    QT_TRANSLATE_NOOP("Core", "Reopen"),
    QT_TRANSLATE_NOOP("Core", "Invoice from Quote"),
    QT_TRANSLATE_NOOP("Core", "Duplicate"),
    QT_TRANSLATE_NOOP("Core", "Payment"),
    QT_TRANSLATE_NOOP("Core", "Delete Payment"),
    QT_TRANSLATE_NOOP("Core", "Delete Draft"),
    QT_TRANSLATE_NOOP("Core", "Tags"),
    QT_TRANSLATE_NOOP("Core", "Project"),
    QT_TRANSLATE_NOOP("Core", "Make Recurring"),
    QT_TRANSLATE_NOOP("Core", "Change Recurring Invoice"),
    QT_TRANSLATE_NOOP("Core", "Recurring invoice"),
    QT_TRANSLATE_NOOP("Core", "Import clients"),
    // kinds
    QT_TRANSLATE_NOOP("Core", "Invoice"),
    QT_TRANSLATE_NOOP("Core", "Quote"),
    QT_TRANSLATE_NOOP("Core", "Credit Note"),
    QT_TRANSLATE_NOOP("Core", "Recurring Invoice"),
    QT_TRANSLATE_NOOP("Core", "without a number"),
    // ways to pay
    QT_TRANSLATE_NOOP("Core", "Bank transfer"),
    QT_TRANSLATE_NOOP("Core", "Cash"),
    QT_TRANSLATE_NOOP("Core", "Card"),
    QT_TRANSLATE_NOOP("Core", "PayPal"),
    QT_TRANSLATE_NOOP("Core", "Cheque"),
    QT_TRANSLATE_NOOP("Core", "Other"),
    // reminders, recurring invoices, time
    QT_TRANSLATE_NOOP("Core", "Payment Reminder"),
    QT_TRANSLATE_NOOP("Core", "Second Reminder"),
    QT_TRANSLATE_NOOP("Core", "Final Notice"),
    QT_TRANSLATE_NOOP("Core", "Active"),
    QT_TRANSLATE_NOOP("Core", "Paused"),
    QT_TRANSLATE_NOOP("Core", "Ended"),
    QT_TRANSLATE_NOOP("Core", "A line for each entry"),
    QT_TRANSLATE_NOOP("Core", "A line for each project"),
    QT_TRANSLATE_NOOP("Core", "One line"),
    // what assistants may do
    QT_TRANSLATE_NOOP("Core", "Look only"),
    QT_TRANSLATE_NOOP("Core", "Make invoices and quotes"),
    QT_TRANSLATE_NOOP("Core", "Everything"),
    QT_TRANSLATE_NOOP("Core", "Find clients, invoices and figures. Change nothing."),
    QT_TRANSLATE_NOOP("Core",
                      "Also make and change drafts, preview and export them, and prepare emails you send yourself."),
    QT_TRANSLATE_NOOP("Core", "Also mark invoices sent, record payments and fill in your business details."),
    // reports
    QT_TRANSLATE_NOOP("Core", "By invoice date"),
    QT_TRANSLATE_NOOP("Core", "By payment date"),
    QT_TRANSLATE_NOOP("Core", "Tax"),
    QT_TRANSLATE_NOOP("Core", "VAT"),
    QT_TRANSLATE_NOOP("Core", "Sales tax"),
    QT_TRANSLATE_NOOP("Core", "Rate %"),
    QT_TRANSLATE_NOOP("Core", "Net"),
    QT_TRANSLATE_NOOP("Core", "Gross"),
    QT_TRANSLATE_NOOP("Core", "Total"),
    QT_TRANSLATE_NOOP("Core", "Number"),
    QT_TRANSLATE_NOOP("Core", "Type"),
    QT_TRANSLATE_NOOP("Core", "Date"),
    QT_TRANSLATE_NOOP("Core", "Paid on"),
    QT_TRANSLATE_NOOP("Core", "Due date"),
    QT_TRANSLATE_NOOP("Core", "Client"),
    QT_TRANSLATE_NOOP("Core", "Status"),
    QT_TRANSLATE_NOOP("Core", "Invoices"),
    QT_TRANSLATE_NOOP("Core", "Documents"),
    QT_TRANSLATE_NOOP("Core", "Open now"),
    QT_TRANSLATE_NOOP("Core", "Not due yet"),
    QT_TRANSLATE_NOOP("Core", "1–30 days"),
    QT_TRANSLATE_NOOP("Core", "31–60 days"),
    QT_TRANSLATE_NOOP("Core", "61–90 days"),
    QT_TRANSLATE_NOOP("Core", "Over 90 days"),
    QT_TRANSLATE_NOOP("Core", "Tax report by invoice date"),
    QT_TRANSLATE_NOOP("Core", "Tax report by payment date"),
    QT_TRANSLATE_NOOP("Core", "Documents of the tax report by invoice date"),
    QT_TRANSLATE_NOOP("Core", "Documents of the tax report by payment date"),
    QT_TRANSLATE_NOOP("Core", "Clients"),
    QT_TRANSLATE_NOOP("Core", "Invoices and credit notes"),
    QT_TRANSLATE_NOOP("Core", "all dates"),
    // choices of the settings: designs, typefaces, places and sizes
    QT_TRANSLATE_NOOP("Core", "Classic"),
    QT_TRANSLATE_NOOP("Core", "Modern"),
    QT_TRANSLATE_NOOP("Core", "Minimal"),
    QT_TRANSLATE_NOOP("Core", "Bold"),
    QT_TRANSLATE_NOOP("Core", "Compact"),
    QT_TRANSLATE_NOOP("Core", "System"),
    QT_TRANSLATE_NOOP("Core", "Serif"),
    QT_TRANSLATE_NOOP("Core", "Rounded"),
    QT_TRANSLATE_NOOP("Core", "Mono"),
    QT_TRANSLATE_NOOP("Core", "Left"),
    QT_TRANSLATE_NOOP("Core", "Center"),
    QT_TRANSLATE_NOOP("Core", "Right"),
    QT_TRANSLATE_NOOP("Core", "Small"),
    QT_TRANSLATE_NOOP("Core", "Medium"),
    QT_TRANSLATE_NOOP("Core", "Large"),
    // patterns of numbers
    QT_TRANSLATE_NOOP("Core", "Year, restarts every year"),
    QT_TRANSLATE_NOOP("Core", "Year and month, restarts every month"),
    QT_TRANSLATE_NOOP("Core", "Counter that never restarts"),
    QT_TRANSLATE_NOOP("Core", "Client number, counts per client"),
    QT_TRANSLATE_NOOP("Core", "Counter"),
    QT_TRANSLATE_NOOP("Core", "Year and counter"),
    // what stands in an email
    QT_TRANSLATE_NOOP("Core", "Who you're writing to"),
    QT_TRANSLATE_NOOP("Core", "The client's name"),
    QT_TRANSLATE_NOOP("Core", "Invoice, Quote or Credit Note, in the document's language"),
    QT_TRANSLATE_NOOP("Core", "The document's number"),
    QT_TRANSLATE_NOOP("Core", "The document's title"),
    QT_TRANSLATE_NOOP("Core", "The total, e.g. €1,190.00"),
    QT_TRANSLATE_NOOP("Core", "The document's date"),
    QT_TRANSLATE_NOOP("Core", "When an invoice is due"),
    QT_TRANSLATE_NOOP("Core", "Until when a quote is valid"),
    QT_TRANSLATE_NOOP("Core", "What's still owed, with late fees"),
    QT_TRANSLATE_NOOP("Core", "The new date a reminder asks to be paid by"),
    QT_TRANSLATE_NOOP("Core", "The late fee this reminder adds"),
    QT_TRANSLATE_NOOP("Core", "How many days the invoice is overdue"),
    QT_TRANSLATE_NOOP("Core", "Your business name"),
    // answers to what a draft needs
    QT_TRANSLATE_NOOP("Core", "Yes, reverse charge"),
    QT_TRANSLATE_NOOP("Core", "They have none: charge VAT as usual"),
    QT_TRANSLATE_NOOP("Core", "The same day as the invoice"),
    QT_TRANSLATE_NOOP("Core", "This month"),
    QT_TRANSLATE_NOOP("Core", "Last month"),
    QT_TRANSLATE_NOOP("Core", "Nothing, it's free"),
    // nouns inside of the sentences below
    QT_TRANSLATE_NOOP("Core", "invoice"),
    QT_TRANSLATE_NOOP("Core", "quote"),
    QT_TRANSLATE_NOOP("Core", "credit note"),
    QT_TRANSLATE_NOOP("Core", "recurring invoice"),
    QT_TRANSLATE_NOOP("Core", "The client"),
    QT_TRANSLATE_NOOP("Core", "Germany"),
    QT_TRANSLATE_NOOP("Core", "Austria"),
    QT_TRANSLATE_NOOP("Core", "number"),
    QT_TRANSLATE_NOOP("Core", "email address"),
    QT_TRANSLATE_NOOP("Core", "name"),
};

/// In the order in which they are tried: the narrower one first.
constexpr std::array patterns = {
    // names of taxes and documents
    QT_TRANSLATE_NOOP("Core", "No %1"),
    QT_TRANSLATE_NOOP("Core", "Recurring Invoice %1"),
    QT_TRANSLATE_NOOP("Core", "Invoice %1"),
    QT_TRANSLATE_NOOP("Core", "Quote %1"),
    QT_TRANSLATE_NOOP("Core", "Credit Note %1"),
    // parts of a report's title
    QT_TRANSLATE_NOOP("Core", "Open invoices on %1"),
    QT_TRANSLATE_NOOP("Core", "until %1"),
    QT_TRANSLATE_NOOP("Core", "since %1"),
    // what a draft still needs
    QT_TRANSLATE_NOOP("Core", "Your business name is missing."),
    QT_TRANSLATE_NOOP("Core", "Your address is missing; invoices must show it."),
    QT_TRANSLATE_NOOP("Core", "Invoices in %1 must show your tax number or VAT ID."),
    QT_TRANSLATE_NOOP("Core", "Your VAT ID is missing; VAT invoices must show it."),
    QT_TRANSLATE_NOOP("Core", "The %1 has no date."),
    QT_TRANSLATE_NOOP("Core", "The %1 has no number."),
    QT_TRANSLATE_NOOP("Core", "The quote's last day of validity has passed."),
    QT_TRANSLATE_NOOP("Core", "The %1's total is negative."),
    QT_TRANSLATE_NOOP("Core", "Which invoice does the credit note correct?"),
    QT_TRANSLATE_NOOP("Core", "The client has no name."),
    QT_TRANSLATE_NOOP("Core", "%1's address is missing; invoices must show it."),
    QT_TRANSLATE_NOOP("Core", "Who is it for? The %1 needs a client."),
    QT_TRANSLATE_NOOP("Core", "When was the work done (or delivered)?"),
    QT_TRANSLATE_NOOP("Core", "%1 is usually billed in %2, and this %3 is in %4. Which should it be?"),
    QT_TRANSLATE_NOOP("Core", "What should the %1 list, and at what price?"),
    QT_TRANSLATE_NOOP("Core", "Line %1 (“%2”) has the quantity 0, so it bills nothing."),
    QT_TRANSLATE_NOOP("Core", "What should line %1 be called, and what does it cost?"),
    QT_TRANSLATE_NOOP("Core", "What should line %1 be called?"),
    QT_TRANSLATE_NOOP("Core", "What's the price for “%1” (line %2)?"),
    QT_TRANSLATE_NOOP("Core", "The %1 is taxed, but line %2 (“%3”) bears no %4."),
    QT_TRANSLATE_NOOP("Core", "The %1 is taxed, but lines %2 bear no %3."),
    QT_TRANSLATE_NOOP("Core", "Line %1 (“%2”) bears no %3. Which rate applies?"),
    QT_TRANSLATE_NOOP("Core", "Lines %1 bear no %2. Which rate applies?"),
    QT_TRANSLATE_NOOP("Core", "The %1 is tax-exempt but doesn't say why."),
    QT_TRANSLATE_NOOP("Core", "Reverse charge needs a client in another EU country; %1 is in %2."),
    QT_TRANSLATE_NOOP("Core", "Reverse charge needs %1's VAT ID of another EU country."),
    QT_TRANSLATE_NOOP("Core", "Reverse charge needs %1's VAT ID."),
    QT_TRANSLATE_NOOP("Core", "Reverse charge needs your VAT ID."),
    QT_TRANSLATE_NOOP("Core", "The note says that the client is outside the EU; %1 is in %2."),
    QT_TRANSLATE_NOOP("Core", "%1 is a business in %2 with a VAT ID. Use reverse charge (no VAT, with the note)?"),
    QT_TRANSLATE_NOOP("Core",
                      "%1 is in %2. If they're a VAT-registered business, what's their VAT ID? (Then reverse charge "
                      "usually applies.)"),
    QT_TRANSLATE_NOOP("Core", "%1 is a business outside the EU (%2). Invoice without %3, with the note?"),
    // the answers beside it
    QT_TRANSLATE_NOOP("Core", "%1, as usual"),
    QT_TRANSLATE_NOOP("Core", "%1, as it is"),
    QT_TRANSLATE_NOOP("Core", "No, charge %1 as usual"),
    QT_TRANSLATE_NOOP("Core", "Yes, without %1"),
    // what the import of clients remarks
    QT_TRANSLATE_NOOP("Core", "Has the same %1 as “%2” in row %3."),
    QT_TRANSLATE_NOOP("Core", "Has the same %1 as “%2” in the library."),
    QT_TRANSLATE_NOOP("Core", "Row %1 has the same name and another number."),
};

QString translated(const QString& english)
{
    return QCoreApplication::translate("Core", english.toUtf8().constData());
}

/// "The %1 has no date." finds what stands at %1.
QRegularExpression finder(const QString& pattern)
{
    QString expression = QRegularExpression::escape(pattern);
    static const QRegularExpression place(QStringLiteral("\\\\%[1-9]"));
    expression.replace(place, QStringLiteral("(.+?)"));
    return QRegularExpression(QRegularExpression::anchoredPattern(expression),
                              QRegularExpression::DotMatchesEverythingOption);
}

} // namespace

QString word(std::string_view english)
{
    return QCoreApplication::translate("Core", std::string(english).c_str());
}

QString sentence(std::string_view english)
{
    QString whole = text(english);
    if (QString known = translated(whole); known != whole) {
        return known;
    }
    for (const char* pattern : patterns) {
        const QString source = QString::fromUtf8(pattern);
        const QString target = translated(source);
        if (target == source) {
            continue; // English, or not translated
        }
        const QRegularExpressionMatch match = finder(source).match(whole);
        if (!match.hasMatch()) {
            continue;
        }
        QString result = target;
        for (int place = match.lastCapturedIndex(); place >= 1; --place) {
            // A private mark keeps a "%1" in a name from being filled in.
            result.replace(QStringLiteral("%%1").arg(place), QString(QChar(0xe000 + place)));
        }
        for (int place = 1; place <= match.lastCapturedIndex(); ++place) {
            result.replace(QChar(0xe000 + place), translated(match.captured(place)));
        }
        return result;
    }
    return whole;
}

} // namespace Quillary::CoreText
