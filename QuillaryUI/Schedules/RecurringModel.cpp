#include "QuillaryUI/Schedules/RecurringModel.h"

#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"
#include "QuillaryUI/Documents/RhythmText.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Schedules/OwedInvoice.h"

#include <algorithm>

namespace Quillary {

namespace {

/// A state is coloured as the status that is most like it.
QColor stateColor(RecurringState state)
{
    switch (state) {
    case RecurringState::active:
        return Theme::statusColor(DisplayStatus::accepted);
    case RecurringState::paused:
        return Theme::statusColor(DisplayStatus::partlyPaid);
    case RecurringState::ended:
        return Theme::statusColor(DisplayStatus::expired);
    }
    return {};
}

} // namespace

RecurringModel::RecurringModel(LibraryAccess& library, QObject* parent)
    : QAbstractTableModel(parent)
    , m_library(library)
{
    connect(&library, &LibraryAccess::opened, this, &RecurringModel::reload);
    connect(&library, &LibraryAccess::changed, this, &RecurringModel::take);
    reload();
}

void RecurringModel::take(const ChangeSet& changes)
{
    // Few libraries have more than a few dozen templates.
    if (!changes.of<Document>().isEmpty() || !changes.of<Client>().isEmpty() || !changes.of<Business>().isEmpty()) {
        reload();
    }
}

void RecurringModel::reload()
{
    if (!m_library.isOpen()) {
        return;
    }
    const Calendar& calendar = m_library.formats().calendar();
    Context& context = m_library.context();
    beginResetModel();
    m_rows.clear();
    for (const Document* recurring : RecurringInvoices::all(context)) {
        const Client* client = context.find(recurring->client);
        const RecurringState state = RecurringTemplate::state(*recurring, calendar);
        m_rows.push_back(
            {.key = recurring->ref.key(),
             .title = recurring->title.empty() ? tr("No title") : text(recurring->title),
             .client = client != nullptr ? text(displayName(*client)) : tr("No client"),
             .rhythm = RhythmText::sentence(*recurring, m_library.formats()),
             .next = state == RecurringState::ended ? QString() : m_library.formats().date(recurring->nextIssueDate),
             .state = state,
             .obstacle = {}});
    }
    for (Row& row : m_rows) {
        const std::optional<OwedInvoice> owed = OwedInvoice::of(m_library, row.key);
        row.obstacle = owed ? owed->obstacle : QString();
    }
    endResetModel();
}

std::optional<int> RecurringModel::rowOf(std::int64_t key) const
{
    const auto found = std::ranges::find(m_rows, key, &Row::key);
    return found == m_rows.end() ? std::nullopt : std::optional(int(found - m_rows.begin()));
}

int RecurringModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int RecurringModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(columnsInAll);
}

QVariant RecurringModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    const bool standsStill = index.column() == stateColumn && !row.obstacle.isEmpty();
    if (role == Qt::ForegroundRole) {
        return standsStill                     ? QVariant(Theme::statusColor(DisplayStatus::overdue))
               : index.column() == stateColumn ? QVariant(stateColor(row.state))
                                               : QVariant();
    }
    if (standsStill && role == Qt::ToolTipRole) {
        return row.obstacle;
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    switch (Column(index.column())) {
    case titleColumn:
        return row.title;
    case clientColumn:
        return row.client;
    case rhythmColumn:
        return row.rhythm;
    case nextColumn:
        return row.next;
    case stateColumn:
        return standsStill ? tr("Can't be made") : CoreText::word(Quillary::title(row.state));
    case columnsInAll:
        break;
    }
    return {};
}

QVariant RecurringModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnsInAll) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | Qt::AlignLeft);
    }
    const QString names[] = {tr("Title"), tr("Client"), tr("Rhythm"), tr("Next"), tr("State")};
    return role == Qt::DisplayRole ? QVariant(names[section]) : QVariant();
}

} // namespace Quillary
