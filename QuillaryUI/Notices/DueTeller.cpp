#include "QuillaryUI/Notices/DueTeller.h"

#include "QuillaryCore/Billing/DueNotices.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryUI/Settings/ProgramOptions.h"

#include <QCryptographicHash>
#include <QSettings>

#include <filesystem>
#include <map>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t mostSingle = 3;

/// Each library has its own last day.
QString lastToldKey(Context& context)
{
    const QByteArray folder = QByteArray::fromStdString(
        std::filesystem::absolute(context.store().location().folder()).lexically_normal().string());
    return QStringLiteral("notices/told/") +
           QString::fromLatin1(QCryptographicHash::hash(folder, QCryptographicHash::Sha256).toHex().first(16));
}

QString name(const Document& document)
{
    return document.number.empty() ? DueTeller::tr("An invoice") : text(document.number);
}

QString whoAndHowMuch(const LibraryAccess& library, const Document& document, std::int64_t amount)
{
    const Client* client = library.context().find(document.client);
    const QString money = library.formats().money(amount, document.currencyCode);
    return client == nullptr ? money : QStringLiteral("%1 · %2").arg(text(displayName(*client)), money);
}

QString dueTitle(const Document& document, int daysOverdue)
{
    return daysOverdue == 0   ? DueTeller::tr("%1 is due today").arg(name(document))
           : daysOverdue == 1 ? DueTeller::tr("%1 is overdue since yesterday").arg(name(document))
                              : DueTeller::tr("%1 is overdue by %2 days").arg(name(document)).arg(daysOverdue);
}

} // namespace

DueTeller::DueTeller(LibraryAccess& library, QObject* parent)
    : QObject(parent)
    , m_library(library)
{
    connect(&m_notices, &DesktopNotices::clicked, this, [this](std::int64_t subject) {
        if (subject == 0) {
            Q_EMIT wantedOverview();
        } else {
            Q_EMIT wantedDocument(subject);
        }
    });
}

void DueTeller::addMade(const std::vector<std::int64_t>& invoices)
{
    m_made.insert(m_made.end(), invoices.begin(), invoices.end());
}

void DueTeller::tell()
{
    if (!m_library.isOpen()) {
        return;
    }
    try {
        const Calendar& calendar = m_library.formats().calendar();
        const QString key = lastToldKey(m_library.context());
        const auto last = parseISODate(utf8(QSettings().value(key).toString()));
        std::vector<DueNotice> today;
        std::vector<DueNotice> overdue;
        for (const DueNotice& notice : dueNotices(m_library.context(), last, m_library.now(), calendar)) {
            (notice.daysOverdue > 0 ? overdue : today).push_back(notice);
        }
        // Remembered first: a notice that comes twice is worse than one that doesn't come.
        QSettings().setValue(key, text(isoText(calendar.date(m_library.now()))));
        if (ProgramOptions::showsNotices()) {
            tellDue(overdue, true);
            tellDue(today, false);
            tellMade();
        }
    } catch (const UserError&) {
        return; // a library that can't be read tells so itself
    }
    m_made.clear();
}

void DueTeller::tellDue(const std::vector<DueNotice>& notices, bool isOverdue)
{
    std::map<std::string, std::int64_t, std::less<>> sums;
    for (const DueNotice& notice : notices) {
        const Document* document = m_library.context().find(notice.document);
        const std::int64_t amount = cachedAmountDueMinorUnits(*document);
        sums[document->currencyCode] += amount;
        if (notices.size() <= mostSingle) {
            m_notices.show(dueTitle(*document, notice.daysOverdue),
                           whoAndHowMuch(m_library, *document, amount),
                           notice.document.key());
        }
    }
    if (notices.size() > mostSingle) {
        m_notices.show(
            (isOverdue ? tr("%1 more invoices are overdue") : tr("%1 invoices are due today")).arg(notices.size()),
            m_library.formats().sums(sums),
            0);
    }
}

void DueTeller::tellMade()
{
    if (m_made.size() > mostSingle) {
        m_notices.show(tr("%1 recurring invoices were made").arg(m_made.size()), {}, 0);
        return;
    }
    for (const std::int64_t key : m_made) {
        if (const Document* document = m_library.context().find(Ref<Document>(key))) {
            m_notices.show(tr("The recurring invoice %1 was made").arg(name(*document)),
                           whoAndHowMuch(m_library, *document, document->cachedTotalMinorUnits),
                           key);
        }
    }
}

} // namespace Quillary
