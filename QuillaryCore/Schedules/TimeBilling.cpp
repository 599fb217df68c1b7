#include "QuillaryCore/Schedules/TimeBilling.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Model/TimeEntryBilling.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Store/Context.h"

#include <string_view>
#include <unordered_map>

namespace Quillary {

namespace {

constexpr std::string_view hourUnit = "hour";

std::unordered_map<UUID, const TimeEntry*> byID(std::span<const TimeEntry* const> entries)
{
    std::unordered_map<UUID, const TimeEntry*> found;
    for (const TimeEntry* entry : entries) {
        if (entry->uuid) {
            found.emplace(*entry->uuid, entry);
        }
    }
    return found;
}

} // namespace

std::int64_t TimeBilling::hourlyRate(const Client* client, const Business& business)
{
    return client != nullptr && client->hourlyRateMinorUnits > 0 ? client->hourlyRateMinorUnits
                                                                 : business.hourlyRateMinorUnits;
}

std::vector<const TimeEntry*> TimeBilling::unbilled(Context& context, const Client& client)
{
    return context.fetch<TimeEntry>(
        "client = ? AND isBillable AND invoiceID IS NULL AND \"end\" IS NOT NULL AND start IS NOT NULL "
        "ORDER BY start, id",
        client.ref.key());
}

void TimeBilling::addLines(const Desk& desk,
                           const Document& draft,
                           std::span<const TimeInvoicing::Line> lines,
                           std::span<const TimeEntry* const> entries,
                           std::int32_t firstIndex,
                           std::int32_t vatBasisPoints)
{
    const std::unordered_map<UUID, const TimeEntry*> known = byID(entries);
    const UnitLibrary units(desk.context, desk.business);
    for (const TimeInvoicing::Line& proposed : lines) {
        LineItem& line = desk.context.insert<LineItem>();
        line.document = draft.ref;
        line.sortIndex = firstIndex++;
        line.title = proposed.title;
        line.details = proposed.details;
        line.quantityThousandths = proposed.quantityThousandths;
        line.unitPriceMinorUnits = proposed.unitPriceMinorUnits;
        line.vatBasisPoints = vatBasisPoints;
        setUnit(line, hourUnit, units, language(draft));
        for (const UUID& entry : proposed.entryIDs) {
            if (const auto billed = known.find(entry); billed != known.end()) {
                bill(desk.context, *billed->second, draft, line);
            }
        }
    }
}

void TimeBilling::bill(Context& context, const TimeEntry& entry, const Document& invoice, const LineItem& line)
{
    precondition(!entry.invoiceID, "an entry is billed once");
    context.edit(entry).invoiceID = invoice.uuid;
    auto& link = context.insert<TimeEntryBilling>();
    link.entryID = entry.uuid;
    link.lineID = line.uuid;
}

std::vector<const TimeEntry*> TimeBilling::entries(Context& context, const LineItem& line)
{
    std::vector<const TimeEntry*> entries;
    if (!line.uuid) {
        return entries;
    }
    for (const TimeEntryBilling* link : context.fetch<TimeEntryBilling>("lineID = ?", *line.uuid)) {
        if (const TimeEntry* entry = link->entryID ? context.find<TimeEntry>(*link->entryID) : nullptr) {
            entries.push_back(entry);
        }
    }
    return entries;
}

} // namespace Quillary
