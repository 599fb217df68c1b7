// What the rows of a list come to, all together or those that were chosen.
#include "QuillaryCore/Documents/DocumentRows.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"

#include <algorithm>
#include <limits>
#include <unordered_set>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

void addUp(std::int64_t& sum, std::int64_t amount)
{
    // Every stored amount is within `Limits`; only a foreign library could get there.
    if (__builtin_add_overflow(sum, amount, &sum)) {
        sum = amount < 0 ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
    }
}

DocumentStatus storedStatus(DisplayStatus status)
{
    switch (status) {
    case DisplayStatus::draft:
        return DocumentStatus::draft;
    case DisplayStatus::sent:
    case DisplayStatus::partlyPaid:
    case DisplayStatus::overdue:
    case DisplayStatus::expired:
        return DocumentStatus::sent;
    case DisplayStatus::paid:
        return DocumentStatus::paid;
    case DisplayStatus::accepted:
        return DocumentStatus::accepted;
    case DisplayStatus::declined:
        return DocumentStatus::declined;
    }
    return DocumentStatus::draft;
}

/// Which actions are open to all documents that were added.
class CommonActions
{
public:
    explicit CommonActions(DocumentKind kind) { m_facts.kindRaw = static_cast<std::int16_t>(kind); }

    void add(const DocumentRows::Row& row)
    {
        m_facts.statusRaw = static_cast<std::int16_t>(storedStatus(row.status));
        // Whether money or a fee came in is all that the actions ask.
        m_facts.cachedPaidMinorUnits = m_facts.kindRaw == 0 && row.dueMinorUnits != row.totalMinorUnits ? 1 : 0;
        const std::pair facts(m_facts.statusRaw, m_facts.cachedPaidMinorUnits);
        if (std::ranges::find(m_seen, facts) == m_seen.end()) {
            m_seen.push_back(facts);
            const std::vector<StatusAction> open = statusActions(m_facts);
            if (m_seen.size() == 1) {
                m_actions = open;
            }
            std::erase_if(m_actions,
                          [&open](StatusAction action) { return std::ranges::find(open, action) == open.end(); });
        }
    }

    [[nodiscard]] std::vector<StatusAction> actions() && { return std::move(m_actions); }

private:
    Document m_facts;
    std::vector<std::pair<std::int16_t, std::int64_t>> m_seen;
    std::vector<StatusAction> m_actions;
};

} // namespace

std::array<std::size_t, allDisplayStatuses.size()> DocumentRows::counts() const
{
    std::array<std::size_t, allDisplayStatuses.size()> counts{};
    for (const Slot slot : m_slots) {
        counts.at(static_cast<std::size_t>(m_facts[slot].status)) += 1;
    }
    return counts;
}

DocumentRows::Sum DocumentRows::sum(std::span<const std::uint32_t> places) const
{
    struct Figures
    {
        bool isThere = false;
        std::int64_t total = 0;
        std::int64_t due = 0;
    };
    std::vector<Figures> figures(m_currencies.size());
    for (const std::uint32_t place : places) {
        const Amounts& amounts = m_amounts[m_slots[place]];
        Figures& sums = figures[amounts.currency];
        sums.isThere = true;
        addUp(sums.total, amounts.total);
        addUp(sums.due, amounts.due);
    }
    Sum sum{.count = places.size(), .totals = {}, .due = {}};
    for (std::size_t currency = 0; currency < figures.size(); ++currency) {
        if (figures[currency].isThere) {
            sum.totals.emplace(m_currencies[currency], figures[currency].total);
            sum.due.emplace(m_currencies[currency], figures[currency].due);
        }
    }
    return sum;
}

DocumentRows::Summary DocumentRows::summary(std::span<const std::uint32_t> places) const
{
    Summary summary;
    CommonActions common(m_kind);
    std::unordered_set<Key> clients;
    summary.owesAll = !places.empty();
    for (const std::uint32_t place : places) {
        const Row row = this->row(place);
        summary.statuses.at(static_cast<std::size_t>(row.status)) += 1;
        clients.insert(row.client);
        common.add(row);
        summary.owesAll = summary.owesAll && row.dueMinorUnits > 0 && storedStatus(row.status) == DocumentStatus::sent;
        if (row.dueDate) {
            summary.firstDue = std::min(summary.firstDue.value_or(*row.dueDate), *row.dueDate);
            summary.lastDue = std::max(summary.lastDue.value_or(*row.dueDate), *row.dueDate);
        }
    }
    clients.erase(0);
    summary.clients = clients.size();
    summary.actions = std::move(common).actions();
    return summary;
}

} // namespace Quillary
