#include "QuillaryUI/Look/Choices.h"

#include "QuillaryCore/Model/Countries.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryUI/Look/Formats.h"

#include <QLocale>

#include <algorithm>
#include <utility>

namespace Quillary::Choices {

using Choice = FieldForm::Choice;

QList<Choice> countries(const Locale& locale)
{
    QList<Choice> list;
    for (int place = 1; place <= int(QLocale::LastTerritory); ++place) {
        const auto territory = QLocale::Territory(place);
        const QString code = QLocale::territoryToCode(territory);
        if (Countries::isKnown(utf8(code))) {
            list.push_back({code, text(locale.countryName(utf8(code)))});
        }
    }
    std::ranges::sort(list, [](const Choice& left, const Choice& right) {
        return QString::localeAwareCompare(left.label, right.label) < 0;
    });
    return list;
}

QList<Choice> currencies(const Locale& locale)
{
    QList<Choice> list;
    QList<Choice> others;
    for (const Currency& currency : Currencies::all(locale)) {
        const bool isUsual =
            std::ranges::find(Currencies::popularCodes, currency.code) != Currencies::popularCodes.end();
        (isUsual ? list : others)
            .push_back({text(currency.code), QStringLiteral("%1 – %2").arg(text(currency.code), text(currency.name))});
    }
    return list + others;
}

QList<Choice> languages()
{
    QList<Choice> list;
    for (const DocumentLanguage language : allDocumentLanguages) {
        const QString languageCode = text(code(language));
        QString name = QLocale(languageCode).nativeLanguageName();
        if (language == DocumentLanguage::english) {
            name = QStringLiteral("English");
        }
        list.push_back({languageCode, name.isEmpty() ? languageCode : name.left(1).toUpper() + name.mid(1)});
    }
    return list;
}

QList<Choice> withNone(const QString& label, QList<Choice> choices)
{
    choices.prepend({QString(), label});
    return choices;
}

} // namespace Quillary::Choices
