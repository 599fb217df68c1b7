#include "QuillaryCore/Letters/ReminderLetter.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Output/PrintSource.h"
#include "QuillaryCore/Output/PrintedParties.h"
#include "QuillaryCore/Output/PrintedPayment.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

namespace {

using Key = DocumentStrings::Key;
using Emphasis = PrintedDocument::Emphasis;

struct LevelKeys
{
    Key heading;
    Key opening;
};

LevelKeys keys(ReminderLevel level)
{
    switch (level) {
    case ReminderLevel::first:
        return {Key::reminder1, Key::reminderText1};
    case ReminderLevel::second:
        return {Key::reminder2, Key::reminderText2};
    case ReminderLevel::final:
        break;
    }
    return {Key::reminder3, Key::reminderText3};
}

/// Ties the last word to the one before it, so that it never stands on a line of its own.
std::string withoutWidow(std::string text)
{
    constexpr std::string_view noBreakSpace = "\u00A0";
    if (const std::size_t last = text.rfind(' '); last != std::string::npos) {
        text.replace(last, 1, noBreakSpace);
    }
    return text;
}

/// Writes the letter from records that are already read.
class LetterWriter
{
public:
    LetterWriter(PrintedDocument& printed, const PrintSource& source, const ReminderNotice& reminder)
        : m_printed(printed)
        , m_source(source)
        , m_reminder(reminder)
    {
    }

    void addHeading()
    {
        m_printed.heading = text(keys(m_reminder.details.level).heading);
        m_printed.pageTitle = m_printed.heading;
        if (!m_source.document.number.empty()) {
            m_printed.pageTitle.append(1, ' ').append(m_source.document.number);
        }
    }

    void addRows()
    {
        addRow(Key::date, m_source.day(m_reminder.date));
        addRow(Key::invoiceNumber, m_source.document.number);
        addDay(Key::invoiceDate, invoiceDate());
        addDay(Key::dueDate, m_source.dueDate());
        if (m_source.business.showClientNumber && m_source.client != nullptr) {
            addRow(Key::clientNumber, m_source.client->number);
        }
    }

    void addOpening()
    {
        const std::string number = PrintSource::inSentence(m_source.document.number);
        const std::string date = m_source.day(invoiceDate().value_or(m_reminder.date));
        m_printed.opening = withoutWidow(
            m_source.strings.format(keys(m_reminder.details.level).opening, {{"number", number}, {"date", date}}));
    }

    void addFigures(const ReminderFigures& figures)
    {
        addFigure(Emphasis::figure, Key::invoiceTotal, figures.invoiceTotal);
        if (figures.lateFees != 0) {
            addFigure(Emphasis::figure, Key::lateFee, figures.lateFees);
        }
        if (figures.paid != 0) {
            addFigure(Emphasis::figure, Key::paid, checkedSubtract(0, figures.paid));
        }
        addFigure(Emphasis::total, Key::amountDue, figures.amountDue);
    }

private:
    [[nodiscard]] std::string_view text(Key key) const { return m_source.strings.text(key); }

    /// A sent invoice without a date comes from a damaged or foreign library.
    [[nodiscard]] std::optional<Instant> invoiceDate() const
    {
        return m_source.document.issueDate ? m_source.document.issueDate : m_source.document.createdAt;
    }

    void addRow(Key label, std::string_view value)
    {
        if (const std::string_view shown = trimmed(value); !shown.empty()) {
            m_printed.meta.push_back({std::string(text(label)), std::string(shown)});
        }
    }

    void addDay(Key label, std::optional<Instant> day)
    {
        if (day) {
            addRow(label, m_source.day(*day));
        }
    }

    void addFigure(Emphasis emphasis, Key label, std::int64_t minorUnits)
    {
        m_printed.totals.push_back({emphasis, std::string(text(label)), m_source.money(minorUnits)});
    }

    PrintedDocument& m_printed;
    const PrintSource& m_source;
    const ReminderNotice& m_reminder;
};

} // namespace

std::string_view ReminderLetter::heading(ReminderLevel level, DocumentLanguage language)
{
    return DocumentStrings(language).text(keys(level).heading);
}

PrintedDocument ReminderLetter::printed(Context& context,
                                        const Document& document,
                                        const Business& business,
                                        const ReminderNotice& reminder,
                                        const Calendar& calendar)
{
    const Locale& locale = printLocale(language(document), business.countryCode);
    const PrintSource source(context, document, business, calendar, locale);
    const ReminderFigures figures = reminderFigures(context, document, reminder);
    PrintedDocument letter;
    letter.form = PrintedDocument::Form::letter;
    letter.language = source.strings.language();
    letter.settings = TemplateSettings::of(business);
    PrintedParties::addSeller(letter, source);
    PrintedParties::addBuyer(letter, source);
    LetterWriter writer(letter, source, reminder);
    writer.addHeading();
    writer.addRows();
    writer.addOpening();
    writer.addFigures(figures);
    if (figures.amountDue > 0) { // a letter of old may be printed once more when it is paid
        letter.payment = PrintedPayment::asking(source, figures.amountDue, reminder.details.payBy);
    }
    PrintedParties::addFooter(letter, source);
    return letter;
}

} // namespace Quillary
