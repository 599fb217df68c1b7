#include "QuillaryCore/Store/Table.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <algorithm>
#include <limits>

namespace Quillary {

namespace {

/// How many rows of the last save are checked for changes that nobody would save. More would cost a large import time.
constexpr std::size_t watchedRows = 64;

} // namespace

Table::Table(const RecordType& type, Connection& connection, std::int64_t& nextKey)
    : m_type(type)
    , m_connection(connection)
    , m_statements(type, connection)
    , m_nextKey(nextKey)
    , m_related(type.entity().relationships.size())
{
    for (std::size_t column = 0; column < type.columnCount(); ++column) {
        m_allColumns.set(column);
    }
}

AnyRow* Table::inMemory(std::int64_t key) const
{
    const auto found = m_rows.find(key);
    return found == m_rows.end() ? nullptr : found->second.get();
}

AnyRow* Table::find(std::int64_t key)
{
    if (AnyRow* row = inMemory(key)) {
        return row->isAlive ? row : nullptr;
    }
    Statement& statement = m_statements.find();
    const Statement::Reading reading(statement);
    statement.bind(1, key);
    return statement.step() ? &adopt(statement, key) : nullptr;
}

AnyRow& Table::adopt(Statement& statement, std::int64_t key)
{
    auto row = m_type.makeRow(key);
    m_type.read(row->record(), statement, 1);
    for (std::size_t relationship = 0; relationship < m_related.size(); ++relationship) {
        row->listedTargets()[relationship] = m_type.reference(row->record(), relationship);
    }
    return *m_rows.emplace(key, std::move(row)).first->second;
}

AnyRow& Table::insert()
{
    AnyRow& row = revive(m_nextKey++);
    row.isInsertedHere = true;
    return row;
}

AnyRow& Table::revive(std::int64_t key)
{
    auto& place = m_rows[key];
    if (!place) {
        place = m_type.makeRow(key);
        place->isTouched = true;
        m_touched.push_back(place.get());
    }
    place->isAlive = true;
    return *place;
}

void Table::touch(AnyRow& row)
{
    if (!row.isTouched) {
        if (row.released) {
            requireUnchanged(row);
        }
        row.saved = row.released ? std::move(row.released) : m_type.image(row.record());
        row.released = nullptr;
        row.written = row.saved;
        row.observed = row.saved;
        row.isTouched = true;
        m_touched.push_back(&row);
    }
}

void Table::open(AnyRow& row)
{
    touch(row);
    if (!row.isOpen) {
        row.isOpen = true;
        m_open.push_back(&row);
    }
}

void Table::queue(AnyRow& row)
{
    if (!row.isQueued) {
        row.isQueued = true;
        m_queue.push_back(&row);
    }
}

void Table::bury(AnyRow& row)
{
    touch(row);
    row.isAlive = false;
    noteChanged(row);
}

void Table::restore(AnyRow& row, const Image& image)
{
    touch(row);
    if (image) {
        m_type.restore(row.record(), image.get());
        row.isAlive = true;
    } else {
        row.isAlive = false;
    }
    noteChanged(row);
}

void Table::noteChanged(AnyRow& row)
{
    list(row);
    queue(row);
}

Image Table::imageNow(const AnyRow& row) const
{
    if (!row.isAlive) {
        return nullptr;
    }
    for (const Image& known : {row.written, row.saved}) {
        if (known && m_type.areEqual(row.record(), known.get())) {
            return known;
        }
    }
    return m_type.image(row.record());
}

bool Table::isAs(const AnyRow& row, const Image& image) const
{
    if (!row.isAlive || !image) {
        return !row.isAlive && !image;
    }
    return m_type.areEqual(row.record(), image.get());
}

Image Table::merged(const Image& base, const Image& before, const AnyRow& row) const
{
    const auto scratch = m_type.makeRow(row.key);
    m_type.restore(scratch->record(), base.get());
    m_type.copy(m_type.differences(before.get(), row.record()), row.record(), scratch->record());
    return m_type.image(scratch->record());
}

Image Table::withColumn(const Image& base, std::size_t column, const void* from) const
{
    const auto scratch = m_type.makeRow(0);
    m_type.restore(scratch->record(), base.get());
    m_type.copy(ColumnSet().set(column), from, scratch->record());
    return m_type.image(scratch->record());
}

std::vector<AnyRow*> Table::readRows(Statement& statement, std::size_t limit)
{
    const Statement::Reading reading(statement);
    std::vector<AnyRow*> rows;
    while (rows.size() < limit && statement.step()) {
        const std::int64_t key = statement.integer(0);
        AnyRow* row = inMemory(key);
        rows.push_back(row != nullptr ? row : &adopt(statement, key));
    }
    return rows;
}

void Table::listOpen()
{
    if (!m_related.empty()) {
        for (AnyRow* row : m_open) {
            list(*row);
        }
    }
}

void Table::list(AnyRow& row)
{
    for (std::size_t relationship = 0; relationship < m_related.size(); ++relationship) {
        const std::int64_t target = row.isAlive ? m_type.reference(row.record(), relationship) : 0;
        if (target != row.listedTargets()[relationship]) {
            relist(row, relationship, target);
        }
    }
}

void Table::relist(AnyRow& row, std::size_t relationship, std::int64_t target)
{
    Related& related = m_related[relationship];
    std::int64_t& listed = row.listedTargets()[relationship];
    if (const auto former = related.find(listed); listed != 0 && former != related.end()) {
        std::erase(former->second, &row);
    }
    listed = target;
    if (target == 0) {
        return;
    }
    auto entry = related.find(target);
    if (entry == related.end()) {
        // A list that nobody asked for is started only where it will be complete: under a target so new that
        // everything that leads to it passes by here.
        const AnyRow* owner = m_targets[relationship]->inMemory(target);
        if (owner == nullptr || !owner->isInsertedHere) {
            return;
        }
        entry = related.try_emplace(target).first;
    }
    auto& rows = entry->second;
    const auto place = std::ranges::lower_bound(rows, row.key, {}, &AnyRow::key);
    if (place == rows.end() || *place != &row) {
        rows.insert(place, &row);
    }
}

bool Table::isRelatedKnown(std::size_t relationship, std::int64_t target) const
{
    if (m_related[relationship].contains(target)) {
        return true;
    }
    const AnyRow* owner = m_targets[relationship]->inMemory(target);
    return owner != nullptr && owner->isInsertedHere;
}

const std::vector<AnyRow*>& Table::related(std::size_t relationship, std::int64_t target)
{
    listOpen();
    Related& related = m_related[relationship];
    if (const auto entry = related.find(target); entry != related.end()) {
        return entry->second;
    }
    if (isRelatedKnown(relationship, target)) {
        return related.try_emplace(target).first->second;
    }
    Statement& statement = m_statements.related(relationship);
    statement.bind(1, target);
    return related[target] = readRows(statement, std::numeric_limits<std::size_t>::max());
}

void Table::loadRelated(std::size_t relationship, std::vector<std::int64_t> targets)
{
    std::erase_if(targets, [&](std::int64_t target) { return isRelatedKnown(relationship, target); });
    std::ranges::sort(targets);
    targets.erase(std::unique(targets.begin(), targets.end()), targets.end());
    // Where most of the keys between the first and the last are wanted, one scan is cheaper than a search for each.
    const bool isDense =
        targets.size() > 1 && targets.back() - targets.front() < 2 * static_cast<std::int64_t>(targets.size());
    if (isDense) {
        loadRelatedRange(relationship, targets);
        return;
    }
    for (const std::int64_t target : targets) {
        related(relationship, target);
    }
}

void Table::loadRelatedRange(std::size_t relationship, const std::vector<std::int64_t>& targets)
{
    Related& related = m_related[relationship];
    const int targetColumn = static_cast<int>(m_type.entity().attributes.size() + relationship) + 1;
    Statement& statement = m_statements.relatedToRange(relationship);
    const Statement::Reading reading(statement);
    statement.bind(1, targets.front());
    statement.bind(2, targets.back());
    bool hasRow = statement.step();
    for (const std::int64_t target : targets) {
        while (hasRow && statement.integer(targetColumn) < target) {
            hasRow = statement.step();
        }
        std::vector<AnyRow*>& rows = related[target];
        for (; hasRow && statement.integer(targetColumn) == target; hasRow = statement.step()) {
            const std::int64_t key = statement.integer(0);
            AnyRow* row = inMemory(key);
            rows.push_back(row != nullptr ? row : &adopt(statement, key));
        }
    }
}

bool Table::hasChanges() const
{
    return std::ranges::any_of(m_touched, [&](const AnyRow* row) { return !isAs(*row, row->saved); });
}

void Table::beginIfNeeded()
{
    if (!m_connection.isInTransaction()) {
        m_connection.begin();
    }
}

void Table::flush(Images images)
{
    for (AnyRow* row : m_open) {
        list(*row);
        flushRow(*row, images);
    }
    for (AnyRow* row : m_queue) {
        row->isQueued = false;
        if (!row->isOpen) { // else it was written just now
            list(*row);
            flushRow(*row, images);
        }
    }
    m_queue.clear();
}

void Table::flushRow(AnyRow& row, Images images)
{
    if (isAs(row, row.written)) {
        return;
    }
    write(row, row.written.get(), row.isAlive ? row.record() : nullptr);
    if (!row.isAlive) {
        row.written = nullptr;
    } else if (images == Images::keep) {
        row.written = m_type.image(row.record());
    }
}

void Table::write(const AnyRow& row, const void* from, const void* to)
{
    if (from == nullptr && to == nullptr) {
        return;
    }
    beginIfNeeded();
    if (to == nullptr) {
        Statement& deletion = m_statements.deletion();
        deletion.bind(1, row.key);
        deletion.run();
        return;
    }
    if (from == nullptr) {
        Statement& insertion = m_statements.insertion();
        insertion.bind(1, row.key);
        m_type.bind(to, m_allColumns, insertion, 2);
        insertion.run();
        return;
    }
    const ColumnSet columns = m_type.differences(from, to);
    if (columns.any()) {
        Statement& update = m_statements.update(columns);
        update.bind(m_type.bind(to, columns, update, 1), row.key);
        update.run();
    }
}

void Table::forgetTransaction() noexcept
{
    m_queue.clear(); // a flush that was broken off left it half done
    for (AnyRow* row : m_touched) {
        row->written = row->saved;
        row->isQueued = true;
        m_queue.push_back(row);
    }
}

void Table::settle()
{
    // Rows in memory are read back as they were written, so nothing but the flags has to change.
    requireUnchangedSince();
    m_open.clear();
    m_queue.clear();
    for (AnyRow* row : m_touched) {
        release(*row);
    }
    m_touched.clear();
}

void Table::sweep()
{
    requireUnchangedSince();
    const auto canGo = [this](const AnyRow* row) {
        return !row->isOpen && row->scopeDepth == 0 && isAs(*row, row->saved) && isAs(*row, row->written);
    };
    std::erase_if(m_queue, canGo);
    std::erase_if(m_touched, [&](AnyRow* row) {
        if (!canGo(row)) {
            return false;
        }
        release(*row);
        return true;
    });
}

RecordChanges Table::unsavedChanges() const
{
    RecordChanges changes;
    for (const AnyRow* row : m_touched) {
        if (!isAs(*row, row->saved)) {
            changes.add(row->key, row->saved != nullptr, row->isAlive);
        }
    }
    return changes;
}

RecordChanges Table::takeUnobservedChanges()
{
    RecordChanges changes;
    for (AnyRow* row : m_touched) {
        if (!isAs(*row, row->observed)) {
            changes.add(row->key, row->observed != nullptr, row->isAlive);
            row->observed = imageNow(*row);
        }
    }
    return changes;
}

void Table::restoreSaved()
{
    for (AnyRow* row : m_touched) {
        if (!isAs(*row, row->saved)) {
            restore(*row, row->saved);
        }
    }
}

void Table::release(AnyRow& row)
{
    if (!row.isAlive) {
        m_rows.erase(row.key);
        return;
    }
    row.settle();
    if (m_released.size() < watchedRows) {
        row.released = m_type.image(row.record());
        m_released.push_back(&row);
    }
}

void Table::requireUnchanged(const AnyRow& row) const
{
    precondition(m_type.areEqual(row.record(), row.released.get()),
                 "a record is asked for with edit before it is changed, after a save, rollback or scope once more");
}

void Table::requireUnchangedSince()
{
    for (AnyRow* row : m_released) {
        if (row->released) {
            requireUnchanged(*row);
            row->released = nullptr;
        }
    }
    m_released.clear();
}

void Table::closeAfter(std::size_t count)
{
    for (std::size_t index = count; index < m_open.size(); ++index) {
        list(*m_open[index]);
        m_open[index]->isOpen = false;
        queue(*m_open[index]);
    }
    m_open.resize(std::min(count, m_open.size()));
}

void Table::dropRelated()
{
    listOpen();
    // Lists under records that are new in this context hold only what is touched, and are known nowhere else.
    for (std::size_t relationship = 0; relationship < m_related.size(); ++relationship) {
        std::erase_if(m_related[relationship], [&](const auto& entry) {
            const AnyRow* owner = m_targets[relationship]->inMemory(entry.first);
            return owner == nullptr || !owner->isInsertedHere || !owner->isTouched || owner->saved;
        });
    }
}

void Table::dropUntouched()
{
    requireUnchangedSince();
    std::erase_if(m_rows, [](const auto& entry) { return !entry.second->isTouched; });
    for (AnyRow* row : m_touched) {
        row->isInsertedHere = row->isInsertedHere && !row->saved;
    }
}

} // namespace Quillary
