#include "QuillaryUI/Documents/WindowWords.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <utility>

namespace Quillary::WindowWords {

namespace {

QString label(const QString& argument)
{
    static constexpr std::pair<const char*, const char*> labels[] = {
        {"client", QT_TRANSLATE_NOOP("WindowWords", "Client")},
        {"issue_date", QT_TRANSLATE_NOOP("WindowWords", "Date")},
        {"valid_until", QT_TRANSLATE_NOOP("WindowWords", "Valid until")},
        {"payment_terms_days", QT_TRANSLATE_NOOP("WindowWords", "To be paid within")},
        {"service_date", QT_TRANSLATE_NOOP("WindowWords", "Delivered or done")},
        {"title", QT_TRANSLATE_NOOP("WindowWords", "Title")},
        {"intro", QT_TRANSLATE_NOOP("WindowWords", "Introduction")},
        {"footer", QT_TRANSLATE_NOOP("WindowWords", "Closing text")},
        {"language", QT_TRANSLATE_NOOP("WindowWords", "Language")},
        {"currency", QT_TRANSLATE_NOOP("WindowWords", "Currency")},
        {"discount_percent", QT_TRANSLATE_NOOP("WindowWords", "Discount")},
        {"discount_amount", QT_TRANSLATE_NOOP("WindowWords", "Discount")},
        {"tax_exempt", QT_TRANSLATE_NOOP("WindowWords", "Tax")},
        {"reverse_charge", QT_TRANSLATE_NOOP("WindowWords", "Tax")},
        {"outside_eu", QT_TRANSLATE_NOOP("WindowWords", "Tax")},
        {"tax_exempt_note", QT_TRANSLATE_NOOP("WindowWords", "Why there's no tax")},
        {"details", QT_TRANSLATE_NOOP("WindowWords", "Details")},
        {"quantity", QT_TRANSLATE_NOOP("WindowWords", "Quantity")},
        {"unit", QT_TRANSLATE_NOOP("WindowWords", "Unit")},
        {"unit_price", QT_TRANSLATE_NOOP("WindowWords", "Price")},
        {"tax_rate", QT_TRANSLATE_NOOP("WindowWords", "Tax")},
        {"amount", QT_TRANSLATE_NOOP("WindowWords", "Fee")},
        {"copy_last_invoice", QT_TRANSLATE_NOOP("WindowWords", "Copying the last invoice")},
    };
    for (const auto& [name, words] : labels) {
        if (argument == QLatin1String(name)) {
            return QCoreApplication::translate("WindowWords", words);
        }
    }
    return {};
}

} // namespace

QString refusal(QString sentence)
{
    // “change_lines 2: unit_price”, “currency”, „currency“
    static const QRegularExpression argument(QStringLiteral("[“„]((?:[a-z_]+ \\d+: )?([a-z_]+))[”“]"));
    static const QRegularExpression calls(
        QStringLiteral(",? in (?:the same call|a call of its own) \\([a-z_ ]+\\)(,?)"));
    static const QRegularExpression asides(QStringLiteral(" \\([a-z]+_[a-z_ ]+\\)"));
    sentence.replace(calls, QStringLiteral("\\1"));
    sentence.remove(asides);
    for (QRegularExpressionMatch match = argument.match(sentence); match.hasMatch();
         match = argument.match(sentence, match.capturedEnd())) {
        if (const QString words = label(match.captured(2)); !words.isEmpty()) {
            sentence.replace(match.capturedStart(1), match.capturedLength(1), words);
        }
    }
    return sentence;
}

QString field(const QString& argument)
{
    const QString name = argument.section(QChar(u' '), 0, 0);
    if (name == QLatin1String("add_lines") || name == QLatin1String("change_lines")) {
        return QStringLiteral("lines");
    }
    if (name == QLatin1String("tax_exempt") || name == QLatin1String("reverse_charge") ||
        name == QLatin1String("outside_eu")) {
        return QStringLiteral("tax");
    }
    return label(name).isEmpty() ? QString() : name;
}

} // namespace Quillary::WindowWords
