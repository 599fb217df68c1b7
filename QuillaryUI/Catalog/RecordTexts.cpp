#include "QuillaryUI/Catalog/RecordTexts.h"

#include "QuillaryUI/Look/Choices.h"

#include <QCoreApplication>

namespace Quillary {

namespace {

using Field = FieldForm::Field;
using Kind = FieldForm::Kind;

QString tr(const char* text)
{
    return QCoreApplication::translate("RecordTexts", text);
}

Field line(const char* name, const QString& label, const QString& hint = {})
{
    return {QString::fromLatin1(name), label, Kind::line, {}, hint};
}

} // namespace

RecordTexts RecordTexts::items(const Locale& locale)
{
    return {.title = tr("Items"),
            .search = tr("Name or text"),
            .empty = tr("No items yet. What you sell again and again is a few letters away in every document then."),
            .add = tr("New Item"),
            .change = tr("Change Item"),
            .remove = tr("Remove Item"),
            .fields = {line("name", tr("Name")),
                       {QStringLiteral("currency"), tr("Currency"), Kind::choice, Choices::currencies(locale), {}},
                       line("price", tr("Price, net")),
                       line("unit", tr("Unit"), tr("Such as hour or piece")),
                       line("tax_rate", tr("Tax rate"), tr("The usual one")),
                       {QStringLiteral("details"), tr("Text below the name"), Kind::paragraphs, {}, {}}},
            .shown = {0, 3, 2}};
}

RecordTexts RecordTexts::projects()
{
    return {.title = tr("Projects"),
            .search = tr("Name"),
            .empty = tr("No projects yet. They keep the documents and the time of one piece of work together."),
            .add = tr("New Project"),
            .change = tr("Change Project"),
            .remove = tr("Remove Project"),
            .fields = {line("name", tr("Name")),
                       {QStringLiteral("archived"), tr("Done: takes no more documents and time"), Kind::flag, {}, {}}},
            .shown = {0}};
}

RecordTexts RecordTexts::units()
{
    return {.title = tr("Units"),
            .search = tr("Name"),
            .empty = tr("No units of your own. Hour, day, piece and many others are there anyway."),
            .add = tr("New Unit"),
            .change = tr("Change Unit"),
            .remove = tr("Remove Unit"),
            .fields = {line("singular", tr("Word for one")),
                       line("plural", tr("Word for several")),
                       line("code", tr("Code"), tr("UN/ECE Recommendation 20, such as HUR"))},
            .shown = {0, 1, 2}};
}

RecordTexts RecordTexts::taxRates()
{
    return {.title = tr("Tax Rates"),
            .search = tr("Name"),
            .empty = tr("No tax rates. Lines are without tax until there is one."),
            .add = tr("New Tax Rate"),
            .change = tr("Change Tax Rate"),
            .remove = tr("Remove Tax Rate"),
            .fields = {line("name", tr("Name")),
                       line("rate", tr("Percent")),
                       {QStringLiteral("default"), tr("New lines take this rate"), Kind::flag, {}, {}}},
            .shown = {0, 1, 2}};
}

RecordTexts RecordTexts::presets()
{
    const QList<FieldForm::Choice> kinds = {{QStringLiteral("intro"), tr("Above the lines")},
                                            {QStringLiteral("outro"), tr("Below the lines")}};
    return {.title = tr("Texts"),
            .search = tr("Name"),
            .empty = tr("No saved texts. What you write above or below the lines again and again can be kept here."),
            .add = tr("New Text"),
            .change = tr("Change Text"),
            .remove = tr("Remove Text"),
            .fields = {line("title", tr("Name")),
                       {QStringLiteral("kind"), tr("Place"), Kind::choice, kinds, {}},
                       {QStringLiteral("text"), tr("Text"), Kind::paragraphs, {}, {}}},
            .shown = {0, 1}};
}

} // namespace Quillary
