#include "QuillaryUI/Settings/SettingTexts.h"

#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryUI/Look/Choices.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Formats.h"

#include <QCoreApplication>

#include <map>
#include <utility>

namespace Quillary {

namespace {

using Field = FieldForm::Field;
using Kind = FieldForm::Kind;

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SettingTexts)
};

/// The words of all choices; a word means the same wherever it is chosen.
QString choiceLabel(const QString& word)
{
    const std::map<QString, QString> labels = {{"vat", Words::tr("VAT")},
                                               {"gst", Words::tr("GST")},
                                               {"sales_tax", Words::tr("Sales tax")},
                                               {"tax", Words::tr("Tax")},
                                               {"custom", Words::tr("Words of your own")},
                                               {"none", Words::tr("No late fee")},
                                               {"fixed", Words::tr("A fixed amount")},
                                               {"percentage", Words::tr("A share of what is open")},
                                               {"usLetter", Words::tr("US Letter")},
                                               {"a4", Words::tr("A4")}};
    const auto found = labels.find(word);
    return found != labels.end() ? found->second : CoreText::word(utf8(word.left(1).toUpper() + word.mid(1)));
}

QList<FieldForm::Choice> choicesOf(const QString& name)
{
    QList<FieldForm::Choice> choices;
    for (const std::string& word : BusinessSettings::choices(utf8(name))) {
        choices.push_back({text(word), choiceLabel(text(word))});
    }
    return choices;
}

Field line(const char* name, const QString& label, const QString& hint = {})
{
    const QString argument = QString::fromLatin1(name);
    const bool isLong = BusinessSettings::hasParagraphs(name);
    return {argument, label, isLong ? Kind::paragraphs : Kind::line, {}, hint};
}

Field flag(const char* name, const QString& label)
{
    return {QString::fromLatin1(name), label, Kind::flag, {}, {}};
}

Field choice(const char* name, const QString& label, QList<FieldForm::Choice> choices = {})
{
    const QString argument = QString::fromLatin1(name);
    return {argument,
            label,
            Kind::choice,
            choices.isEmpty() ? choicesOf(argument) : std::move(choices),
            Words::tr("As usual")};
}

QList<FieldForm::Choice> roundings()
{
    QList<FieldForm::Choice> choices = choicesOf(QStringLiteral("time_rounding_minutes"));
    for (auto& [minutes, label] : choices) {
        label = minutes == QLatin1String("0") ? Words::tr("Not rounded") : Words::tr("Up to %1 minutes").arg(minutes);
    }
    return choices;
}

QList<Field> businessFields(const Locale& locale)
{
    return {
        line("name", Words::tr("Name")),
        line("address_line", Words::tr("Street")),
        line("postal_code", Words::tr("Postal code")),
        line("city", Words::tr("City")),
        line("state", Words::tr("State")),
        choice("country", Words::tr("Country"), Choices::withNone(Words::tr("Not given"), Choices::countries(locale))),
        line("email", Words::tr("Email")),
        line("phone", Words::tr("Phone")),
        line("website", Words::tr("Website")),
        line("vat_id", Words::tr("VAT ID")),
        line("tax_id", Words::tr("Tax number")),
        choice("currency", Words::tr("Currency"), Choices::currencies(locale)),
        choice("language", Words::tr("Language of documents"), Choices::languages()),
        line("payment_terms_days", Words::tr("Days to pay"))};
}

QList<Field> bankFields()
{
    return {line("account_holder", Words::tr("Account holder")),
            line("bank_name", Words::tr("Bank")),
            line("iban", Words::tr("IBAN")),
            line("bic", Words::tr("BIC")),
            line("account_number", Words::tr("Account number")),
            line("bank_code", Words::tr("Bank code")),
            line("upi_id", Words::tr("UPI ID"), Words::tr("name@bank")),
            flag("show_payment_qr_code", Words::tr("Print a QR code for paying"))};
}

QList<Field> lookFields()
{
    return {choice("template", Words::tr("Design")),
            line("accent_color", Words::tr("Accent colour"), Words::tr("#1F4E8C")),
            choice("template_font", Words::tr("Typeface")),
            choice("paper_size", Words::tr("Paper")),
            choice("logo_position", Words::tr("Place of the logo")),
            choice("logo_size", Words::tr("Size of the logo")),
            flag("show_client_number", Words::tr("Print the client number")),
            flag("show_seller_contact", Words::tr("Print your contact details")),
            line("hidden_units", Words::tr("Units not offered"), Words::tr("Such as day, kilometre")),
            line("footer_note", Words::tr("Foot of the page"))};
}

QList<Field> reminderFields()
{
    const QList<FieldForm::Choice> levels = {{QStringLiteral("1"), Words::tr("The first reminder")},
                                             {QStringLiteral("2"), Words::tr("The second reminder")},
                                             {QStringLiteral("3"), Words::tr("The third reminder")}};
    return {line("reminder_payment_days", Words::tr("Days to pay after a reminder")),
            choice("late_fee_kind", Words::tr("Late fee")),
            line("late_fee", Words::tr("Amount")),
            line("late_fee_percent", Words::tr("Percent")),
            choice("late_fee_from_level", Words::tr("Beginning with"), levels)};
}

/// A pattern, and where its series continues: that is no setting of the business and kept by the numbering.
QList<Field> numberingFields()
{
    const QString from = Words::tr("Counting on from");
    return {line("invoice_number_format", Words::tr("Invoices")),
            {.name = QStringLiteral("next_invoice"), .label = from},
            line("quote_number_format", Words::tr("Quotes")),
            {.name = QStringLiteral("next_quote"), .label = from},
            line("credit_note_number_format", Words::tr("Credit notes")),
            {.name = QStringLiteral("next_credit_note"), .label = from},
            line("client_number_format", Words::tr("Clients")),
            {.name = QStringLiteral("next_client"), .label = from},
            line("file_name_format", Words::tr("File names"))};
}

} // namespace

QList<SettingTexts::Group> SettingTexts::groups(const Locale& locale)
{
    return {
        {QStringLiteral("business"),
         Words::tr("Business"),
         Words::tr("Who your documents come from."),
         businessFields(locale)},
        {QStringLiteral("bank"),
         Words::tr("Bank & QR"),
         Words::tr("Where the money goes. It is printed on your invoices."),
         bankFields()},
        {QStringLiteral("numbering"),
         Words::tr("Numbering"),
         Words::tr(
             "How numbers and file names are made. {yyyy}, {yy}, {mm}, {dd} and {q} stand for the date, {###} for the "
             "counter with as many digits; {###,y}, {###,q}, {###,m} and {###,d} begin anew with each year, quarter, "
             "month and day."),
         numberingFields()},
        {QStringLiteral("taxes"),
         Words::tr("Taxes"),
         Words::tr("The rates themselves are in the catalog."),
         {choice("tax_label", Words::tr("The tax is called")),
          line("custom_tax_label", Words::tr("Words of your own")),
          flag("tax_exempt", Words::tr("You charge no tax")),
          line("tax_exempt_note", Words::tr("Why, on your invoices"))}},
        {QStringLiteral("look"), Words::tr("Look"), Words::tr("How your documents look."), lookFields()},
        {QStringLiteral("texts"),
         Words::tr("Texts"),
         Words::tr("What new documents begin and end with."),
         {line("invoice_intro_text", Words::tr("Above the lines of an invoice")),
          line("invoice_outro_text", Words::tr("Below them")),
          line("quote_intro_text", Words::tr("Above the lines of a quote")),
          line("quote_outro_text", Words::tr("Below them"))}},
        {QStringLiteral("reminders"),
         Words::tr("Reminders"),
         Words::tr("What happens when an invoice stays open."),
         reminderFields()},
        {QStringLiteral("time"),
         Words::tr("Time"),
         Words::tr("What tracked time becomes on an invoice."),
         {line("hourly_rate", Words::tr("Hourly rate")),
          choice("time_rounding_minutes", Words::tr("Each entry"), roundings())}}};
}

QString SettingTexts::note(const QString& note)
{
    if (note.startsWith(QLatin1String("next: "))) {
        return Words::tr("Next number: %1").arg(note.mid(6));
    }
    if (note.startsWith(QLatin1String("example: "))) {
        return Words::tr("Example: %1").arg(note.mid(9));
    }
    return CoreText::sentence(utf8(note)); // what is wrong with it
}

} // namespace Quillary
