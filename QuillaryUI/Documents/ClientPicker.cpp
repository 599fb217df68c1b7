#include "QuillaryUI/Documents/ClientPicker.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Search/LibrarySearch.h"
#include "QuillaryCore/Store/Context.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QStandardItemModel>

namespace Quillary {

namespace {

constexpr std::size_t mostHits = 12;
constexpr int keyRole = Qt::UserRole;
constexpr int nameRole = Qt::UserRole + 1; ///< of a client that isn't there yet

} // namespace

ClientPicker::ClientPicker(LibraryAccess& library, QWidget* parent, Offers offers)
    : QLineEdit(parent)
    , m_library(library)
    , m_offers(offers)
    , m_hits(new QStandardItemModel(this))
    , m_completer(new QCompleter(m_hits, this))
{
    setPlaceholderText(tr("Name, number or city"));
    m_completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    m_completer->setMaxVisibleItems(int(mostHits) + 1);
    m_completer->setWidget(this);
    connect(this, &QLineEdit::textEdited, this, &ClientPicker::suggest);
    connect(m_completer,
            qOverload<const QModelIndex&>(&QCompleter::activated),
            this,
            &ClientPicker::take,
            Qt::QueuedConnection); // the completer writes the row's text first
    connect(this, &QLineEdit::editingFinished, this, &ClientPicker::finish);
}

namespace {

bool isEnterKey(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

/// Tab takes the best, as Enter does, and goes on from there.
bool ClientPicker::event(QEvent* event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab &&
        m_completer->popup()->isVisible()) {
        const QModelIndex best = m_completer->popup()->currentIndex();
        m_completer->popup()->hide();
        if (best.isValid()) {
            const bool isNew = best.data(keyRole).toLongLong() == 0;
            take(best);
            if (isNew) {
                return true; // who is asked about first
            }
        }
    }
    const bool isEnter = event->type() == QEvent::KeyPress && isEnterKey(static_cast<QKeyEvent*>(event)->key());
    const QString typed = text();
    const bool isTaken = QLineEdit::event(event);
    if (isEnter && text() != typed) {
        event->accept(); // it has had its answer here, and is none for the sheet around
        return true;
    }
    return isTaken;
}

void ClientPicker::finish()
{
    if (m_completer->popup()->isVisible()) {
        return;
    }
    const QString typed = text().trimmed();
    const bool isEmptied = m_offers == Offers::existing && typed.isEmpty() && m_client != 0;
    setClient(isEmptied ? 0 : m_client); // what was typed and not chosen is nobody
    if (isEmptied) {
        Q_EMIT picked(0);
    } else if (m_offers == Offers::newToo && hasFocus() && !typed.isEmpty() && typed != text()) {
        Q_EMIT wantedNew(typed); // Enter, after the suggestions were sent away
    }
}

void ClientPicker::setClient(std::int64_t key)
{
    m_client = key;
    const Client* client = m_library.isOpen() ? m_library.context().find(Ref<Client>(key)) : nullptr;
    setText(client != nullptr ? Quillary::text(displayName(*client)) : QString());
}

void ClientPicker::suggest(const QString& typed)
{
    m_hits->clear();
    if (!m_library.isOpen() || typed.trimmed().isEmpty()) {
        m_completer->popup()->hide();
        return;
    }
    for (const TextHit& hit : m_library.environment().librarySearch().clients(utf8(typed)).best(mostHits)) {
        const Client* client = m_library.context().find(Ref<Client>(hit.key));
        if (client == nullptr) {
            continue;
        }
        const QString place = client->city.empty() ? QString() : QStringLiteral("  ·  ") + Quillary::text(client->city);
        auto* item = new QStandardItem(Quillary::text(displayName(*client)) + place);
        item->setData(qlonglong(hit.key), keyRole);
        m_hits->appendRow(item);
    }
    if (m_offers == Offers::newToo) {
        auto* fresh = new QStandardItem(tr("New client “%1”").arg(typed.trimmed()));
        fresh->setData(qlonglong(0), keyRole);
        fresh->setData(typed.trimmed(), nameRole);
        m_hits->appendRow(fresh);
    }
    if (m_hits->rowCount() == 0) {
        m_completer->popup()->hide();
        return;
    }
    m_completer->complete();
    m_completer->popup()->setCurrentIndex(m_hits->index(0, 0)); // Enter takes the best
}

void ClientPicker::take(const QModelIndex& index)
{
    const std::int64_t key = index.data(keyRole).toLongLong();
    if (key != 0) {
        setClient(key);
        Q_EMIT picked(key);
        return;
    }
    const QString name = index.data(nameRole).toString();
    setClient(m_client);
    Q_EMIT wantedNew(name);
}

} // namespace Quillary
