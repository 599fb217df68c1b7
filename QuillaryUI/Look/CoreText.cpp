#include "QuillaryUI/Look/CoreText.h"

#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryUI/Look/Formats.h"
#include "QuillaryUI/Look/Sentences/SentenceTemplate.h"
#include "QuillaryUI/Look/Sentences/Sentences.h"
#include "QuillaryUI/Look/Translation.h"

#include <QCoreApplication>
#include <QDate>
#include <QHash>
#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace Quillary::CoreText {

namespace {

/// Between the last two of several.
constexpr char lastTwo[] = QT_TRANSLATE_NOOP("Core", "%1 and %2");
constexpr char quoted[] = "“%1”"; // stands among the sentences

QString translated(const QString& english)
{
    return QCoreApplication::translate("Core", english.toUtf8().constData());
}

/// The narrowest first: of two that fit, the one that says more of the sentence itself.
///
/// No index is needed: nearly all of them differ from a sentence in their first or last character, and asking all of
/// them takes a few microseconds.
const std::vector<SentenceTemplate>& templates()
{
    static const std::vector<SentenceTemplate> all = [] {
        std::vector<SentenceTemplate> found;
        for (const auto& area : {documentSentences(), fieldSentences(), librarySentences(), reviewSentences()}) {
            for (const SentencePattern& pattern : area) {
                found.emplace_back(pattern); // NOLINT(performance-inefficient-vector-operation): once
            }
        }
        std::ranges::stable_sort(found, std::ranges::greater(), &SentenceTemplate::fixedLength);
        return found;
    }();
    return all;
}

/// "the Netherlands", in the language of the windows.
QString country(const QString& english)
{
    static const QHash<QString, QString> codes = [] {
        QHash<QString, QString> found;
        const Locale speaking("en");
        for (int place = 1; place <= int(QLocale::LastTerritory); ++place) {
            const QString code = QLocale::territoryToCode(QLocale::Territory(place));
            found.insert(text(speaking.countryName(utf8(code))), code);
        }
        return found;
    }();
    static const QString article = QStringLiteral("the ");
    const QString code = codes.value(english.startsWith(article) ? english.mid(article.size()) : english);
    return code.isEmpty() ? translated(english) : text(Locale(utf8(Translation::language())).countryName(utf8(code)));
}

/// "1000000.00 EUR" with the separators of the desktop.
QString figure(const QString& plain)
{
    static const QRegularExpression number(QStringLiteral("^(-?\\d+)(?:\\.(\\d+))?( .*)?$"));
    const QRegularExpressionMatch match = number.match(plain);
    if (!match.hasMatch()) {
        return plain;
    }
    const QLocale locale;
    const QString fraction = match.captured(2);
    return locale.toString(match.capturedView(1).toLongLong()) +
           (fraction.isEmpty() ? QString() : locale.decimalPoint() + fraction) + match.captured(3);
}

QString list(const QString& english)
{
    static const SentenceTemplate pair(SentencePattern{lastTwo});
    if (const auto both = pair.match(english)) {
        return translated(pair.source()).arg(list(both->first()), list(both->last()));
    }
    static const SentenceTemplate inQuotes(SentencePattern{quoted});
    QStringList parts = english.split(QStringLiteral(", "));
    for (QString& part : parts) {
        const auto word = inQuotes.match(part);
        part = word ? translated(inQuotes.source()).arg(translated(word->first())) : sentence(utf8(part));
    }
    return parts.join(QStringLiteral(", "));
}

QString filledIn(Value kind, const QString& english)
{
    switch (kind) {
    case Value::own:
        return english;
    case Value::word:
        return translated(english);
    case Value::sentence:
        return sentence(utf8(english));
    case Value::list:
        return list(english);
    case Value::figure:
        return figure(english);
    case Value::date: {
        const QDate day = QDate::fromString(english, Qt::ISODate);
        return day.isValid() ? QLocale().toString(day, QLocale::ShortFormat) : english;
    }
    case Value::country:
        return country(english);
    }
    return english;
}

/// A private mark stands for each place at first: a name may hold "%1" itself.
QString filled(QString target, const SentenceTemplate& known, const QStringList& values)
{
    constexpr char16_t mark = 0xe000;
    for (qsizetype i = 0; i < values.size(); ++i) {
        target.replace(QStringLiteral("%%1").arg(i + 1), QString(QChar(char16_t(mark + i))));
    }
    for (qsizetype i = 0; i < values.size(); ++i) {
        target.replace(QChar(char16_t(mark + i)), filledIn(known.value(std::size_t(i)), values[i]));
    }
    return target;
}

} // namespace

QString word(std::string_view english)
{
    return translated(text(english));
}

QString sentence(std::string_view english)
{
    const QString whole = text(english);
    if (QString known = translated(whole); known != whole) {
        return known;
    }
    for (const SentenceTemplate& known : templates()) {
        if (const auto values = known.match(whole)) {
            const QString target = translated(known.source());
            // Where nobody translated it, it is English and stays to the character.
            return target == known.source() ? whole : filled(target, known, *values);
        }
    }
    return whole;
}

void nameField(QString& sentence, const QString& name, const QString& label)
{
    for (const QString& quotes : {QString::fromUtf8(quoted), translated(QString::fromUtf8(quoted))}) {
        sentence.replace(quotes.arg(name), quotes.arg(label));
    }
}

} // namespace Quillary::CoreText
