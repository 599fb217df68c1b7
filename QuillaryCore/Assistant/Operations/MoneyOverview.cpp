#include "QuillaryCore/Assistant/Operations/MoneyOverview.h"

#include "QuillaryCore/Assistant/Operations/UnbilledTime.h"
#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"

#include <algorithm>
#include <map>

namespace Quillary {

namespace {

using Item = MoneyOverview::Item;

/// Sorts every document that waits into the overview of its currency.
class Collector
{
public:
    explicit Collector(const AssistantEnvironment& environment)
        : m_environment(environment)
        , m_today(environment.clock.now())
    {
    }

    void addDocuments()
    {
        Document figures; // only what status and amount due are derived from
        m_environment.context.query(
            "SELECT id, kindRaw, statusRaw, currencyCode, issueDate, dueDate, cachedTotalMinorUnits, "
            "cachedPaidMinorUnits, cachedLateFeesMinorUnits FROM Document "
            "WHERE statusRaw IN (0, 1) AND kindRaw NOT IN (1, 3) ORDER BY id",
            [&](const Statement& row) {
                figures.kindRaw = static_cast<std::int16_t>(row.integer(1));
                figures.statusRaw = static_cast<std::int16_t>(row.integer(2));
                figures.currencyCode = row.text(3);
                figures.issueDate = row.instant(4);
                figures.dueDate = row.instant(5);
                figures.cachedTotalMinorUnits = row.integer(6);
                figures.cachedPaidMinorUnits = row.integer(7);
                figures.cachedLateFeesMinorUnits = row.integer(8);
                add(row.integer(0), figures);
            });
    }

    void addTime()
    {
        for (const UnbilledTime& time : unbilledTime(m_environment, std::nullopt)) {
            MoneyOverview& overview = of(m_environment.ownBusiness().currencyCode);
            overview.unbilledThousandths = checkedAdd(overview.unbilledThousandths, time.hoursThousandths());
            overview.unbilledSeconds = checkedAdd(overview.unbilledSeconds, time.seconds());
            overview.unbilledValue = checkedAdd(overview.unbilledValue, time.value());
        }
    }

    [[nodiscard]] std::vector<MoneyOverview> finished()
    {
        std::vector<MoneyOverview> result;
        for (auto& [code, overview] : m_overviews) {
            std::ranges::stable_sort(overview.open, {}, dueFirst);
            std::ranges::stable_sort(overview.drafts, {}, &Item::date);
            result.push_back(std::move(overview));
        }
        std::ranges::stable_partition(result, [this](const MoneyOverview& overview) {
            return overview.currencyCode == m_environment.ownBusiness().currencyCode;
        });
        return result;
    }

private:
    MoneyOverview& of(const std::string& currencyCode)
    {
        MoneyOverview& overview = m_overviews[currencyCode];
        overview.currencyCode = currencyCode;
        return overview;
    }

    /// What has no due date asks for nothing yet and comes last.
    static std::pair<bool, std::optional<Instant>> dueFirst(const Item& item) { return {!item.date, item.date}; }

    void add(std::int64_t key, const Document& figures)
    {
        MoneyOverview& overview = of(figures.currencyCode);
        if (status(figures) == DocumentStatus::draft) {
            overview.drafts.push_back({key, figures.cachedTotalMinorUnits, figures.issueDate});
            overview.draftTotal = checkedAdd(overview.draftTotal, figures.cachedTotalMinorUnits);
            return;
        }
        if (!acceptsPayments(figures)) {
            overview.creditNotes.push_back({key, figures.cachedTotalMinorUnits, figures.issueDate});
            overview.creditTotal = checkedAdd(overview.creditTotal, figures.cachedTotalMinorUnits);
            return;
        }
        const std::int64_t due = cachedAmountDueMinorUnits(figures);
        overview.open.push_back({key, due, figures.dueDate});
        overview.openTotal = checkedAdd(overview.openTotal, due);
        if (displayStatus(figures, m_today, m_environment.calendar) == DisplayStatus::overdue) {
            overview.overdueTotal = checkedAdd(overview.overdueTotal, due);
            overview.overdueCount += 1;
        } else if (figures.dueDate &&
                   m_environment.calendar.daysBetween(m_today, *figures.dueDate) <= MoneyOverview::soonDays) {
            overview.dueSoonTotal = checkedAdd(overview.dueSoonTotal, due);
            overview.dueSoonCount += 1;
        }
    }

    const AssistantEnvironment& m_environment;
    Instant m_today;
    std::map<std::string, MoneyOverview> m_overviews;
};

} // namespace

std::vector<MoneyOverview> MoneyOverview::of(const AssistantEnvironment& environment)
{
    Collector collector(environment);
    collector.addDocuments();
    collector.addTime();
    return collector.finished();
}

} // namespace Quillary
