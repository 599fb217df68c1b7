#include "QuillaryUI/Main/QuickOpen.h"

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Search/LibrarySearch.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/StatusText.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Theme.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

namespace Quillary {

namespace {

constexpr std::size_t mostOfEach = 10;
constexpr int keyRole = Qt::UserRole;
constexpr int isClientRole = Qt::UserRole + 1;
constexpr int usualWidth = 560;
constexpr int usualHeight = 420;

} // namespace

QuickOpen::QuickOpen(LibraryAccess& library, QWidget* parent)
    : QDialog(parent, Qt::Popup)
    , m_library(library)
    , m_field(new QLineEdit(this))
    , m_hits(new QListWidget(this))
{
    setObjectName(QStringLiteral("quickOpen"));
    setAccessibleName(tr("Quick open"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_field->setObjectName(QStringLiteral("quickOpenField"));
    m_field->setPlaceholderText(tr("A number, a client, a title"));
    m_field->setAccessibleName(tr("What to open"));
    m_hits->setObjectName(QStringLiteral("quickOpenHits"));
    m_hits->setFrameShape(QFrame::NoFrame);
    m_hits->setFocusPolicy(Qt::NoFocus);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_field);
    column->addWidget(m_hits);
    m_field->installEventFilter(this);
    connect(m_field, &QLineEdit::textChanged, this, &QuickOpen::search);
    connect(m_field, &QLineEdit::returnPressed, this, &QuickOpen::take);
    connect(m_hits, &QListWidget::itemClicked, this, &QuickOpen::take);
}

void QuickOpen::begin()
{
    const QWidget* window = parentWidget();
    resize(usualWidth, usualHeight);
    move(window->mapToGlobal(QPoint((window->width() - usualWidth) / 2, 80)));
    show();
    m_field->setFocus(Qt::PopupFocusReason);
    search({});
}

void QuickOpen::search(const QString& typed)
{
    m_hits->clear();
    if (!m_library.isOpen()) {
        return;
    }
    LibrarySearch& search = m_library.environment().librarySearch();
    // A search is used before the next one.
    std::vector<std::int64_t> documents;
    for (const TextHit& hit : search.documents(utf8(typed)).best(mostOfEach)) {
        documents.push_back(hit.key);
    }
    for (const std::int64_t key : documents) {
        addDocument(key);
    }
    std::vector<std::int64_t> clients;
    for (const TextHit& hit : search.clients(utf8(typed)).best(mostOfEach)) {
        clients.push_back(hit.key);
    }
    for (const std::int64_t key : clients) {
        addClient(key);
    }
    m_hits->setCurrentRow(0);
}

void QuickOpen::addDocument(std::int64_t key)
{
    Context& context = m_library.context();
    const Document* document = context.find(Ref<Document>(key));
    if (document == nullptr) {
        return;
    }
    const Client* client = context.find(document->client);
    const DisplayStatus status = displayStatus(*document, m_library.today(), m_library.formats().calendar());
    auto* item =
        new QListWidgetItem(tr("%1   %2   %3   %4")
                                .arg(CoreText::sentence(documentName(*document)),
                                     client != nullptr ? text(displayName(*client)) : tr("No client"),
                                     m_library.formats().money(document->cachedTotalMinorUnits, document->currencyCode),
                                     StatusText::word(status, kind(*document))),
                            m_hits);
    item->setIcon(Theme::icon(QStringLiteral("invoice")));
    item->setData(keyRole, qlonglong(key));
}

void QuickOpen::addClient(std::int64_t key)
{
    const Client* client = m_library.context().find(Ref<Client>(key));
    if (client == nullptr) {
        return;
    }
    auto* item =
        new QListWidgetItem(client->city.empty() ? text(displayName(*client))
                                                 : tr("%1   %2").arg(text(displayName(*client)), text(client->city)),
                            m_hits);
    item->setIcon(Theme::icon(QStringLiteral("clients")));
    item->setData(keyRole, qlonglong(key));
    item->setData(isClientRole, true);
}

bool QuickOpen::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_field && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const int step = key->key() == Qt::Key_Down ? 1 : key->key() == Qt::Key_Up ? -1 : 0;
        if (step != 0) {
            m_hits->setCurrentRow(std::clamp(m_hits->currentRow() + step, 0, std::max(0, m_hits->count() - 1)));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void QuickOpen::take()
{
    const QListWidgetItem* item = m_hits->currentItem();
    if (item == nullptr) {
        return;
    }
    const std::int64_t key = item->data(keyRole).toLongLong();
    const bool isClient = item->data(isClientRole).toBool();
    close();
    if (isClient) {
        Q_EMIT wantedClient(key);
    } else {
        Q_EMIT wantedDocument(key);
    }
}

} // namespace Quillary
