#include "QuillaryUI/Schedules/TimeModel.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"
#include "QuillaryCore/Schedules/TimeMath.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Schedules/TimeText.h"

#include <QFont>
#include <QLocale>
#include <QPalette>

#include <algorithm>

namespace Quillary {

TimeModel::TimeModel(LibraryAccess& library, QObject* parent)
    : QAbstractTableModel(parent)
    , m_library(library)
{
    connect(&library, &LibraryAccess::opened, this, &TimeModel::reload);
    connect(&library, &LibraryAccess::changed, this, &TimeModel::take);
}

void TimeModel::take(const ChangeSet& changes)
{
    if (!changes.of<TimeEntry>().isEmpty() || !changes.of<Client>().isEmpty() || !changes.of<Project>().isEmpty()) {
        reload();
    }
}

void TimeModel::setStart(std::optional<Instant> start)
{
    m_start = start;
    reload();
}

void TimeModel::setClient(std::optional<std::int64_t> key)
{
    m_client = key;
    reload();
}

std::vector<const TimeEntry*> TimeModel::entries() const
{
    Context& context = m_library.context();
    const Instant start = m_start.value_or(Instant::min());
    return m_client
               ? context.fetch<TimeEntry>(
                     "client = ? AND start >= ? AND \"end\" IS NOT NULL ORDER BY start DESC, id DESC", *m_client, start)
               : context.fetch<TimeEntry>("start >= ? AND \"end\" IS NOT NULL ORDER BY start DESC, id DESC", start);
}

void TimeModel::reload()
{
    if (!m_library.isOpen()) {
        return;
    }
    const Calendar& calendar = m_library.formats().calendar();
    Context& context = m_library.context();
    beginResetModel();
    m_rows.clear();
    std::size_t day = 0;
    for (const TimeEntry* entry : entries()) {
        if (!entry->start || !entry->end) {
            continue; // the query leaves none such
        }
        const Client* client = context.find(entry->client);
        const Project* project = context.find(entry->project);
        add({.key = entry->ref.key(),
             .day = calendar.date(*entry->start),
             .start = *entry->start,
             .end = *entry->end,
             .seconds = std::max<std::int64_t>(TimeInvoicing::duration(*entry, m_library.now()), 0),
             .client = client != nullptr ? Quillary::text(displayName(*client)) : QString(),
             .project = project != nullptr ? Quillary::text(project->name) : QString(),
             .note = Quillary::text(entry->note),
             .billed = TimeText::billed(context, *entry)},
            day);
    }
    endResetModel();
}

/// `day` is the place of the day's own row.
void TimeModel::add(const Row& entry, std::size_t& day)
{
    if (m_rows.empty() || m_rows[day].day != entry.day) {
        day = m_rows.size();
        Row heading;
        heading.day = entry.day;
        m_rows.push_back(std::move(heading));
    }
    m_rows[day].seconds = checkedAdd(m_rows[day].seconds, entry.seconds);
    m_rows.push_back(entry);
}

std::optional<int> TimeModel::rowOf(std::int64_t key) const
{
    const auto found = std::ranges::find(m_rows, key, &Row::key);
    return key == 0 || found == m_rows.end() ? std::nullopt : std::optional(int(found - m_rows.begin()));
}

int TimeModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int TimeModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(columnsInAll);
}

QString TimeModel::dayText(CalendarDate day) const
{
    const QDate date(int(day.year()), int(unsigned(day.month())), int(unsigned(day.day())));
    const QDate today = m_library.formats().qDate(m_library.now());
    if (date == today) {
        return tr("Today");
    }
    if (date == today.addDays(-1)) {
        return tr("Yesterday");
    }
    return QLocale(Quillary::text(m_library.formats().locale().identifier())).toString(date, QLocale::LongFormat);
}

QString TimeModel::text(const Row& row, int column) const
{
    if (column == hoursColumn) {
        return Quillary::text(TimeMath::hoursAndMinutes(row.seconds));
    }
    if (row.key == 0) {
        return column == timeColumn && m_library.isOpen() ? dayText(row.day) : QString();
    }
    switch (Column(column)) {
    case timeColumn:
        return TimeText::span(m_library.formats().calendar(), row.start, row.end);
    case clientColumn:
        return row.client;
    case projectColumn:
        return row.project;
    case noteColumn:
        return row.note;
    case billedColumn:
        return row.billed;
    case hoursColumn:
    case columnsInAll:
        break;
    }
    return {};
}

QVariant TimeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return text(row, index.column());
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | (index.column() == hoursColumn ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::FontRole:
        if (row.key == 0) {
            QFont bold;
            bold.setWeight(QFont::DemiBold);
            return bold;
        }
        return {};
    case Qt::BackgroundRole:
        return row.key == 0 ? QVariant(QPalette().brush(QPalette::AlternateBase)) : QVariant();
    default:
        return {};
    }
}

QVariant TimeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnsInAll) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (section == hoursColumn ? Qt::AlignRight : Qt::AlignLeft));
    }
    const QString names[] = {tr("Time"), tr("Client"), tr("Project"), tr("Note"), tr("Hours"), tr("Billed")};
    return role == Qt::DisplayRole ? QVariant(names[section]) : QVariant();
}

Qt::ItemFlags TimeModel::flags(const QModelIndex& index) const
{
    const bool isDay = index.isValid() && index.row() < rowCount() && key(index.row()) == 0;
    return isDay ? Qt::ItemIsEnabled : QAbstractTableModel::flags(index);
}

} // namespace Quillary
