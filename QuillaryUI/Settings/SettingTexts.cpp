#include "QuillaryUI/Settings/SettingTexts.h"

#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryUI/Look/Choices.h"
#include "QuillaryUI/Look/Formats.h"

#include <QCoreApplication>

#include <map>
#include <utility>

namespace Quillary {

namespace {

using Field = FieldForm::Field;
using Kind = FieldForm::Kind;

QString tr(const char* text)
{
    return QCoreApplication::translate("SettingTexts", text);
}

/// The words of all choices; a word means the same wherever it is chosen.
QString choiceLabel(const QString& word)
{
    const std::map<QString, QString> labels = {{"vat", tr("VAT")},
                                               {"gst", tr("GST")},
                                               {"sales_tax", tr("Sales tax")},
                                               {"tax", tr("Tax")},
                                               {"custom", tr("Words of your own")},
                                               {"none", tr("No late fee")},
                                               {"fixed", tr("A fixed amount")},
                                               {"percentage", tr("A share of what is open")},
                                               {"usLetter", tr("US Letter")},
                                               {"a4", tr("A4")}};
    const auto found = labels.find(word);
    return found != labels.end() ? found->second : word.left(1).toUpper() + word.mid(1);
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
    return {
        argument, label, Kind::choice, choices.isEmpty() ? choicesOf(argument) : std::move(choices), tr("As usual")};
}

QList<Field> businessFields(const Locale& locale)
{
    return {line("name", tr("Name")),
            line("address_line", tr("Street")),
            line("postal_code", tr("Postal code")),
            line("city", tr("City")),
            line("state", tr("State")),
            choice("country", tr("Country"), Choices::withNone(tr("Not given"), Choices::countries())),
            line("email", tr("Email")),
            line("phone", tr("Phone")),
            line("website", tr("Website")),
            line("vat_id", tr("VAT ID")),
            line("tax_id", tr("Tax number")),
            choice("currency", tr("Currency"), Choices::currencies(locale)),
            choice("language", tr("Language of documents"), Choices::languages()),
            line("payment_terms_days", tr("Days to pay"))};
}

QList<Field> bankFields()
{
    return {line("account_holder", tr("Account holder")),
            line("bank_name", tr("Bank")),
            line("iban", tr("IBAN")),
            line("bic", tr("BIC")),
            line("account_number", tr("Account number")),
            line("bank_code", tr("Bank code")),
            line("upi_id", tr("UPI ID"), tr("name@bank")),
            flag("show_payment_qr_code", tr("Print a QR code for paying"))};
}

QList<Field> lookFields()
{
    return {choice("template", tr("Design")),
            line("accent_color", tr("Accent colour"), tr("#1F4E8C")),
            choice("template_font", tr("Typeface")),
            choice("paper_size", tr("Paper")),
            choice("logo_position", tr("Place of the logo")),
            choice("logo_size", tr("Size of the logo")),
            flag("show_client_number", tr("Print the client number")),
            flag("show_seller_contact", tr("Print your contact details")),
            line("hidden_units", tr("Units not offered"), tr("Such as day, kilometre")),
            line("footer_note", tr("Foot of the page"))};
}

QList<Field> reminderFields()
{
    const QList<FieldForm::Choice> levels = {{QStringLiteral("1"), tr("The first reminder")},
                                             {QStringLiteral("2"), tr("The second reminder")},
                                             {QStringLiteral("3"), tr("The third reminder")}};
    return {line("reminder_payment_days", tr("Days to pay after a reminder")),
            choice("late_fee_kind", tr("Late fee")),
            line("late_fee", tr("Amount")),
            line("late_fee_percent", tr("Percent")),
            choice("late_fee_from_level", tr("Beginning with"), levels)};
}

/// A pattern, and where its series continues: that is no setting of the business and kept by the numbering.
QList<Field> numberingFields()
{
    const QString from = tr("Counting on from");
    return {line("invoice_number_format", tr("Invoices")),
            {.name = QStringLiteral("next_invoice"), .label = from},
            line("quote_number_format", tr("Quotes")),
            {.name = QStringLiteral("next_quote"), .label = from},
            line("credit_note_number_format", tr("Credit notes")),
            {.name = QStringLiteral("next_credit_note"), .label = from},
            line("client_number_format", tr("Clients")),
            {.name = QStringLiteral("next_client"), .label = from},
            line("file_name_format", tr("File names"))};
}

} // namespace

QList<SettingTexts::Group> SettingTexts::groups(const Locale& locale)
{
    return {
        {QStringLiteral("business"), tr("Business"), tr("Who your documents come from."), businessFields(locale)},
        {QStringLiteral("bank"),
         tr("Bank & QR"),
         tr("Where the money goes. With an IBAN, a UPI ID or the details of your country an invoice can carry a code "
            "that the client's banking app reads."),
         bankFields()},
        {QStringLiteral("numbering"),
         tr("Numbering"),
         tr("How numbers and file names are made. {yyyy}, {yy}, {mm}, {dd} and {q} stand for the date, {###} for the "
            "counter with as many digits; {###,y}, {###,q}, {###,m} and {###,d} begin anew with each year, quarter, "
            "month and day."),
         numberingFields()},
        {QStringLiteral("taxes"),
         tr("Taxes"),
         tr("The rates themselves are in the catalog."),
         {choice("tax_label", tr("The tax is called")),
          line("custom_tax_label", tr("Words of your own")),
          flag("tax_exempt", tr("You charge no tax")),
          line("tax_exempt_note", tr("Why, on your invoices"))}},
        {QStringLiteral("look"), tr("Look"), tr("How your documents look."), lookFields()},
        {QStringLiteral("texts"),
         tr("Texts"),
         tr("What new documents begin and end with."),
         {line("invoice_intro_text", tr("Above the lines of an invoice")),
          line("invoice_outro_text", tr("Below them")),
          line("quote_intro_text", tr("Above the lines of a quote")),
          line("quote_outro_text", tr("Below them"))}},
        {QStringLiteral("reminders"),
         tr("Reminders"),
         tr("What happens when an invoice stays open."),
         reminderFields()},
        {QStringLiteral("time"),
         tr("Time"),
         tr("What tracked time becomes on an invoice."),
         {line("hourly_rate", tr("Hourly rate")), choice("time_rounding_minutes", tr("Rounded up to minutes"))}}};
}

QString SettingTexts::note(const QString& note)
{
    QString shown = note;
    if (shown.startsWith(QLatin1String("next: "))) {
        return tr("Next number: %1").arg(shown.mid(6));
    }
    if (shown.startsWith(QLatin1String("example: "))) {
        return tr("Example: %1").arg(shown.mid(9));
    }
    return shown;
}

} // namespace Quillary
