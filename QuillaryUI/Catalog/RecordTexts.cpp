#include "QuillaryUI/Catalog/RecordTexts.h"

#include "QuillaryUI/Look/Choices.h"

#include <QCoreApplication>

namespace Quillary {

namespace {

using Field = FieldForm::Field;
using Kind = FieldForm::Kind;

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(RecordTexts)
};

Field line(const char* name, const QString& label, const QString& hint = {})
{
    return {QString::fromLatin1(name), label, Kind::line, {}, hint};
}

} // namespace

RecordTexts RecordTexts::items(const Locale& locale)
{
    return {
        .title = Words::tr("Items"),
        .search = Words::tr("Name or text"),
        .empty = Words::tr("No items yet. What you sell again and again is a few letters away in every document then."),
        .add = Words::tr("New Item"),
        .change = Words::tr("Change Item"),
        .remove = Words::tr("Remove Item"),
        .fields = {line("name", Words::tr("Name")),
                   {QStringLiteral("currency"), Words::tr("Currency"), Kind::choice, Choices::currencies(locale), {}},
                   line("price", Words::tr("Price, net")),
                   line("unit", Words::tr("Unit"), Words::tr("Such as hour or piece")),
                   line("tax_rate", Words::tr("Tax rate"), Words::tr("The usual one")),
                   {QStringLiteral("details"), Words::tr("Text below the name"), Kind::paragraphs, {}, {}}},
        .shown = {0, 3, 2}};
}

RecordTexts RecordTexts::projects()
{
    return {.title = Words::tr("Projects"),
            .search = Words::tr("Name"),
            .empty = Words::tr("No projects yet. They keep the documents and the time of one piece of work together."),
            .add = Words::tr("New Project"),
            .change = Words::tr("Change Project"),
            .remove = Words::tr("Remove Project"),
            .fields =
                {line("name", Words::tr("Name")),
                 {QStringLiteral("archived"), Words::tr("Done: takes no more documents and time"), Kind::flag, {}, {}}},
            .shown = {0}};
}

RecordTexts RecordTexts::units()
{
    return {.title = Words::tr("Units"),
            .search = Words::tr("Name"),
            .empty = Words::tr("No units of your own. Hour, day, piece and many others are there anyway."),
            .add = Words::tr("New Unit"),
            .change = Words::tr("Change Unit"),
            .remove = Words::tr("Remove Unit"),
            .fields = {line("singular", Words::tr("Word for one")),
                       line("plural", Words::tr("Word for several")),
                       line("code", Words::tr("Code"), Words::tr("UN/ECE Recommendation 20, such as HUR"))},
            .shown = {0, 1, 2}};
}

RecordTexts RecordTexts::taxRates()
{
    return {.title = Words::tr("Tax Rates"),
            .search = Words::tr("Name"),
            .empty = Words::tr("No tax rates. Lines are without tax until there is one."),
            .add = Words::tr("New Tax Rate"),
            .change = Words::tr("Change Tax Rate"),
            .remove = Words::tr("Remove Tax Rate"),
            .fields = {line("name", Words::tr("Name")),
                       line("rate", Words::tr("Percent")),
                       {QStringLiteral("default"), Words::tr("New lines take this rate"), Kind::flag, {}, {}}},
            .shown = {0, 1, 2}};
}

RecordTexts RecordTexts::presets()
{
    const QList<FieldForm::Choice> kinds = {{QStringLiteral("intro"), Words::tr("Above the lines")},
                                            {QStringLiteral("outro"), Words::tr("Below the lines")}};
    return {.title = Words::tr("Texts"),
            .search = Words::tr("Name"),
            .empty =
                Words::tr("No saved texts. What you write above or below the lines again and again can be kept here."),
            .add = Words::tr("New Text"),
            .change = Words::tr("Change Text"),
            .remove = Words::tr("Remove Text"),
            .fields = {line("title", Words::tr("Name")),
                       {QStringLiteral("kind"), Words::tr("Place"), Kind::choice, kinds, {}},
                       {QStringLiteral("text"), Words::tr("Text"), Kind::paragraphs, {}, {}}},
            .shown = {0, 1}};
}

} // namespace Quillary
