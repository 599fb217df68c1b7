#pragma once

#include <QFile>
#include <QString>
#include <QXmlStreamReader>

#include <stdexcept>
#include <vector>

namespace Quillary {

/// One text of the translators' file.
struct TranslatedText
{
    QString context;
    QString source;
    QString german;
    bool isFinished = true;
};

inline std::vector<TranslatedText> translatedTexts()
{
    QFile file(QStringLiteral(QUILLARY_SOURCES "/data/translations/quillary_de.ts"));
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("there is no German");
    }
    std::vector<TranslatedText> texts;
    QString context;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (reader.name() == QLatin1String("name")) {
            context = reader.readElementText();
        } else if (reader.name() == QLatin1String("source")) {
            texts.push_back({context, reader.readElementText(), {}, true});
        } else if (reader.name() == QLatin1String("translation")) {
            texts.back().isFinished = reader.attributes().value(QLatin1String("type")).isEmpty();
            texts.back().german = reader.readElementText();
        }
    }
    if (reader.hasError() || texts.empty()) {
        throw std::runtime_error("the German can't be read");
    }
    return texts;
}

} // namespace Quillary
