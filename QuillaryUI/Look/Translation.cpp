#include "QuillaryUI/Look/Translation.h"

#include "QuillaryUI/Look/Formats.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

static void initializeTranslations()
{
    Q_INIT_RESOURCE(translations); // a macro that wants to stand outside of namespaces
}

namespace Quillary::Translation {

namespace {

constexpr char languageProperty[] = "languageOfWords";

void add(QCoreApplication& application, const QString& file, const QString& folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (translator->load(file, folder)) {
        translator->setObjectName(QStringLiteral("translation"));
        translator->setParent(&application);
        QCoreApplication::installTranslator(translator.release());
    }
}

} // namespace

void install(QCoreApplication& application, const Locale& words, const Locale& formats)
{
    initializeTranslations();
    const auto earlier = application.findChildren<QTranslator*>(QStringLiteral("translation"));
    for (QTranslator* translator : earlier) {
        QCoreApplication::removeTranslator(translator);
        translator->setObjectName(QString());
        translator->deleteLater();
    }
    const QString language = text(words.languageCode());
    // The later one is asked first: a word of ours wins over the same word of Qt.
    add(application, QStringLiteral("qtbase_") + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    add(application, QStringLiteral("quillary_") + language, QStringLiteral(":/translations"));
    QLocale::setDefault(QLocale(text(formats.identifier())));
    application.setProperty(languageProperty, language);
}

QString language()
{
    const QString installed = QCoreApplication::instance()->property(languageProperty).toString();
    return installed.isEmpty() ? QStringLiteral("en") : installed;
}

} // namespace Quillary::Translation
