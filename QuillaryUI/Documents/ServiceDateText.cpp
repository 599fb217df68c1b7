#include "QuillaryUI/Documents/ServiceDateText.h"

#include "QuillaryCore/Model/DeliveryKind.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryUI/Look/Formats.h"

#include <QDate>
#include <QLocale>

namespace Quillary::ServiceDateText {

namespace {

const QString dash = QStringLiteral(" – ");

QString shortDate(const std::optional<Instant>& day, const Formats& formats)
{
    return day ? QLocale().toString(formats.qDate(*day), QLocale::ShortFormat) : QString();
}

QDate date(const QString& typed)
{
    const QString text = typed.trimmed();
    for (const QDate day : {QLocale().toDate(text, QLocale::ShortFormat),
                            QLocale().toDate(text, QLocale::LongFormat),
                            QDate::fromString(text, Qt::ISODate)}) {
        if (day.isValid()) {
            return day.year() < 1950 ? day.addYears(100) : day; // a year of two digits is one of ours
        }
    }
    return {};
}

/// A dash that divides two days has spaces around it, unlike those within an ISO date; a long one needs none.
qsizetype divider(const QString& typed)
{
    const qsizetype longDash = typed.indexOf(QChar(u'–'));
    return longDash >= 0 ? longDash : typed.indexOf(QStringLiteral(" - ")) + 1;
}

} // namespace

QString of(const Document& document, const Formats& formats)
{
    const DeliveryKind kind = deliveryKind(document);
    if (kind == DeliveryKind::none) {
        return {};
    }
    const QString start = shortDate(document.deliveryStart, formats);
    return isPeriod(kind) ? start + dash + shortDate(document.deliveryEnd, formats) : start;
}

std::optional<std::string> argument(const QString& typed)
{
    const qsizetype middle = divider(typed);
    const QDate first = date(middle > 0 ? typed.left(middle) : typed);
    if (!first.isValid()) {
        return std::nullopt;
    }
    if (middle <= 0) {
        return utf8(first.toString(Qt::ISODate));
    }
    const QDate last = date(typed.mid(middle + 1));
    if (!last.isValid() || last < first) {
        return std::nullopt;
    }
    return utf8(first.toString(Qt::ISODate) + QStringLiteral("..") + last.toString(Qt::ISODate));
}

} // namespace Quillary::ServiceDateText
