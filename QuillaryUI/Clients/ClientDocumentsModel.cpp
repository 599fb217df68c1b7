#include "QuillaryUI/Clients/ClientDocumentsModel.h"

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/StatusText.h"
#include "QuillaryUI/Look/Theme.h"

#include <algorithm>
#include <utility>

namespace Quillary {

ClientDocumentsModel::ClientDocumentsModel(LibraryAccess& library, QObject* parent)
    : QAbstractTableModel(parent)
    , m_library(library)
{
    connect(&library, &LibraryAccess::opened, this, &ClientDocumentsModel::reload);
    connect(&library, &LibraryAccess::changed, this, &ClientDocumentsModel::take);
}

int ClientDocumentsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int ClientDocumentsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(columns);
}

QVariant ClientDocumentsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return row.texts[index.column()];
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | (index.column() >= total ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
        return index.column() == status ? QVariant(row.statusColor) : QVariant();
    default:
        return {};
    }
}

QVariant ClientDocumentsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (section >= total ? Qt::AlignRight : Qt::AlignLeft));
    }
    const QString titles[columns] = {tr("Document"), tr("Date"), tr("Status"), tr("Total"), tr("Open")};
    return role == Qt::DisplayRole && section >= 0 && section < columns ? QVariant(titles[section]) : QVariant();
}

void ClientDocumentsModel::setClient(std::int64_t key)
{
    m_client = key;
    reload();
}

void ClientDocumentsModel::reload()
{
    if (!m_library.isOpen()) {
        return;
    }
    beginResetModel();
    m_rows.clear();
    const Formats& formats = m_library.formats();
    const auto documents =
        m_library.context().fetch<Document>("client = ? AND kindRaw <> ? ORDER BY issueDate DESC, id DESC",
                                            m_client,
                                            static_cast<std::int16_t>(DocumentKind::recurring));
    for (const Document* document : documents) {
        const DocumentKind ofKind = kind(*document).value_or(DocumentKind::invoice);
        const DisplayStatus shown = displayStatus(*document, m_library.today(), formats.calendar());
        const std::int64_t due = acceptsPayments(*document) ? cachedAmountDueMinorUnits(*document) : 0;
        const QString name =
            document->number.empty() ? tr("%1 without a number").arg(StatusText::kind(ofKind)) : text(document->number);
        m_rows.push_back({document->ref.key(),
                          {name,
                           formats.date(document->issueDate),
                           StatusText::word(shown, ofKind),
                           formats.money(document->cachedTotalMinorUnits, document->currencyCode),
                           due == 0 ? QString() : formats.money(due, document->currencyCode)},
                          Theme::statusColor(shown)});
    }
    endResetModel();
}

void ClientDocumentsModel::take(const ChangeSet& changes)
{
    if (!changes.of<Document>().isEmpty()) {
        reload();
    }
}

} // namespace Quillary
