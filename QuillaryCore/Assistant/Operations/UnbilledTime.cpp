#include "QuillaryCore/Assistant/Operations/UnbilledTime.h"

#include "QuillaryCore/Billing/Totals.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeBilling.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"
#include "QuillaryCore/Schedules/TimeMath.h"

#include <algorithm>

namespace Quillary {

namespace {

template <class Item>
Item& withKey(std::vector<Item>& items, std::int64_t Item::* key, std::int64_t wanted)
{
    const auto found = std::ranges::find(items, wanted, key);
    if (found != items.end()) {
        return *found;
    }
    Item& made = items.emplace_back();
    made.*key = wanted;
    return made;
}

} // namespace

std::int64_t UnbilledProject::hoursThousandths() const
{
    return TimeInvoicing::quantityThousandths(seconds);
}

std::int64_t UnbilledTime::hoursThousandths() const
{
    std::int64_t sum = 0;
    for (const UnbilledProject& project : projects) {
        sum = checkedAdd(sum, project.hoursThousandths());
    }
    return sum;
}

std::int64_t UnbilledTime::seconds() const
{
    std::int64_t sum = 0;
    for (const UnbilledProject& project : projects) {
        sum = checkedAdd(sum, project.seconds);
    }
    return sum;
}

std::int64_t UnbilledTime::value(const UnbilledProject& project) const
{
    return Totals::amount(project.hoursThousandths(), hourlyRate);
}

std::int64_t UnbilledTime::value() const
{
    std::int64_t sum = 0;
    for (const UnbilledProject& project : projects) {
        sum = checkedAdd(sum, value(project));
    }
    return sum;
}

std::vector<UnbilledTime> unbilledTime(const AssistantEnvironment& environment, std::optional<Ref<Client>> client)
{
    const Business& business = environment.ownBusiness();
    std::vector<UnbilledTime> clients;
    TimeEntry entry;
    environment.context.query(
        "SELECT client, project, start, \"end\" FROM TimeEntry "
        "WHERE isBillable AND invoiceID IS NULL AND start IS NOT NULL AND (?1 = 0 OR client = ?1) ORDER BY start, id",
        [&](const Statement& row) {
            UnbilledTime& time = withKey(clients, &UnbilledTime::client, row.integer(0));
            entry.start = row.instant(2);
            entry.end = row.instant(3);
            const std::int64_t seconds = TimeInvoicing::duration(entry, environment.clock.now());
            if (!entry.end) {
                time.runningSeconds = checkedAdd(time.runningSeconds, std::max<std::int64_t>(seconds, 0));
                return;
            }
            UnbilledProject& project = withKey(time.projects, &UnbilledProject::project, row.integer(1));
            project.entries += 1;
            project.seconds = checkedAdd(project.seconds, TimeMath::roundUp(seconds, business.timeRoundingMinutes));
        },
        client ? client->key() : std::int64_t{0});
    for (UnbilledTime& time : clients) {
        time.hourlyRate = TimeBilling::hourlyRate(environment.context.find(Ref<Client>(time.client)), business);
    }
    return clients;
}

} // namespace Quillary
