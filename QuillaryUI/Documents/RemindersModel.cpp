#include "QuillaryUI/Documents/RemindersModel.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Theme.h"

#include <string>
#include <utility>

namespace Quillary {

RemindersModel::RemindersModel(const LibraryAccess& library, std::span<const std::int64_t> documents, QObject* parent)
    : QAbstractTableModel(parent)
{
    m_rows.reserve(documents.size());
    for (const std::int64_t key : documents) {
        if (const auto planned = ReminderWriting::next(library, key)) {
            add(library, *planned);
        }
    }
}

void RemindersModel::add(const LibraryAccess& library, const PlannedReminder& planned)
{
    Context& context = library.context();
    const Formats& formats = library.formats();
    const Document& record = *context.find(Ref<Document>(planned.document));
    const Client* client = context.find(record.client);
    const ReminderDetails& details = planned.notice.details;
    Row row{.planned = planned, .refusal = ReminderWriting::refusal(library, planned), .texts = {}};
    row.texts[documentColumn] = text(record.number.empty() ? documentName(record) : record.number);
    row.texts[clientColumn] = client == nullptr ? tr("No client") : text(displayName(*client));
    row.texts[openColumn] = formats.money(amountDueMinorUnits(context, record), record.currencyCode);
    if (row.refusal) {
        row.texts[levelColumn] = *row.refusal;
    } else {
        row.texts[levelColumn] = CoreText::word(title(details.level));
        row.texts[feeColumn] =
            details.feeMinorUnits == 0 ? tr("None") : formats.money(details.feeMinorUnits, record.currencyCode);
        row.texts[payByColumn] = formats.date(details.payBy);
    }
    m_rows.push_back(std::move(row));
}

int RemindersModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int RemindersModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(columnTotal);
}

QVariant RemindersModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const Row& row = m_rows[std::size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return row.texts[index.column()];
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter |
                        (index.column() == openColumn || index.column() == feeColumn ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
        return row.refusal && index.column() == levelColumn ? QVariant(Theme::errorColor()) : QVariant();
    default:
        return {};
    }
}

QVariant RemindersModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter |
                        (section == openColumn || section == feeColumn ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    const QString titles[] = {tr("Invoice"), tr("Client"), tr("Open"), tr("Letter"), tr("Late fee"), tr("Pay by")};
    return titles[section];
}

std::vector<PlannedReminder> RemindersModel::sendable() const
{
    std::vector<PlannedReminder> sendable;
    for (const Row& row : m_rows) {
        if (!row.refusal) {
            sendable.push_back(row.planned);
        }
    }
    return sendable;
}

} // namespace Quillary
