#include "QuillaryUI/Documents/DocumentListModel.h"

#include "QuillaryUI/Documents/StatusText.h"
#include "QuillaryUI/Library/BesideReader.h"
#include "QuillaryUI/Look/Theme.h"

#include <algorithm>
#include <utility>

namespace Quillary {

namespace {

using RowColumn = DocumentRows::Column;

/// More than any screen shows.
constexpr std::size_t firstScreen = 200;
constexpr int unseenDelay = 1'000; ///< milliseconds

std::vector<RowColumn> columnsOf(DocumentKind kind)
{
    if (kind == DocumentKind::invoice) {
        return {RowColumn::number,
                RowColumn::client,
                RowColumn::issueDate,
                RowColumn::dueDate,
                RowColumn::total,
                RowColumn::due,
                RowColumn::status};
    }
    if (kind == DocumentKind::quote) {
        return {RowColumn::number,
                RowColumn::client,
                RowColumn::issueDate,
                RowColumn::dueDate,
                RowColumn::total,
                RowColumn::status};
    }
    return {RowColumn::number, RowColumn::client, RowColumn::issueDate, RowColumn::total, RowColumn::status};
}

bool isAmount(RowColumn column)
{
    return column == RowColumn::total || column == RowColumn::due;
}

} // namespace

DocumentListModel::DocumentListModel(LibraryAccess& library, DocumentKind kind, QObject* parent)
    : QAbstractTableModel(parent)
    , m_library(library)
    , m_kind(kind)
    , m_columns(columnsOf(kind))
    , m_rows(kind)
    , m_reader(new BesideReader(library, this))
{
    m_rest.setSingleShot(true);
    connect(&m_rest, &QTimer::timeout, this, &DocumentListModel::loadRest);
    connect(m_reader, &BesideReader::failed, this, &DocumentListModel::loadRestHere);
    connect(&library, &LibraryAccess::opened, this, &DocumentListModel::reload);
    connect(&library, &LibraryAccess::changed, this, &DocumentListModel::take);
    connect(&library, &LibraryAccess::closing, this, [this] { m_rest.stop(); });
    if (library.isOpen()) {
        reload();
    }
}

int DocumentListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_places.size());
}

int DocumentListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_columns.size());
}

QVariant DocumentListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const DocumentRows::Row row = m_rows.row(m_places[static_cast<std::size_t>(index.row())]);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return text(row, index.column());
    case Qt::TextAlignmentRole:
        return QVariant(
            Qt::AlignVCenter |
            (isAmount(m_columns[static_cast<std::size_t>(index.column())]) ? Qt::AlignRight : Qt::AlignLeft));
    case keyRole:
        return qlonglong(row.key);
    case statusRole:
        return int(row.status);
    case sortRole:
        return value(row, index.column());
    case Qt::ForegroundRole:
        return m_columns[static_cast<std::size_t>(index.column())] == RowColumn::status
                   ? QVariant(Theme::statusColor(row.status))
                   : QVariant();
    default:
        return {};
    }
}

QString DocumentListModel::text(const DocumentRows::Row& row, int column) const
{
    const Formats& formats = m_library.formats();
    switch (m_columns[static_cast<std::size_t>(column)]) {
    case RowColumn::number:
        return row.number.empty() ? tr("No number") : Quillary::text(row.number);
    case RowColumn::title:
        return Quillary::text(row.title);
    case RowColumn::client:
        return row.clientName.empty() ? tr("No client") : Quillary::text(row.clientName);
    case RowColumn::issueDate:
        return formats.date(row.issueDate);
    case RowColumn::dueDate:
        return formats.date(row.dueDate);
    case RowColumn::total:
        return formats.money(row.totalMinorUnits, row.currencyCode);
    case RowColumn::due:
        return row.dueMinorUnits == 0 ? QString() : formats.money(row.dueMinorUnits, row.currencyCode);
    case RowColumn::status:
        return StatusText::word(row.status, m_kind);
    }
    return {};
}

QVariant DocumentListModel::value(const DocumentRows::Row& row, int column) const
{
    const auto day = [](const std::optional<Instant>& instant) {
        return instant ? QVariant(qlonglong(instant->time_since_epoch().count())) : QVariant();
    };
    switch (m_columns[static_cast<std::size_t>(column)]) {
    case RowColumn::issueDate:
        return day(row.issueDate);
    case RowColumn::dueDate:
        return day(row.dueDate);
    case RowColumn::total:
        return qlonglong(row.totalMinorUnits);
    case RowColumn::due:
        return qlonglong(row.dueMinorUnits);
    case RowColumn::status:
        return int(row.status);
    case RowColumn::number:
    case RowColumn::title:
    case RowColumn::client:
        return text(row, column);
    }
    return {};
}

QVariant DocumentListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    const RowColumn column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (isAmount(column) ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (column) {
    case RowColumn::number:
        return tr("Number");
    case RowColumn::title:
        return tr("Title");
    case RowColumn::client:
        return tr("Client");
    case RowColumn::issueDate:
        return tr("Date");
    case RowColumn::dueDate:
        return m_kind == DocumentKind::quote ? tr("Valid Until") : tr("Due");
    case RowColumn::total:
        return tr("Total");
    case RowColumn::due:
        return tr("Open");
    case RowColumn::status:
        return tr("Status");
    }
    return {};
}

void DocumentListModel::sort(int column, Qt::SortOrder order)
{
    if (column < 0 || column >= columnCount()) {
        return;
    }
    m_sortColumn = m_columns[static_cast<std::size_t>(column)];
    m_order = order == Qt::AscendingOrder ? DocumentRows::Order::ascending : DocumentRows::Order::descending;
    arrange(chosen());
}

void DocumentListModel::setFilter(DocumentRows::Filter filter)
{
    if (filter != m_filter) {
        m_filter = std::move(filter);
        arrange(chosen());
    }
}

std::optional<int> DocumentListModel::placeOf(DocumentRows::Column column) const
{
    const auto found = std::ranges::find(m_columns, column);
    return found == m_columns.end() ? std::nullopt : std::optional(int(found - m_columns.begin()));
}

DocumentRows::Key DocumentListModel::key(int row) const
{
    return m_rows.key(m_places[static_cast<std::size_t>(row)]);
}

std::optional<int> DocumentListModel::rowOf(DocumentRows::Key key) const
{
    const std::optional<std::uint32_t> place = m_rows.place(key);
    const auto found = place ? std::ranges::find(m_places, *place) : m_places.end();
    return found == m_places.end() ? std::nullopt : std::optional(int(found - m_places.begin()));
}

std::vector<std::uint32_t> DocumentListModel::placesOf(std::span<const int> rows) const
{
    std::vector<std::uint32_t> places;
    places.reserve(rows.size());
    for (const int row : rows) {
        places.push_back(m_places[static_cast<std::size_t>(row)]);
    }
    return places;
}

DocumentRows::Sum DocumentListModel::sum(std::span<const int> rows) const
{
    return m_rows.sum(placesOf(rows));
}

DocumentRows::Summary DocumentListModel::summary(std::span<const int> rows) const
{
    return m_rows.summary(placesOf(rows));
}

DocumentRows::Sum DocumentListModel::sum() const
{
    return m_rows.sum(m_places);
}

void DocumentListModel::reload()
{
    if (!m_library.isOpen()) {
        return;
    }
    beginResetModel();
    m_rows.load(m_library.context(), m_library.today(), m_library.formats().calendar(), firstScreen);
    m_places = m_rows.arranged(m_filter, m_sortColumn, m_order);
    endResetModel();
    if (!m_rows.isWhole()) {
        m_rest.start(m_wasShown ? 0 : unseenDelay);
    }
    Q_EMIT arranged();
}

void DocumentListModel::didShow()
{
    m_wasShown = true;
    if (m_rest.isActive()) {
        m_rest.start(0);
    }
}

/// Another day changes words, hardly ever rows: those that are there stay until the others come.
void DocumentListModel::refreshDay()
{
    if (m_rows.isWhole()) {
        loadRest();
    } else {
        reload();
    }
}

void DocumentListModel::loadRest()
{
    if (!m_library.isOpen()) {
        return;
    }
    m_missed.clear();
    m_reader->read<DocumentRows>(
        [kind = m_kind, today = m_library.today()](const AssistantEnvironment& environment) {
            DocumentRows whole(kind);
            whole.load(environment.context, today, environment.calendar);
            return whole;
        },
        [this](DocumentRows whole) { show(std::move(whole)); });
}

/// Where nothing can be read beside the window, the list must still become whole.
void DocumentListModel::loadRestHere()
{
    if (m_library.isOpen()) {
        DocumentRows whole(m_kind); // the rows shown stay if the library can't be read
        whole.load(m_library.context(), m_library.today(), m_library.formats().calendar());
        show(std::move(whole));
    }
}

void DocumentListModel::show(DocumentRows whole)
{
    for (const ChangeSet& changes : std::exchange(m_missed, {})) {
        whole.update(m_library.context(), changes, m_library.today(), m_library.formats().calendar());
    }
    const Chosen chosen = this->chosen();
    m_rows = std::move(whole);
    arrange(chosen);
}

void DocumentListModel::take(const ChangeSet& changes)
{
    if (!m_library.isOpen()) {
        return;
    }
    if (m_reader->isReading()) {
        m_missed.push_back(changes);
    } else if (!m_rows.isWhole()) {
        reload();
        return;
    }
    const Chosen chosen = this->chosen();
    if (m_rows.update(m_library.context(), changes, m_library.today(), m_library.formats().calendar())) {
        arrange(chosen);
    }
}

DocumentListModel::Chosen DocumentListModel::chosen() const
{
    Chosen chosen{.indexes = persistentIndexList(), .keys = {}};
    chosen.keys.reserve(static_cast<std::size_t>(chosen.indexes.size()));
    for (const QModelIndex& index : chosen.indexes) {
        chosen.keys.push_back(key(index.row()));
    }
    return chosen;
}

/// Rows that stay keep what is chosen of them. When their number changes everything is told anew, and whoever shows
/// the list finds its row by the key.
void DocumentListModel::arrange(const Chosen& chosen)
{
    std::vector<std::uint32_t> places = m_rows.arranged(m_filter, m_sortColumn, m_order);
    if (places.size() != m_places.size()) {
        beginResetModel();
        m_places = std::move(places);
        endResetModel();
        Q_EMIT arranged();
        return;
    }
    Q_EMIT layoutAboutToBeChanged();
    m_places = std::move(places);
    QModelIndexList after;
    after.reserve(chosen.indexes.size());
    for (std::size_t place = 0; place < chosen.keys.size(); ++place) {
        const std::optional<int> row = rowOf(chosen.keys[place]);
        after.push_back(row ? index(*row, chosen.indexes[qsizetype(place)].column()) : QModelIndex());
    }
    changePersistentIndexList(chosen.indexes, after);
    Q_EMIT layoutChanged();
    Q_EMIT arranged();
}

} // namespace Quillary
